// Messages as boxes that wait for the user.
#pragma once
#include <QPointer>
#include <QWidget>

#include "platform/Messages.h"

namespace morvane {

class QtMessages final : public MessageAnswerer {
public:
    // The main window, over which boxes appear; none before it is known.
    void SetMainWindow(QWidget* MainWindow) { m_mainWindow = MainWindow; }

    MessageAnswer Answer(const Message& Asked) override;

private:
    QPointer<QWidget> m_mainWindow;
};

} // namespace morvane
