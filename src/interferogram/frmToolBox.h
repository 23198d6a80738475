// The tool window with the commands for aperture, obstruction and fringe orders. What is clicked
// and typed goes to the session; what the session's ToolBox holds shows here.
#pragma once
#include <QDialog>
#include <memory>

#include "shell/modMain.h"

class QComboBox;
class QPushButton;

namespace Ui {
class frmToolBox;
}

namespace morvane {

class frmToolBox final : public QDialog {
    Q_OBJECT

public:
    // Like the main window, it must outlive the session.
    frmToolBox(Session& In, QWidget* Owner);
    ~frmToolBox() override;

signals:
    void VisibilityChanged(bool Visible);

protected:
    void showEvent(QShowEvent* Event) override;
    void hideEvent(QHideEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;

private:
    // The controls of one figure.
    struct ShapeFrame {
        ShapeRole Role;
        QComboBox& Kind;
        QPushButton &Add, &Clear, &Load, &Save;
    };
    std::array<ShapeFrame, 2> ShapeFrames() const;
    void ConnectShape(const ShapeFrame& Of);
    void ConnectFringes();
    template <typename Command>
    void Connect(QPushButton& Button, Command Act);
    void ReturnToPicture();
    void Refresh();

    Session& m_session;
    std::unique_ptr<Ui::frmToolBox> m_ui;
};

} // namespace morvane
