// What the test is of, and whose: the texts that the report tells of a document.
#pragma once
#include <QDialog>
#include <memory>

#include "shell/modMain.h"

namespace Ui {
class frmUserData;
}

namespace morvane {

class frmUserData final : public QDialog {
    Q_OBJECT

public:
    // Settings remember where it stood.
    frmUserData(clsDocument& Of, Session& In, SettingsStore& Settings, QWidget* Owner);
    ~frmUserData() override;

    void accept() override;
    void done(int Result) override;

private:
    void Fill();

    clsDocument& m_document;
    Session& m_session;
    SettingsStore& m_settings;
    std::unique_ptr<Ui::frmUserData> m_ui;
};

} // namespace morvane
