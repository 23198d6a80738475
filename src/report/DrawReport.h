// The test report of a document, on one page: a title, the page grid, and the panes of the page
// setup, each with a view of the document.
#pragma once
#include <string>

#include "document/clsDocument.h"

namespace morvane {

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
