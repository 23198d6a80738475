// Asks for the ratio by which the active picture is made wider or higher.
#pragma once
#include <QDialog>
#include <memory>

#include "shell/modMain.h"

namespace Ui {
class frmAspectRatio;
}

namespace morvane {

class frmAspectRatio final : public QDialog {
    Q_OBJECT

public:
    frmAspectRatio(Session& In, QWidget* Owner);
    ~frmAspectRatio() override;

    void accept() override;

private:
    Session& m_session;
    std::unique_ptr<Ui::frmAspectRatio> m_ui;
};

} // namespace morvane
