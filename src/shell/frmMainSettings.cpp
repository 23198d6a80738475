// What the main window remembers between runs, and where it and its tool windows come up.
#include <QScreen>
#include <QStatusBar>

#include "analysis/frmAnalyze.h"
#include "interferogram/frmToolBox.h"
#include "platform/Numbers.h"
#include "shell/frmMain.h"
#include "shell/qt/Screens.h"
#include "shell/qt/WindowPlaces.h"
#include "shell/qt/WorkArea.h"

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
    resize(PixelsOf(m_kept.Width), PixelsOf(m_kept.Height));
    move(PixelsOf(m_kept.Left), PixelsOf(m_kept.Top));
    if (m_kept.State == WindowState::Maximized)
        setWindowState(Qt::WindowMaximized);
    else if (m_kept.State == WindowState::Minimized)
        setWindowState(Qt::WindowMinimized);
    statusBar()->setVisible(m_kept.StatusBar);
    m_analyzeBox->setChecked(m_kept.AnalyzeBox);
}

void frmMain::WriteSettings()
{
    m_kept.State = isMinimized() ? WindowState::Minimized
        : isMaximized()          ? WindowState::Maximized
                                 : WindowState::Normal;
    const std::pair<int*, int> place[] = {{&m_kept.Left, x()}, {&m_kept.Top, y()},
        {&m_kept.Width, width()}, {&m_kept.Height, height()}};
    for (const auto& [twips, pixels] : place)
        if (PixelsOf(*twips) != pixels)
            *twips = pixels * TwipsPerPixel;
    m_kept.AnalyzeBox = m_analyzeBox->isChecked();
    WriteMainWindow(*m_settings, m_kept);
    SaveViewSettings(*m_settings, m_session->Prefs);
    WriteBoxes(*m_settings, m_kept);
    m_session->WriteSettings(*m_settings);
    WriteBoxPlace(AnalyzePlace, *m_analyze);
    WriteBoxPlace(ToolBoxPlace, *m_toolBox);
    m_settings->Save();
}

void frmMain::ShowAnalysis()
{
    const BoxPlace kept = ReadPlace(*m_settings, AnalyzePlace);
    PlaceBox(*m_analyze, {kept.Left, kept.Top},
        PlaceOfAnalysis(AreaOnScreen(), m_analyze->sizeHint(), screen()->availableGeometry()));
    m_analyze->show();
}

// At least half of it on the screen, in both directions.
void frmMain::ShowToolBox()
{
    const QSize size = m_toolBox->sizeHint();
    const QPoint usual = PlaceOfToolBox(frameGeometry(), AreaOnScreen(),
        m_analyze->isVisible() ? m_analyze->frameGeometry() : QRect(), size,
        screen()->availableGeometry());
    const ScreenMeasures desktop = Screens();
    const BoxPlace kept = ReadPlace(*m_settings, ToolBoxPlace, {usual.x(), usual.y()},
        {.Min = {0, 0},
            .Max = {desktop.Width - size.width() / 2, desktop.Height - size.height() / 2}});
    PlaceBox(*m_toolBox, {kept.Left, kept.Top}, usual);
    m_toolBox->show();
}

// Once; then it is the user's. The corner of the screen is where nobody has put it yet.
void frmMain::PlaceBox(QWidget& Box, QPoint Kept, QPoint Usual)
{
    if (Box.testAttribute(Qt::WA_Moved))
        return;
    const bool isPlace = !Kept.isNull() && IsReachable({Kept, Box.sizeHint()});
    Box.adjustSize(); // a later change would take the place for that inside the frame
    Box.move(isPlace ? Kept : Usual);
}

// Of one that has been on the screen.
void frmMain::WriteBoxPlace(const PlaceKey& Key, const QWidget& Box)
{
    if (Box.testAttribute(Qt::WA_Moved))
        WritePlace(*m_settings, Key, {Box.x(), Box.y()});
}

QRect frmMain::AreaOnScreen() const
{
    return {m_area->mapToGlobal(QPoint(0, 0)), m_area->size()};
}

} // namespace morvane
