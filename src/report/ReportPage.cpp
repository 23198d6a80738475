#include "report/ReportPage.h"

#include <algorithm>
#include <span>

#include "platform/Numbers.h"

namespace morvane {
namespace {

// Panes side by side, down to a fraction of the height of the box.
struct PaneRow {
    double End;
    int Columns;
};

// The first of 2, 3 and 5 panes gets the larger share, for the main picture.
std::span<const PaneRow> RowsOf(int numPanes)
{
    static constexpr PaneRow one[] = {{1, 1}};
    static constexpr PaneRow two[] = {{3.0 / 5, 1}, {1, 1}};
    static constexpr PaneRow three[] = {{3.0 / 5, 1}, {1, 2}};
    static constexpr PaneRow four[] = {{1.0 / 2, 2}, {1, 2}};
    static constexpr PaneRow five[] = {{2.0 / 5, 1}, {7.0 / 10, 2}, {1, 2}};
    static constexpr PaneRow six[] = {{1.0 / 3, 2}, {2.0 / 3, 2}, {1, 2}};
    switch (numPanes) {
    case 1:
        return one;
    case 2:
        return two;
    case 3:
        return three;
    case 4:
        return four;
    case 5:
        return five;
    case 6:
        return six;
    default:
        return {};
    }
}

DevicePoint MarginsOf(const DeviceFigures& of)
{
    const auto [width, height] = of.Physical;
    const auto [across, down] = of.Printable;
    auto [x, y] = of.Offset;
    if (width != across && height != down) {
        if (width > across + 2 * x)
            x = RoundToLong((width - across) / 2.0);
        if (height > down + 2 * y)
            y = RoundToLong((height - down) / 2.0);
        return {x, y};
    }
    constexpr double least = 0.2; // inch
    return {std::max(x, RoundToLong(least * of.PixelsPerInchX)),
        std::max(y, RoundToLong(least * of.PixelsPerInchY))};
}

DeviceRect BoxOf(const DeviceFigures& of, DevicePoint margins, int titleHeight, int gap)
{
    const int left = std::max(RoundToLong(of.PixelsPerInchX / 4.0), margins.X);
    const int below = std::max(RoundToLong(of.PixelsPerInchY / 4.0), margins.Y);
    return {left, margins.Y + titleHeight + gap, of.Printable.Width - 1 - left,
        of.Printable.Height - 1 - below};
}

void AddPanes(ReportPage& to, std::span<const PaneRow> rows)
{
    const auto [left, top, right, bottom] = to.Box;
    const int middle = RoundToLong((right - left + 1) / 2.0 + left);
    int from = top, split = bottom;
    for (const PaneRow& row : rows) {
        const int end = row.End < 1 ? RoundToLong((bottom - top + 1) * row.End + top) : bottom;
        if (row.Columns == 1) {
            to.Panes.push_back({left, from, right, end});
        } else {
            to.Panes.push_back({left, from, middle, end});
            to.Panes.push_back({middle, from, right, end});
            split = std::min(split, from);
        }
        if (end < bottom)
            to.InnerLines.push_back({{left, end}, {right, end}});
        from = end;
    }
    if (split < bottom)
        to.InnerLines.push_back({{middle, split}, {middle, bottom}});
}

} // namespace

DeviceRect ReportPage::Inside(const DeviceRect& Pane) const
{
    return {Pane.Left + Gap, Pane.Top + Gap, Pane.Right - Gap + 1, Pane.Bottom - Gap + 1};
}

DeviceRect FitWithin(const DeviceRect& Box, DeviceSize Picture)
{
    const double scale = std::min(static_cast<double>(Box.Width()) / Picture.Width,
        static_cast<double>(Box.Height()) / Picture.Height);
    const int width = RoundToLong(Picture.Width * scale);
    const int height = RoundToLong(Picture.Height * scale);
    const int x = (Box.Width() - width) / 2 + Box.Left, y = (Box.Height() - height) / 2 + Box.Top;
    return {x, y, x + width, y + height};
}

ReportPage LayOutPage(const DeviceFigures& Of, int TitleHeight, int NumPanes)
{
    const DevicePoint margins = MarginsOf(Of);
    ReportPage page;
    page.Gap = RoundToLong(Of.PixelsPerInchX / 8.0);
    page.Title = {RoundToLong((Of.Printable.Width - 1) / 2.0), margins.Y};
    page.Box = BoxOf(Of, margins, TitleHeight, page.Gap);
    AddPanes(page, RowsOf(NumPanes));
    return page;
}

} // namespace morvane
