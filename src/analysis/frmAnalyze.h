// The tool window with the options of the next analysis. It holds none itself: what is edited goes
// to the session's AnalyzeBox at once, and what changes there shows here.
#pragma once
#include <QDialog>
#include <memory>

#include "shell/modMain.h"

namespace Ui {
class frmAnalyze;
}

namespace morvane {

class frmAnalyze final : public QDialog {
    Q_OBJECT

public:
    // Like the main window, it must outlive the session.
    frmAnalyze(Session& In, QWidget* Owner);
    ~frmAnalyze() override;

signals:
    void VisibilityChanged(bool Visible);

protected:
    void showEvent(QShowEvent* Event) override;
    void hideEvent(QHideEvent* Event) override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    void ConnectControls();
    void Refresh();
    void RefreshReferences();
    void Store();
    void Browse();

    Session& m_session;
    std::unique_ptr<Ui::frmAnalyze> m_ui;
};

} // namespace morvane
