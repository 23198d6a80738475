#include "report/ReportPage.h"

#include <algorithm>
#include <utility>

#include "platform/Numbers.h"

namespace morvane {
namespace {

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

void AddPanes(ReportPage& to, int numPanes)
{
    const auto [left, top, right, bottom] = to.Box;
    PaneLayout layout = LayOutPanes({left, top, right + 1, bottom + 1}, numPanes);
    for (const DeviceRect& pane : layout.Panes)
        to.Panes.push_back({pane.Left, pane.Top, pane.Right - 1, pane.Bottom - 1});
    to.InnerLines = std::move(layout.Lines);
}

} // namespace

DeviceRect ReportPage::Inside(const DeviceRect& Pane) const
{
    return {Pane.Left + Gap, Pane.Top + Gap, Pane.Right - Gap + 1, Pane.Bottom - Gap + 1};
}

ReportPage LayOutPage(const DeviceFigures& Of, int TitleHeight, int NumPanes)
{
    const DevicePoint margins = MarginsOf(Of);
    ReportPage page;
    page.Gap = RoundToLong(Of.PixelsPerInchX / 8.0);
    page.Title = {RoundToLong((Of.Printable.Width - 1) / 2.0), margins.Y};
    page.Box = BoxOf(Of, margins, TitleHeight, page.Gap);
    AddPanes(page, NumPanes);
    return page;
}

} // namespace morvane
