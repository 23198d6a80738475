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
        [this](bool shown) { shown ? ShowWithFocus() : m_window.hide(); });
}

void ToolWindow::ReadSettings(SettingsStore& From, const MainWindowSettings& Shown)
{
    m_settings = &From;
    m_command.setChecked(Shown.*m_kept.Shown);
}

void ToolWindow::WriteSettings(SettingsStore& Into, MainWindowSettings& Shown) const
{
    Shown.*m_kept.Shown = m_command.isChecked();
    if (IsPlaced())
        WritePlace(Into, m_kept.Place, {m_window.x(), m_window.y()});
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

// The user has asked for it: the keys go there.
void ToolWindow::ShowWithFocus()
{
    Show();
    m_window.activateWindow();
}

void ToolWindow::Show()
{
    if (!IsPlaced())
        Place();
    m_window.show();
}

bool ToolWindow::IsPlaced() const
{
    return m_window.testAttribute(Qt::WA_Moved);
}

void ToolWindow::Place()
{
    m_window.adjustSize(); // a later change would take the place for that inside the frame
    const QSize size = m_window.size();
    const QPoint usual = m_first(size);
    const QPoint kept = KeptPlace(size, usual);
    m_window.move(IsReachable({kept, size}) ? kept : usual);
}

QPoint ToolWindow::KeptPlace(QSize Of, QPoint Usual) const
{
    PlaceLimits limits;
    if (m_kept.Limits == ToolWindowKeeping::Within::Screen) {
        const ScreenMeasures desktop = Screens();
        limits = {{0, 0}, {desktop.Width - Of.width() / 2, desktop.Height - Of.height() / 2}};
    }
    const BoxPlace kept = ReadPlace(*m_settings, m_kept.Place, {Usual.x(), Usual.y()}, limits);
    return {kept.Left, kept.Top};
}

} // namespace morvane
