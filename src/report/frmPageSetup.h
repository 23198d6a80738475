// Lays out the printed report: how many panes, what each shows, which figures the text has.
#pragma once
#include <QDialog>
#include <memory>

#include "document/Preferences.h"
#include "shell/SettingsStore.h"

namespace Ui {
class frmPageSetup;
}

namespace morvane {

class frmPageSetup final : public QDialog {
    Q_OBJECT

public:
    // Changes Edited when the user says OK. Settings remember where it stood.
    frmPageSetup(ReportPreferences& Edited, SettingsStore& Settings, QWidget* Owner);
    ~frmPageSetup() override;

    void accept() override;
    void done(int Result) override;

private:
    void Fill();
    void ConnectControls();
    // As the controls stand.
    ReportPreferences Chosen() const;
    void UpdatePanes();

    ReportPreferences& m_edited;
    SettingsStore& m_settings;
    std::unique_ptr<Ui::frmPageSetup> m_ui;
};

} // namespace morvane
