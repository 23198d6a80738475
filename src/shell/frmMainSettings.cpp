// What the main window remembers between runs, and where its tool windows come up first.
#include <QAction>
#include <QMdiArea>
#include <QScreen>

#include "platform/Numbers.h"
#include "shell/frmMain.h"
#include "shell/qt/Screens.h"

namespace morvane {
namespace {

int PixelsOf(int Twips)
{
    return RoundToLong(static_cast<double>(Twips) / TwipsPerPixel);
}

} // namespace

void frmMain::ReadSettings()
{
    m_kept = ReadMainWindow(*m_settings, Screens());
    TakeKeptPlace();
    if (m_kept.State == WindowState::Maximized) {
        // What comes up before the window system has maximised it finds the room that there will
        // be.
        resize(screen()->availableGeometry().size());
        m_isGrown = true;
        setWindowState(Qt::WindowMaximized);
    } else if (m_kept.State == WindowState::Minimized)
        setWindowState(Qt::WindowMinimized);
    findChild<QAction*>("mnuViewToolbar")->setChecked(m_kept.Toolbar);
    findChild<QAction*>("mnuViewStatusBar")->setChecked(m_kept.StatusBar);
    for (ToolWindow* const window : m_toolWindows)
        window->ReadSettings(*m_settings, m_kept);
}

// In the corner of the screen if the user couldn't get at it where it was left. Tested before it is
// shown: a window system that is just placing it takes a move for one of the part in its frame.
void frmMain::TakeKeptPlace()
{
    const QSize size(PixelsOf(m_kept.Width), PixelsOf(m_kept.Height));
    resize(size.expandedTo(minimumSizeHint()));
    const QPoint kept(PixelsOf(m_kept.Left), PixelsOf(m_kept.Top));
    move(IsReachable({kept, this->size()}) ? kept : screen()->availableGeometry().topLeft());
}

FileResult frmMain::WriteSettings()
{
    m_kept.State = isMinimized() ? WindowState::Minimized
        : isMaximized()          ? WindowState::Maximized
                                 : WindowState::Normal;
    const std::pair<int*, int> place[] = {{&m_kept.Left, x()}, {&m_kept.Top, y()},
        {&m_kept.Width, width()}, {&m_kept.Height, height()}};
    for (const auto& [twips, pixels] : place)
        if (PixelsOf(*twips) != pixels)
            *twips = pixels * TwipsPerPixel;
    m_kept.Toolbar = findChild<QAction*>("mnuViewToolbar")->isChecked();
    m_kept.StatusBar = findChild<QAction*>("mnuViewStatusBar")->isChecked();
    for (const ToolWindow* const window : m_toolWindows)
        window->WriteSettings(*m_settings, m_kept);
    WriteMainWindow(*m_settings, m_kept);
    SaveViewSettings(*m_settings, m_session->Prefs);
    WriteBoxes(*m_settings, m_kept);
    m_session->WriteSettings(*m_settings);
    return m_settings->Save();
}

QRect frmMain::AreaOnScreen() const
{
    return {m_area->mapToGlobal(QPoint(0, 0)), m_area->size()};
}

} // namespace morvane
