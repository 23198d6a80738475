#include "report/PagePreview.h"

#include <algorithm>
#include <utility>

#include "platform/Numbers.h"

namespace morvane {
namespace {

constexpr int PageWidth = 21600, PageHeight = 27900; // hundredths of a millimeter
constexpr int BoxSide = 29800; // the box shows at least so much in each axis
constexpr Color Desk{0xb4, 0xba, 0xc2}, Shadow{0x93, 0x9a, 0xa3};

DeviceSize BoxOf(const Device& device)
{
    return {device.Bounds().Width(), device.Bounds().Height()};
}

// Both ends included.
void DrawLine(Device& on, DevicePoint from, DevicePoint to)
{
    const int right = from.Y == to.Y, down = from.X == to.X;
    on.DrawPolyline(std::array{from, DevicePoint{to.X + right, to.Y + down}});
}

void DrawFrame(Device& on, const DeviceRect& page, int numPanes)
{
    const clsPenScope pen(on, {});
    const int right = page.Right - 1, bottom = page.Bottom - 1;
    DrawLine(on, {page.Left, page.Top}, {right, page.Top});
    DrawLine(on, {page.Left, bottom}, {right, bottom});
    DrawLine(on, {page.Left, page.Top}, {page.Left, bottom});
    DrawLine(on, {right, page.Top}, {right, bottom});
    for (const auto& [from, to] : LayOutPanes(page, numPanes).Lines)
        DrawLine(on, from, to);
}

} // namespace

DeviceRect PreviewedPage(DeviceSize In, const ReportPreferences& Chosen)
{
    const double scale = double(std::min(In.Width, In.Height)) / BoxSide;
    DeviceSize page{RoundToLong(PageWidth * scale), RoundToLong(PageHeight * scale)};
    if (Chosen.PageOrientation == LandscapeOrientation)
        std::swap(page.Width, page.Height);
    const int left = (In.Width - page.Width) / 2, top = (In.Height - page.Height) / 2;
    return {left, top, left + page.Width, top + page.Height};
}

void DrawPagePreview(Device& On, const ReportPreferences& Chosen)
{
    const DeviceRect page = PreviewedPage(BoxOf(On), Chosen);
    const int drop = std::max(page.Width(), page.Height()) / 90;
    On.FillRectangle(On.Bounds(), Desk);
    On.FillRectangle(
        {page.Left + drop, page.Top + drop, page.Right + drop, page.Bottom + drop}, Shadow);
    On.FillRectangle(page, White);
    if (Chosen.DrawPageGrid)
        DrawFrame(On, page, Chosen.NumPanes);
}

std::vector<PreviewedPane> PreviewedPanes(DeviceSize In, const ReportPreferences& Chosen)
{
    std::vector<PreviewedPane> panes;
    const PaneLayout layout = LayOutPanes(PreviewedPage(In, Chosen), Chosen.NumPanes);
    for (std::size_t i = 0; i < layout.Panes.size(); ++i)
        panes.push_back({static_cast<PaneView>(Chosen.Pane[i]), layout.Panes[i]});
    return panes;
}

} // namespace morvane
