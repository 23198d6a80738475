#include "report/PaneLayout.h"

#include <algorithm>
#include <optional>

#include "platform/Numbers.h"

namespace morvane {

PaneLayout LayOutPanes(const DeviceRect& Page, int NumPanes)
{
    PaneLayout layout;
    if (NumPanes < 1 || NumPanes > MaxPanes)
        return layout;
    const std::span<const PaneRow> rows = PaneRows[NumPanes - 1];
    const int right = Page.Right - 1, bottom = Page.Bottom - 1;
    const int middle = RoundToLong(Page.Left + Page.Width() / 2.0);
    std::optional<int> divided; // where the first row of two begins
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto lineAt = [&](std::size_t row) {
            return RoundToLong(Page.Top + Page.Height() * rows[row].Top);
        };
        const int top = lineAt(i), end = i + 1 < rows.size() ? lineAt(i + 1) + 1 : Page.Bottom;
        if (i > 0)
            layout.Lines.push_back({{Page.Left, top}, {right, top}});
        if (rows[i].Panes == 1) {
            layout.Panes.push_back({Page.Left, top, Page.Right, end});
            continue;
        }
        divided = divided.value_or(top);
        layout.Panes.push_back({Page.Left, top, middle + 1, end});
        layout.Panes.push_back({middle, top, Page.Right, end});
    }
    if (divided)
        layout.Lines.push_back({{middle, *divided}, {middle, bottom}});
    return layout;
}

DeviceRect FitInto(const DeviceRect& Box, DeviceSize Picture)
{
    if (Picture.Width <= 0 || Picture.Height <= 0 || Box.Width() <= 0 || Box.Height() <= 0)
        return {};
    const double scale =
        std::min(double(Box.Width()) / Picture.Width, double(Box.Height()) / Picture.Height);
    const int width = RoundToLong(Picture.Width * scale);
    const int height = RoundToLong(Picture.Height * scale);
    const int left = Box.Left + (Box.Width() - width) / 2;
    const int top = Box.Top + (Box.Height() - height) / 2;
    return {left, top, left + width, top + height};
}

} // namespace morvane
