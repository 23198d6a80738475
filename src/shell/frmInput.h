// Asks for one text or number.
#pragma once
#include <QDialog>
#include <memory>

#include "shell/InputPrompt.h"
#include "shell/SettingsStore.h"

namespace Ui {
class frmInput;
}

namespace morvane {

class frmInput final : public QDialog {
    Q_OBJECT

public:
    // Settings remember where it stood.
    frmInput(const InputRequest& Request, SettingsStore& Settings, QWidget* Owner);
    ~frmInput() override;

    // Of what stands in the box.
    InputAnswer Answer() const;

    void done(int Result) override;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    InputRequest m_request;
    SettingsStore& m_settings;
    std::unique_ptr<Ui::frmInput> m_ui;
};

} // namespace morvane
