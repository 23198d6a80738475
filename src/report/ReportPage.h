// Where things lie on the page of the report, from what the printer tells of itself: the title, the
// box that the panes share, and the panes. Device units.
//
// Here, right and bottom are those of the lines that the page grid draws: neighbours share them.
#pragma once
#include <vector>

#include "report/PaneLayout.h"

namespace morvane {

struct ReportPage {
    DevicePoint Title; // its upper edge, in the middle
    DeviceRect Box;
    int Gap = 0; // between a pane's edges and what it shows
    std::vector<DeviceRect> Panes; // in the order of their numbers
    std::vector<PageLine> InnerLines;

    // What a pane shows lies in here, right and bottom exclusive.
    DeviceRect Inside(const DeviceRect& Pane) const;
};

// A number of panes outside 1 to 6 leaves the box empty.
ReportPage LayOutPage(const DeviceFigures& Of, int TitleHeight, int NumPanes);

} // namespace morvane
