#include "views/clsLineProfile.h"

#include <gmock/gmock.h>

#include "RecordingDevice.h"
#include "analysis/modSurface.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

using Kind = DeviceCall::Kind;

// X from -1 to 1 in a window of 400 x 300.
class clsLineProfileTest : public testing::Test {
protected:
    clsLineProfileTest()
    {
        ChartAxis& across = plot.Chart.Axes[BottomAxis];
        across.SetMinMax(-1, 1, -1);
        across.AutoScaleMajor(-1, 1, 0);
        across.AutoScaleMinor();
        across.CreateTickLabels();
    }

    int AddTrace(const std::vector<double>& y)
    {
        const int id = plot.CreateTrace(static_cast<int>(y.size()));
        std::vector<double> x;
        for (std::size_t i = 0; i < y.size(); ++i)
            x.push_back(-1 + 2.0 * static_cast<double>(i) / static_cast<double>(y.size() - 1));
        plot.PopulateTrace(id, x, y);
        return id;
    }

    // What is drawn within the clip, which is the traces.
    std::vector<DeviceCall> Redraw()
    {
        RecordingDevice device;
        plot.Chart.CreateChartLimits(device, {0, 0, 400, 300});
        plot.PlotRedraw(device);
        std::erase_if(device.Calls,
            [this](const DeviceCall& call) { return call.Clip != plot.Chart.PlotArea(); });
        return device.Calls;
    }

    const ChartAxis& Y() const { return plot.Chart.Axes[LeftAxis]; }

    clsLineProfile plot;
};

TEST_F(clsLineProfileTest, AutoScaleFitsTheDataAndTellsOfChanges)
{
    plot.MinYSpan = 0.05;
    AddTrace({-0.02, 0.31, NoData, 0.1});
    EXPECT_TRUE(plot.AutoScale(LeftAxis));
    EXPECT_NEAR(Y().Min, -0.04, 1e-12);
    EXPECT_NEAR(Y().Max, 0.36, 1e-12);
    EXPECT_EQ(Y().AxisAt, Y().Min);
    EXPECT_NEAR(Y().Major, 0.08, 1e-12);
    EXPECT_FALSE(plot.AutoScale(LeftAxis));
}

TEST_F(clsLineProfileTest, AutoScaleOfUnusualTraces)
{
    const struct {
        const char* Name;
        std::vector<double> Values;
        double Min, Max;
    } cases[] = {
        {"below the least span", {0.01, 0.02, 0.03}, 0, 0.5},
        {"no data", {NoData, NoData}, 0, 1},
        {"level", {0.5, 0.5}, 0.25, 0.75},
        {"level but for rounding", {0, 1e-12}, -0.25, 0.25},
    };
    plot.MinYSpan = 0.5;
    for (const auto& c : cases) {
        plot.DeleteAllTraces();
        AddTrace(c.Values);
        plot.AutoScale(LeftAxis);
        EXPECT_NEAR(Y().Min, c.Min, 1e-12) << c.Name;
        EXPECT_NEAR(Y().Max, c.Max, 1e-12) << c.Name;
    }
}

TEST_F(clsLineProfileTest, AutoScaleKeepsFixedLimitsAndSkipsHiddenTraces)
{
    plot.Trace(AddTrace({0, 100}))->Hidden = true;
    AddTrace({0.1, 2.9});
    plot.Chart.Axes[LeftAxis].AutoMin = false;
    plot.AutoScale(LeftAxis);
    EXPECT_EQ(Y().Min, 0);
    EXPECT_EQ(Y().Max, 3);
    plot.Chart.Axes[LeftAxis].AutoMax = false;
    plot.SetYAxisMinMax(-3, 3);
    EXPECT_FALSE(plot.AutoScale(LeftAxis));
    EXPECT_EQ(Y().AxisAt, -3);
    EXPECT_EQ(Y().Major, 1); // the hint 6 divides into sixths
}

TEST_F(clsLineProfileTest, TraceRunsThroughItsPointsAndGapsFallToTheBottom)
{
    AddTrace({0, 1, NoData, 0.5, 1});
    plot.SetYAxisMinMax(0, 1);
    const auto calls = Redraw();
    const DeviceRect area = plot.Chart.PlotArea();
    ASSERT_EQ(calls.size(), 1u);
    const auto& points = calls[0].Points;
    ASSERT_EQ(points.size(), 5u);
    EXPECT_EQ(points[0], (DevicePoint{area.Left, area.Bottom - 1}));
    EXPECT_EQ(points[1].Y, area.Top);
    EXPECT_EQ(points[2].Y, area.Bottom - 1);
    EXPECT_NEAR(points[3].Y, (area.Top + area.Bottom - 1) / 2.0, 0.5);
    EXPECT_EQ(points[4], (DevicePoint{area.Right - 1, area.Top}));
    for (const auto axis : {BottomAxis, LeftAxis}) {
        const int at = axis == BottomAxis ? points[3].X : points[3].Y;
        EXPECT_NEAR(plot.GetCoord(axis, at).value(), 0.5, 0.01);
    }
}

TEST_F(clsLineProfileTest, FarPointsStayWithinReach)
{
    AddTrace({0, 1e30, -1e30, 1});
    plot.SetYAxisMinMax(0, 1);
    const auto calls = Redraw();
    ASSERT_EQ(calls.size(), 1u);
    for (const DevicePoint& point : calls[0].Points)
        EXPECT_LE(std::abs(point.Y), 32000);
}

TEST_F(clsLineProfileTest, DegenerateAxesAndHiddenTracesShowNothing)
{
    const int id = AddTrace({1, 2});
    EXPECT_TRUE(Redraw().empty());
    plot.SetYAxisMinMax(0, 2);
    EXPECT_EQ(Redraw().size(), 1u);
    plot.Chart.Axes[LeftAxis].Log = true;
    EXPECT_TRUE(Redraw().empty());
    plot.SetYAxisMinMax(1, 100);
    EXPECT_EQ(Redraw().size(), 1u);
    plot.Trace(id)->Hidden = true;
    EXPECT_TRUE(Redraw().empty());
}

TEST_F(clsLineProfileTest, LogarithmicTraceKeepsItsFloor)
{
    AddTrace({-5, 10, 100});
    plot.Chart.Axes[LeftAxis].Log = true;
    plot.SetYAxisMinMax(1, 100);
    const auto points = Redraw().at(0).Points;
    const DeviceRect area = plot.Chart.PlotArea();
    EXPECT_EQ(points[0].Y, area.Bottom - 1);
    EXPECT_NEAR(points[1].Y, (area.Top + area.Bottom - 1) / 2.0, 0.5);
    EXPECT_NEAR(plot.GetCoord(LeftAxis, points[1].Y).value(), 10, 0.2);
}

TEST_F(clsLineProfileTest, MarkersHaveTheirShapes)
{
    const struct {
        MarkerType Marker;
        int Size;
        Kind What;
        std::vector<DevicePoint> Corners; // about the point
        DeviceRect Box;
    } cases[] = {
        {MarkerType::Square, 10, Kind::Polygon, {{-5, -5}, {4, -5}, {4, 4}, {-5, 4}}, {}},
        {MarkerType::Circle, 11, Kind::Ellipse, {}, {-5, -5, 6, 6}},
        {MarkerType::Triangle, 10, Kind::Polygon, {{0, -6}, {4, 3}, {-5, 3}}, {}},
        {MarkerType::Diamond, 10, Kind::Polygon, {{0, 4}, {4, 0}, {0, -5}, {-5, 0}}, {}},
        {MarkerType::Plus, 10, Kind::Fill, {}, {-5, -5, 5, 5}},
        {MarkerType::Pixel, 10, Kind::Fill, {}, {0, 0, 1, 1}},
    };
    const Color line{10, 20, 30}, fill{200, 100, 0};
    ProfileTrace& trace = *plot.Trace(AddTrace({0.5, 0.5}));
    plot.SetYAxisMinMax(0, 1);
    trace.LineStyle = PenStyle::None;
    trace.MarkerFilled = true;
    trace.MarkerLineColor = line;
    trace.MarkerFillColor = fill;
    for (const auto& c : cases) {
        trace.Marker = c.Marker;
        trace.MarkerSize = c.Size;
        const DeviceCall call = Redraw().at(0);
        const DeviceRect area = plot.Chart.PlotArea();
        const int x = area.Left, y = RoundToLong(area.Bottom - 1 - (area.Height() - 1) / 2.0);
        EXPECT_EQ(call.What, c.What);
        EXPECT_EQ(call.With, (Pen{line}));
        EXPECT_EQ(call.Brush, fill);
        ASSERT_EQ(call.Points.size(), c.Corners.size());
        for (std::size_t i = 0; i < c.Corners.size(); ++i)
            EXPECT_EQ(call.Points[i], (DevicePoint{x + c.Corners[i].X, y + c.Corners[i].Y}));
        const DeviceRect box{x + c.Box.Left, y + c.Box.Top, x + c.Box.Right, y + c.Box.Bottom};
        EXPECT_TRUE(!c.Corners.empty() || call.Box == box);
    }
}

TEST_F(clsLineProfileTest, DeletedTraceLeavesTheOthersWhatTheyAre)
{
    AddTrace({0, 0, 0});
    const int middle = AddTrace({0.1, 0.1});
    AddTrace({1, 0, 1, 0});
    plot.SetYAxisMinMax(0, 1);
    const auto before = Redraw();
    plot.DeleteTrace(middle);
    const auto after = Redraw();
    ASSERT_EQ(after.size(), 2u);
    EXPECT_EQ(after[0].Points, before[0].Points);
    EXPECT_EQ(after[1].Points, before[2].Points);
}

TEST_F(clsLineProfileTest, TracesHaveLimits)
{
    EXPECT_EQ(plot.CreateTrace(0), 0);
    EXPECT_EQ(plot.CreateTrace(-1), 0);
    for (int id = 1; id <= 128; ++id)
        EXPECT_EQ(plot.CreateTrace(1), id);
    EXPECT_EQ(plot.CreateTrace(1), 0);
    plot.PopulateTrace(129, {}, {});
    plot.DeleteTrace(0);
    EXPECT_EQ(plot.NumTraces(), 128);
    plot.PopulateTrace(1, std::array{1.0, 2.0}, std::array{3.0, 4.0});
    EXPECT_EQ(plot.Trace(1)->NumPoints, 1);
}

TEST_F(clsLineProfileTest, NewLineColorIsTheLeastUsedAndNeverTheBackground)
{
    for (int round = 0; round < 2; ++round)
        for (int color = 0; color <= 16; ++color) {
            if (color == clsLineProfile::BackgroundColor)
                continue;
            EXPECT_EQ(plot.GetNewLineColor(), color);
            plot.Trace(plot.CreateTrace(1))->LineColor = color;
        }
}

} // namespace
} // namespace morvane
