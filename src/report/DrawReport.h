// The test report of a document, on one page: a title, the page grid, and the panes of the page
// setup, each with a view of the document.
#pragma once
#include <string>

#include "document/clsDocument.h"

namespace morvane {

// What a pane shows, by the numbers of the page setup.
enum class PaneCode {
    None = 0,
    Aberrations = 1,
    ContourPlot = 2,
    Interferogram = 3,
    LineProfile = 4,
    Logo = 5,
    SurfacePlot = 6,
    SyntheticFringes = 7,
    Zernikes = 8,
    GridResults = 9
};

struct ReportSource {
    const clsDocument& Document;
    const Preferences& Chosen;
    DeviceSize Screen; // what has its size in pixels there is as large on the page
    std::string LogoPath;
};

// Whether a pane would stay empty, because there are no analysis results.
bool HasEmptyPanes(const ReportSource& Of);

void DrawReport(Device& On, const ReportSource& Of);

} // namespace morvane
