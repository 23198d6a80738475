// What the main window remembers between runs, and where it and the analysis window come up.
#include <QScreen>
#include <QStatusBar>

#include "analysis/frmAnalyze.h"
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
    m_analyzePlace = ReadAnalyzePlace(*m_settings);
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
    if (m_analyzePlaced)
        m_analyzePlace = {m_analyze->x(), m_analyze->y()};
    WriteAnalyzePlace(*m_settings, m_analyzePlace);
    m_settings->Save();
}

void frmMain::ShowAnalysis()
{
    if (!m_analyzePlaced)
        PlaceAnalysis();
    m_analyze->show();
}

// The corner of the screen is where nobody has put it yet.
void frmMain::PlaceAnalysis()
{
    m_analyzePlaced = true;
    const QSize size = m_analyze->sizeHint();
    const QPoint kept(m_analyzePlace.Left, m_analyzePlace.Top);
    if (!kept.isNull() && IsReachable({kept, size})) {
        m_analyze->move(kept);
        return;
    }
    const QRect area(m_area->mapToGlobal(QPoint(0, 0)), m_area->size());
    m_analyze->move(PlaceOfAnalysis(area, size, screen()->availableGeometry()));
}

} // namespace morvane
