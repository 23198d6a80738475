// A window that floats over the main window, as the main window handles it: its command shows and
// hides it and is checked while it is shown, and it comes up where the user left it.
#pragma once
#include <QObject>
#include <functional>

#include "shell/BoxPlace.h"
#include "shell/MainWindowSettings.h"

class QAction;
class QDialog;

namespace morvane {

// How the settings keep one.
struct ToolWindowKeeping {
    bool MainWindowSettings::*Shown;
    PlaceKey Place;
    enum class Within { Anywhere, Screen } Limits = Within::Anywhere; // at least half of it
};

class ToolWindow final : public QObject {
    Q_OBJECT

public:
    // Upper left corner on the screen, for a window of that size.
    using FirstPlace = std::function<QPoint(QSize Wanted)>;

    // First is where it comes up while the settings hold no place that can be reached.
    ToolWindow(QDialog& Window, QAction& Command, const ToolWindowKeeping& Kept, FirstPlace First);

    void ReadSettings(SettingsStore& From, const MainWindowSettings& Shown);
    void WriteSettings(SettingsStore& Into, MainWindowSettings& Shown) const;
    // Shows it, if it was shown when the settings were written.
    void Restore();
    // With the main window: the next run shows it again.
    void HideWithOwner();

public slots:
    void NoteVisible(bool Visible);

private:
    void Show();
    void ShowWithFocus();
    void Place();
    bool IsPlaced() const;
    QPoint KeptPlace(QSize Of, QPoint Usual) const;

    QDialog& m_window;
    QAction& m_command;
    ToolWindowKeeping m_kept;
    FirstPlace m_first;
    SettingsStore* m_settings = nullptr;
};

} // namespace morvane
