#include "report/PagePreview.h"

#include <gtest/gtest.h>

#include "RecordingDevice.h"

namespace morvane {
namespace {

class SmallDevice final : public RecordingDevice {
public:
    DeviceRect Bounds() const override { return {0, 0, 298, 298}; }
};

TEST(PagePreview, TheSheetStandsInTheMiddleUprightOrAcross)
{
    ReportPreferences chosen;
    EXPECT_EQ(PreviewedPage({298, 298}, chosen), (DeviceRect{41, 9, 257, 288}));
    EXPECT_EQ(PreviewedPage({498, 298}, chosen), (DeviceRect{141, 9, 357, 288})) << "wide box";
    chosen.PageOrientation = LandscapeOrientation;
    EXPECT_EQ(PreviewedPage({298, 298}, chosen), (DeviceRect{9, 41, 288, 257}));
}

TEST(PagePreview, FrameAndLinesAreThereOnlyIfChosen)
{
    const struct {
        bool DrawsGrid;
        int NumPanes;
        std::size_t Lines;
    } cases[] = {{false, 6, 0}, {true, 1, 4}, {true, 4, 6}, {true, 5, 7}};
    for (const auto& c : cases) {
        SmallDevice device;
        ReportPreferences chosen;
        chosen.DrawPageGrid = c.DrawsGrid;
        chosen.NumPanes = c.NumPanes;
        DrawPagePreview(device, chosen);
        EXPECT_EQ(std::ranges::count(device.Calls, DeviceCall::Kind::Polyline, &DeviceCall::What),
            c.Lines)
            << c.NumPanes;
        EXPECT_EQ(std::ranges::count(device.Calls, White, &DeviceCall::Fill), 1) << "the sheet";
    }
}

TEST(PagePreview, OnlyPanesOfThePageAreShown)
{
    ReportPreferences chosen;
    chosen.NumPanes = 2;
    chosen.Pane = {9, 0, 3, 3, 3, 3};
    const std::vector<PreviewedPane> panes = PreviewedPanes({298, 298}, chosen);
    ASSERT_EQ(panes.size(), 2u);
    EXPECT_EQ(panes[0].View, PaneView::GridResults);
    EXPECT_EQ(panes[1].View, PaneView::None);
    EXPECT_EQ(panes[1].Box, (DeviceRect{41, 176, 257, 288}));
}

} // namespace
} // namespace morvane
