#include "views/clsChart2D.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "RecordingDevice.h"
#include "analysis/ModMathLib.h"

namespace morvane {
namespace {

using Kind = DeviceCall::Kind;

void SetRange(ChartAxis& axis, double min, double max)
{
    const int hint = AutoScaleRange(min, max, axis.Log, true, true, NoPoint);
    axis.SetMinMax(min, max, min);
    axis.AutoScaleMajor(min, max, hint);
    axis.AutoScaleMinor();
    axis.CreateTickLabels();
}

clsChart2D ProfileChart(double min, double max)
{
    clsChart2D chart;
    chart.Axes[BottomAxis].SetMinMax(-1, 1, -1);
    chart.Axes[BottomAxis].AutoScaleMajor(-1, 1, 0);
    chart.Axes[BottomAxis].AutoScaleMinor();
    chart.Axes[BottomAxis].CreateTickLabels();
    SetRange(chart.Axes[LeftAxis], min, max);
    chart.SetTitle(BottomAxis, "Profile along 45 degs");
    chart.SetTitle(LeftAxis, "Micrometers");
    return chart;
}

RecordingDevice DeviceOf(int pixelsPerInch)
{
    RecordingDevice device;
    device.Shape.PixelsPerInchX = device.Shape.PixelsPerInchY = pixelsPerInch;
    return device;
}

std::vector<DeviceCall> Redraw(clsChart2D& chart, const DeviceRect& box, int pixelsPerInch = 96)
{
    RecordingDevice device = DeviceOf(pixelsPerInch);
    chart.CreateChartLimits(device, box);
    chart.ChartRedraw(device);
    return device.Calls;
}

std::vector<DeviceCall> Texts(std::vector<DeviceCall> calls)
{
    std::erase_if(calls, [](const DeviceCall& call) { return call.What != Kind::Text; });
    return calls;
}

bool IsWithin(DevicePoint point, const DeviceRect& box)
{
    return point.X >= box.Left && point.X <= box.Right && point.Y >= box.Top
        && point.Y <= box.Bottom;
}

// Of the line that the font reserves, letters leave a sixth free on either side.
bool InksMeet(const DeviceCall& one, const DeviceCall& other)
{
    const auto ink = [](const DeviceCall& text) {
        DeviceRect box = text.Box;
        const bool isLevel = text.In.Rotation == TextRotation::Horizontal
            || text.In.Rotation == TextRotation::UpsideDown;
        (isLevel ? box.Top : box.Left) += text.In.Height / 5;
        (isLevel ? box.Bottom : box.Right) -= text.In.Height / 5;
        return box;
    };
    const DeviceRect a = ink(one), b = ink(other);
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

void ExpectOrder(const std::vector<DeviceCall>& calls, const DeviceRect& box,
    const DeviceRect& plot, const std::string& name)
{
    const std::vector<DeviceCall> texts = Texts(calls);
    for (const DeviceCall& call : calls)
        for (const DevicePoint& point : call.Points)
            EXPECT_TRUE(IsWithin(point, box)) << name;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const DeviceRect& text = texts[i].Box;
        EXPECT_TRUE(
            IsWithin({text.Left, text.Top}, box) && IsWithin({text.Right, text.Bottom}, box))
            << name << ": " << texts[i].Text;
        EXPECT_FALSE(text.Left < plot.Right && plot.Left < text.Right && text.Top < plot.Bottom
            && plot.Top < text.Bottom)
            << name << ": " << texts[i].Text << " in the plot area";
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(InksMeet(texts[i], texts[j]))
                << name << ": " << texts[i].Text << " and " << texts[j].Text;
    }
}

struct Paper {
    DeviceRect Box;
    int PixelsPerInch;
    double TickScale;
};
const Paper papers[] = {
    {{0, 0, 119, 90}, 96, 1},
    {{0, 0, 319, 240}, 96, 1},
    {{10, 20, 800, 140}, 96, 1},
    {{0, 0, 150, 700}, 96, 1},
    {{0, 0, 1599, 1200}, 192, 2},
    {{300, 300, 9600, 6800}, 1200, 7.8},
    {{300, 300, 3000, 2500}, 1200, 7.8},
};

TEST(clsChart2DLayout, NothingOverlapsOrLeavesTheBox)
{
    for (const Paper& paper : papers)
        for (const double low : {-12345.0, -0.02, 0.0, 1e-7, 3.3})
            for (int i = 0; i < 40; ++i) {
                const double high = low + 1e-5 * std::pow(2, i);
                clsChart2D chart = ProfileChart(low, high);
                chart.SetTickMarkLengths(paper.TickScale);
                chart.SetTitle(ChartTitleText, i % 2 == 0 ? "" : "A title of the whole chart");
                const auto calls = Redraw(chart, paper.Box, paper.PixelsPerInch);
                ExpectOrder(calls, paper.Box, chart.PlotArea(),
                    std::to_string(paper.Box.Width()) + ", " + std::to_string(low) + " to "
                        + std::to_string(high));
            }
}

TEST(clsChart2DLayout, FourAxesInEveryRotationKeepApart)
{
    for (const Paper& paper : papers)
        for (const TickMarkStyle style : {TickMarkStyle::Outside, TickMarkStyle::Inside})
            for (int rotation = 1; rotation <= 4; ++rotation) {
                clsChart2D chart = ProfileChart(-12.3, 18.9);
                chart.SetTickMarkLengths(paper.TickScale);
                const ChartText rightTitle = chart.Axes[RightAxis].Title;
                chart.Axes[TopAxis] = chart.Axes[BottomAxis];
                chart.Axes[RightAxis] = chart.Axes[LeftAxis];
                chart.Axes[RightAxis].Title.Rotation = rightTitle.Rotation;
                for (ChartAxis& axis : chart.Axes) {
                    axis.LabelText.Rotation = static_cast<TextRotation>(rotation);
                    axis.MajorTicks = axis.MinorTicks = style;
                }
                const auto calls = Redraw(chart, paper.Box, paper.PixelsPerInch);
                ExpectOrder(calls, paper.Box, chart.PlotArea(),
                    std::to_string(paper.Box.Width()) + ", rotation " + std::to_string(rotation));
            }
}

TEST(clsChart2DLayout, SmallestWindowStillTellsTheRange)
{
    clsChart2D chart = ProfileChart(-0.02, 0.31);
    const auto texts = Texts(Redraw(chart, {0, 0, 119, 90}));
    EXPECT_GT(chart.PlotArea().Width(), 40);
    EXPECT_GT(chart.PlotArea().Height(), 30);
    const auto shows = [&texts](std::string_view text) {
        return std::ranges::any_of(
            texts, [&](const DeviceCall& call) { return call.Text == text; });
    };
    EXPECT_TRUE(shows("-0.04"));
    EXPECT_TRUE(shows("0.36"));
    EXPECT_TRUE(shows("-1"));
    EXPECT_TRUE(shows("1"));
    EXPECT_TRUE(shows("Profile along 4..."));
}

TEST(clsChart2DLayout, BothEndsAndWhatHasRoomBetweenAreLabelled)
{
    // Labels of 13 pixels; the last tick is no multiple of every step.
    const struct {
        int Height;
        std::vector<std::string> Labels;
    } cases[] = {
        {300, {"0", "0.2", "0.4", "0.6", "0.8", "1"}},
        {105, {"0", "0.4", "1"}},
        {75, {"0", "1"}},
    };
    for (const auto& c : cases) {
        clsChart2D chart = ProfileChart(0, 1);
        std::vector<std::string> labels;
        for (const DeviceCall& call : Texts(Redraw(chart, {0, 0, 600, c.Height})))
            if (call.Align.Across == TextAcross::Right
                && call.In.Rotation == TextRotation::Horizontal)
                labels.push_back(call.Text);
        EXPECT_EQ(labels, c.Labels) << c.Height;
    }
}

TEST(clsChart2DLayout, MarginsHoldTitleLabelsAndTicks)
{
    // Lines of the fonts: labels of 8 points 13 pixels, titles of 10 points 15; 5 a letter.
    clsChart2D chart = ProfileChart(0, 2); // "0", "0.5", "1", "1.5", "2"
    chart.SetTitle(ChartTitleText, "Title");
    Redraw(chart, {0, 0, 400, 300});
    const int left = 15 + 3 * 11 / 2 + 7 + 2, bottom = 15 + 13 + 7, top = 4 * 15 / 3 + 7 + 2;
    EXPECT_EQ(chart.PlotArea(), (DeviceRect{left, top, 400 - 7 - 1, 300 - bottom - 1}));
}

TEST(clsChart2DLayout, KeepSquareCentersTheShorterSide)
{
    for (const DeviceRect box : {DeviceRect{0, 0, 600, 300}, DeviceRect{0, 0, 300, 600}}) {
        RecordingDevice device;
        clsChart2D chart = ProfileChart(0, 2);
        chart.CreateChartLimits(device, box);
        const DeviceRect whole = chart.PlotArea();
        chart.CreateChartLimits(device, box, true);
        const DeviceRect plot = chart.PlotArea();
        EXPECT_EQ(plot.Width(), plot.Height());
        EXPECT_EQ(plot.Width(), std::min(whole.Width(), whole.Height()));
        EXPECT_NEAR(plot.Left - whole.Left, whole.Right - plot.Right, 1);
        EXPECT_NEAR(plot.Top - whole.Top, whole.Bottom - plot.Bottom, 1);
    }
}

TEST(clsChart2DLayout, WithoutRoomNothingIsDrawn)
{
    clsChart2D chart = ProfileChart(0, 2);
    EXPECT_TRUE(Redraw(chart, {0, 0, 60, 30}).empty());
}

TEST(clsChart2DLabels, StandBesideTheirTicks)
{
    for (int axis = BottomAxis; axis <= RightAxis; ++axis)
        for (int rotation = 1; rotation <= 4; ++rotation) {
            clsChart2D chart;
            for (ChartAxis& other : chart.Axes)
                other.Visible = false;
            ChartAxis& shown = chart.Axes[static_cast<std::size_t>(axis)];
            shown.Visible = true;
            shown.LabelText.Rotation = static_cast<TextRotation>(rotation);
            SetRange(shown, 0, 2);
            const auto texts = Texts(Redraw(chart, {0, 0, 400, 300}));
            const DeviceRect plot = chart.PlotArea();
            const TickRow ticks = MajorTicks(shown, chart.PixelsOf(axis), 4);
            ASSERT_EQ(texts.size(), 5u);
            for (int i = 0; i < 5; ++i) {
                const DeviceRect box = texts[static_cast<std::size_t>(i)].Box;
                const int twiceMiddle =
                    IsVertical(axis) ? box.Top + box.Bottom : box.Left + box.Right;
                EXPECT_NEAR(twiceMiddle / 2, ticks.At(i), 1) << axis << ' ' << rotation;
                const int gaps[] = {box.Top - plot.Bottom, plot.Left - 1 - box.Right,
                    plot.Top - 1 - box.Bottom, box.Left - plot.Right - 1};
                EXPECT_EQ(gaps[axis], 7) << axis << ' ' << rotation;
            }
        }
}

std::vector<std::vector<DevicePoint>> Lines(const std::vector<DeviceCall>& calls)
{
    std::vector<std::vector<DevicePoint>> lines;
    for (const DeviceCall& call : calls)
        if (call.What == Kind::Polyline)
            lines.push_back(call.Points);
    return lines;
}

// A chart whose only axis has ticks of one style at its ends, and no line.
clsChart2D EndTicks(int axis, TickMarkStyle style)
{
    clsChart2D chart;
    for (ChartAxis& other : chart.Axes)
        other.Visible = false;
    chart.DrawFrame = false;
    ChartAxis& shown = chart.Axes[static_cast<std::size_t>(axis)];
    shown.Visible = true;
    shown.MajorTicks = style;
    shown.MinorTicks = TickMarkStyle::None;
    shown.SetMinMax(0, 1, 0);
    shown.Major = 1;
    shown.CreateTickLabels();
    return chart;
}

TEST(clsChart2DTicks, RunInwardsOrOutwardsFromTheirEdge)
{
    for (int axis = BottomAxis; axis <= RightAxis; ++axis)
        for (const TickMarkStyle style :
            {TickMarkStyle::Inside, TickMarkStyle::Outside, TickMarkStyle::Both}) {
            clsChart2D chart = EndTicks(axis, style);
            const auto lines = Lines(Redraw(chart, {0, 0, 400, 300}));
            const DeviceRect plot = chart.PlotArea();
            ASSERT_EQ(lines.size(), 2u);
            const int edges[] = {plot.Bottom - 1, plot.Left, plot.Top, plot.Right - 1};
            const int outward = axis == BottomAxis || axis == RightAxis ? 1 : -1;
            const int from = style == TickMarkStyle::Both ? -7 : 0;
            const int to = style == TickMarkStyle::Inside ? -7 : 7;
            for (const auto& line : lines) {
                const auto across = [&](int i) {
                    const auto [x, y] = line[static_cast<std::size_t>(i)];
                    return (IsVertical(axis) ? x : y) - edges[axis];
                };
                EXPECT_EQ(across(0), from * outward) << axis;
                EXPECT_EQ(across(1), to * outward) << axis;
            }
        }
}

TEST(clsChart2DAxisLine, StandsAtAxisAtWithinThePlotArea)
{
    const struct {
        double AxisAt;
        int At; // of a plot area of 101 pixels over 0 to 10
    } cases[] = {{0, 0}, {5, 50}, {10, 100}, {-3, 0}, {99, 100}};
    for (const auto& c : cases) {
        clsChart2D chart;
        chart.DrawFrame = false;
        chart.Axes[BottomAxis].Visible = false;
        for (ChartAxis& axis : chart.Axes)
            axis.MajorTicks = axis.MinorTicks = TickMarkStyle::None;
        chart.Axes[BottomAxis].SetMinMax(0, 10, c.AxisAt);
        const auto lines = Lines(Redraw(chart, {0, 0, 104, 50}));
        const DeviceRect plot = chart.PlotArea();
        ASSERT_EQ(plot.Width(), 101);
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_EQ(lines[0][0], (DevicePoint{plot.Left + c.At, plot.Top}));
        EXPECT_EQ(lines[0][1], (DevicePoint{plot.Left + c.At, plot.Bottom}));
    }
}

TEST(clsChart2DGrid, LinesLeaveTheFrameAlone)
{
    clsChart2D chart = ProfileChart(0, 2);
    const Color grey{200, 200, 200}, light{230, 230, 230};
    chart.GridX.Major = {grey, 1, PenStyle::Dot};
    chart.GridY.Minor = {light};
    const auto calls = Redraw(chart, {0, 0, 400, 300});
    const DeviceRect plot = chart.PlotArea();
    int numMajor = 0, numMinor = 0;
    for (const DeviceCall& call : calls)
        if (call.With.Ink == grey) {
            ++numMajor;
            EXPECT_EQ(call.Points[0].Y, plot.Top + 1);
            EXPECT_EQ(call.Points[1].Y, plot.Bottom - 1);
            EXPECT_TRUE(call.Points[0].X > plot.Left && call.Points[0].X < plot.Right - 1);
        } else if (call.With.Ink == light) {
            ++numMinor;
            EXPECT_EQ(call.Points[0].X, plot.Left + 1);
        }
    EXPECT_EQ(numMajor, 4); // of 6 ticks along x, less both ends
    EXPECT_EQ(numMinor, 4 * 4); // between 5 ticks along y
}

} // namespace
} // namespace morvane
