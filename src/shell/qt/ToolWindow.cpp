#include "shell/qt/ToolWindow.h"

#include <QAction>
#include <QDialog>
#include <QSignalBlocker>

#include "shell/qt/Screens.h"

namespace morvane {

ToolWindow::ToolWindow(
    QDialog& Window, QAction& Command, const ToolWindowKeeping& Kept, FirstPlace First)
    : QObject(&Window), m_window(Window), m_command(Command), m_kept(Kept),
      m_first(std::move(First))
{
    m_command.setEnabled(true);
    connect(&m_command, &QAction::triggered, this,
        [this](bool shown) { shown ? Show() : m_window.hide(); });
}

void ToolWindow::ReadSettings(SettingsStore& From, const MainWindowSettings& Shown)
{
    m_place = m_kept.ReadPlace(From);
    m_command.setChecked(Shown.*m_kept.Shown);
}

void ToolWindow::WriteSettings(SettingsStore& Into, MainWindowSettings& Shown) const
{
    Shown.*m_kept.Shown = m_command.isChecked();
    m_kept.WritePlace(Into, m_placed ? BoxPlace{m_window.x(), m_window.y()} : m_place);
}

void ToolWindow::Restore()
{
    if (m_command.isChecked())
        Show();
}

void ToolWindow::HideWithOwner()
{
    const QSignalBlocker quiet(m_window);
    m_window.hide();
}

void ToolWindow::NoteVisible(bool Visible)
{
    m_command.setChecked(Visible);
}

void ToolWindow::Show()
{
    if (!m_placed)
        Place();
    m_window.show();
}

// The corner of the screen is where nobody has put it yet.
void ToolWindow::Place()
{
    m_placed = true;
    const QSize size = m_window.sizeHint();
    const QPoint kept(m_place.Left, m_place.Top);
    m_window.move(!kept.isNull() && IsReachable({kept, size}) ? kept : m_first(size));
}

} // namespace morvane
