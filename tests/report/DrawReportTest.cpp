#include "report/DrawReport.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FringePicture.h"
#include "PlainHost.h"
#include "RecordingDevice.h"
#include "TemporaryFolder.h"
#include "report/LogoPane.h"
#include "report/ReportPage.h"

namespace morvane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr int Fine = 600; // dots per inch

bool LiesWithin(const DeviceRect& box, const DeviceRect& in)
{
    return box.Left >= in.Left && box.Top >= in.Top && box.Right <= in.Right
        && box.Bottom <= in.Bottom;
}

// A letter sheet, against a screen whose diagonal has a fourth of its dots; a picture of 300 by 200
// pixels with traced fringes.
class DrawnReport : public ::testing::Test {
protected:
    DrawnReport()
    {
        device.Shape = {Fine, Fine, {4800, 6300}, {5100, 6600}, {150, 150}};
        WritePicture(VerticalFringes(300, 200, 20), folder / "picture.bmp");
        document.LoadFileIntoDataBuffer(folder / "picture.bmp", true);
        SetCircle(document.Aperture, 150, 100, 90);
        document.InvalidateMask();
        document.AutoTraceFringes(FringeDirection::Vertical, FringeDensity::Normal);
        document.Optic.Comments = "first sphere";
    }
    void Analyze()
    {
        ASSERT_TRUE(document.CreateOutputViews());
        ASSERT_TRUE(document.UpdateAnalysis(true, true));
    }
    ReportPage Draw(std::initializer_list<int> panes)
    {
        std::ranges::copy(panes, chosen.Report.Pane.begin());
        chosen.Report.NumPanes = static_cast<int>(panes.size());
        device.Calls.clear();
        DrawReport(device, source);
        constexpr int titleHeight = 117 * 6 / 5; // 14 points, 116.67 dots; the recorder's line
        return LayOutPage(device.Shape, titleHeight, chosen.Report.NumPanes);
    }
    std::vector<DeviceCall> CallsWithin(const DeviceRect& clip) const
    {
        std::vector<DeviceCall> calls;
        std::ranges::copy_if(device.Calls, std::back_inserter(calls),
            [&](const DeviceCall& call) { return LiesWithin(call.Clip, clip); });
        return calls;
    }
    std::vector<std::string> TextsWithin(const DeviceRect& clip) const
    {
        std::vector<std::string> texts;
        for (const DeviceCall& call : CallsWithin(clip))
            if (call.What == DeviceCall::Kind::Text)
                texts.push_back(call.Text);
        return texts;
    }

    TemporaryFolder folder;
    PlainHost host;
    clsDocument document{host};
    Preferences chosen;
    RecordingDevice device;
    const ReportSource source{document, chosen, {1275, 1650}, folder / "Logo.bmp"};
};

TEST_F(DrawnReport, NothingLeavesItsPane)
{
    Analyze();
    WritePicture(VerticalFringes(64, 16, 8), folder / "Logo.bmp");
    const ReportPage page = Draw({3, 1, 4, 8, 9, 5});
    std::size_t numWithin = 0;
    for (const DeviceRect& pane : page.Panes) {
        const DeviceRect inside = page.Inside(pane);
        const std::vector<DeviceCall> calls = CallsWithin(inside);
        EXPECT_THAT(calls, Not(IsEmpty())) << "a pane is empty";
        numWithin += calls.size();
        for (const DeviceCall& call : calls) {
            const bool hasBox =
                call.What == DeviceCall::Kind::Text || call.What == DeviceCall::Kind::Picture;
            EXPECT_TRUE(!hasBox || LiesWithin(call.Box, inside)) << call.Text;
            for (const auto& [x, y] : call.Points)
                EXPECT_TRUE(LiesWithin({x, y, x, y}, inside)) << x << ", " << y;
        }
    }
    constexpr std::size_t titleFrameAndLines = 1 + 1 + 3;
    EXPECT_EQ(device.Calls.size(), numWithin + titleFrameAndLines);
}

TEST_F(DrawnReport, EachCodeShowsItsView)
{
    Analyze();
    document.RefreshLineViewData(30);
    const struct {
        int Code;
        const char* Text;
    } cases[] = {{1, "Output Units: Waves"}, {4, "Profile along 30 degs"},
        {5, "Comments: first sphere"}, {8, "Zernike Polynomials"}, {9, "Grid Analysis Results"}};
    for (const auto& c : cases) {
        const ReportPage page = Draw({c.Code});
        EXPECT_THAT(TextsWithin(page.Inside(page.Panes[0])), Contains(c.Text)) << c.Code;
    }
}

// What an analysis that was refused has stored is for the next one.
TEST_F(DrawnReport, FiguresAndProfileAreThoseOfTheViews)
{
    Analyze();
    const auto draw = [this](int code) {
        const ReportPage page = Draw({code});
        return TextsWithin(page.Inside(page.Panes[0]));
    };
    const std::vector<std::string> figures = draw(1), profile = draw(4);
    document.ScaleMode = DisplayUnit::Micrometers;
    document.DisplayScale = 0.6328;
    document.ZScale = 1;
    document.Removed.Coma = true;
    EXPECT_EQ(draw(1), figures);
    EXPECT_EQ(draw(4), profile);
    document.RefreshLineViewData(90);
    document.RefreshLineViewData(0);
    EXPECT_EQ(draw(4), profile) << "another angle of the same results";
    ASSERT_TRUE(document.UpdateAnalysis(true, true));
    EXPECT_THAT(draw(1), Contains("Output Units: Micrometers"));
    EXPECT_THAT(draw(4), Contains("Micrometers"));
}

TEST_F(DrawnReport, OnlyPicturesAndLogoNeedNoAnalysis)
{
    chosen.Report.DrawPageGrid = false;
    for (int code = -1; code <= 10; ++code) {
        Draw({code});
        const bool isFree = code == 3 || code == 5, isView = code >= 1 && code <= 9;
        EXPECT_EQ(HasEmptyPanes(source), isView && !isFree) << code;
        EXPECT_EQ(device.Calls.size() > 1, isFree) << code << " draws beyond the title";
    }
    chosen.Report.NumPanes = 1;
    chosen.Report.Pane = {3, 1, 1, 1, 1, 1};
    EXPECT_FALSE(HasEmptyPanes(source)) << "panes beyond their number do not count";
    document.CreateOutputViews();
    chosen.Report.Pane[0] = 1;
    EXPECT_FALSE(HasEmptyPanes(source));
}

TEST_F(DrawnReport, TitleAndGridStandWithoutAnyPane)
{
    chosen.Report.NumPanes = 7;
    DrawReport(device, source);
    ASSERT_EQ(device.Calls.size(), 2u);
    const DeviceCall &title = device.Calls[0], &frame = device.Calls[1];
    EXPECT_EQ(title.Text, "Morvane Test Report");
    EXPECT_EQ(title.In, (Font{.FaceName = "Times New Roman", .Height = 117}));
    EXPECT_EQ(title.Points[0], (DevicePoint{2400, 150})) << "2399.5, to even";
    EXPECT_EQ(title.Align.Across, TextAcross::Center);
    // Left and bottom: the quarter inch and the printer's edge are the same here. Top: 150 and a
    // line of 140 and an eighth of an inch.
    EXPECT_THAT(frame.Points,
        ElementsAre(DevicePoint{150, 365}, DevicePoint{4649, 365}, DevicePoint{4649, 6149},
            DevicePoint{150, 6149}));
    EXPECT_EQ(frame.Brush, std::nullopt);
    chosen.Report.DrawPageGrid = false;
    device.Calls.clear();
    DrawReport(device, source);
    EXPECT_EQ(device.Calls.size(), 1u);
}

TEST_F(DrawnReport, OverlaysLieOnThePictureAndGrowWithThePage)
{
    const ReportPage page = Draw({3});
    const std::vector<DeviceCall> calls = CallsWithin(page.Inside(page.Panes[0]));
    // The pane leaves 4350 by 5635 dots: 14.5 of them a pixel of the picture.
    const DeviceRect picture{225, 440 + (5635 - 2900) / 2, 225 + 4350, 440 + 1367 + 2900};
    ASSERT_GT(calls.size(), 2u);
    EXPECT_EQ(calls[0].What, DeviceCall::Kind::Picture);
    EXPECT_EQ(calls[0].Box, picture);
    EXPECT_EQ(calls[0].Source, (DeviceRect{0, 0, 300, 200}));
    EXPECT_EQ(calls[1].What, DeviceCall::Kind::Ellipse);
    EXPECT_EQ(calls[1].Box,
        (DeviceRect{225 + 870, picture.Top + 145, 225 + 3480 + 1, picture.Top + 2755 + 1}));
    const auto [from, to] = std::pair(calls[2].Points.front(), calls[2].Points.back());
    EXPECT_EQ(to.X - from.X, 2 * 12 + 1) << "arms of 3 on the screen";
    constexpr Color byOrder[] = {Cyan, Magenta, Yellow};
    EXPECT_EQ(calls[2].With.Ink, byOrder[document.Fringes.GetFringeOrder(1) % 3]);
}

TEST_F(DrawnReport, TicksStaySmallOnASmallPicture)
{
    const ReportPage page = Draw({3, 0, 0, 0, 0, 0});
    const std::vector<DeviceCall> calls = CallsWithin(page.Inside(page.Panes[0]));
    ASSERT_GT(calls.size(), 2u);
    EXPECT_EQ(calls[0].Box.Height(), 1401);
    EXPECT_EQ(calls[2].Points.back().X - calls[2].Points.front().X, 2 * 9 + 1)
        << "a 150th of the height, not 12";
}

TEST_F(DrawnReport, LogoStandsOverTheComments)
{
    WritePicture(VerticalFringes(64, 16, 8), folder / "Logo.bmp");
    ReportPage page = Draw({5});
    const DeviceRect pane = page.Panes[0];
    const int half = (pane.Bottom - pane.Top) / 2;
    std::vector<DeviceCall> calls = CallsWithin(page.Inside(pane));
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].Points[0], (DevicePoint{225, pane.Top + 75 + half}));
    EXPECT_EQ(calls[1].Box.Width(), 4350);
    EXPECT_EQ(calls[1].Box.Height(), 1088) << "1087.5, to even";
    EXPECT_LT(calls[1].Box.Bottom, calls[0].Box.Top);
    chosen.Report.ShowComments = false;
    Draw({5});
    EXPECT_EQ(CallsWithin(page.Inside(pane)).size(), 1u);
}

TEST(LogoColors, ComeFromEachDepthTopDown)
{
    const std::vector<Color> expected{{255, 0, 0}, {0, 0, 255}}; // one pixel a row
    const Bitmap eight{.Width = 1,
        .Height = 2,
        .BitCount = 8,
        .Palette = {{0, 0, 255}, {255, 0, 0}},
        .Rows = {0, 9, 9, 9, 1, 9, 9, 9}};
    const Bitmap sixteen{.Width = 1,
        .Height = 2,
        .BitCount = 16,
        .Palette = {},
        .Rows = {0x1f, 0, 9, 9, 0, 0x7c, 9, 9}};
    const Bitmap twentyFour{.Width = 1,
        .Height = 2,
        .BitCount = 24,
        .Palette = {},
        .Rows = {255, 0, 0, 9, 0, 0, 255, 9}};
    for (const Bitmap& bitmap : {eight, sixteen, twentyFour})
        EXPECT_EQ(ColorsOf(bitmap), expected) << bitmap.BitCount;
}

} // namespace
} // namespace morvane
