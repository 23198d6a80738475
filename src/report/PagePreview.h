// The report's page in small, as the page setup shows it: the sheet in the middle of a box, its
// frame, and where the miniature of each pane's view goes. Device units.
#pragma once
#include "document/Preferences.h"
#include "report/PaneLayout.h"
#include "report/PaneViews.h"

namespace morvane {

// The sheet in a box of that size.
DeviceRect PreviewedPage(DeviceSize In, const ReportPreferences& Chosen);

// On the whole device; the miniatures come on top of it.
void DrawPagePreview(Device& On, const ReportPreferences& Chosen);

struct PreviewedPane {
    PaneView View;
    DeviceRect Box;
};
// Of the panes that the page has.
std::vector<PreviewedPane> PreviewedPanes(DeviceSize In, const ReportPreferences& Chosen);

} // namespace morvane
