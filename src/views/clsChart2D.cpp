#include "views/clsChart2D.h"

#include <algorithm>
#include <utility>

#include "platform/Numbers.h"

namespace morvane {
namespace {

// The pixels of a tick across its axis, from the one of the two to before the other.
std::pair<int, int> TickSpan(int axis, const DeviceRect& plot, TickMarkStyle style, int length)
{
    const bool isFar = axis == BottomAxis || axis == RightAxis;
    const int edge = axis == BottomAxis ? plot.Bottom - 1
        : axis == RightAxis             ? plot.Right - 1
        : axis == LeftAxis              ? plot.Left
                                        : plot.Top;
    const int outward = isFar ? length : -length;
    switch (style) {
    case TickMarkStyle::None:
        return {edge, edge};
    case TickMarkStyle::Inside:
        return {edge, edge - outward};
    case TickMarkStyle::Outside:
        return {edge, edge + outward};
    case TickMarkStyle::Both:
        return {edge - outward, edge + outward};
    }
    return {edge, edge};
}

void DrawTick(Device& on, int axis, std::pair<int, int> span, int at)
{
    const auto [from, to] = span;
    if (IsVertical(axis))
        on.DrawPolyline(std::array{DevicePoint{from, at}, DevicePoint{to, at}});
    else
        on.DrawPolyline(std::array{DevicePoint{at, from}, DevicePoint{at, to}});
}

} // namespace

clsChart2D::clsChart2D()
{
    Axes[TopAxis].Visible = Axes[RightAxis].Visible = false;
    Axes[LeftAxis].Title.Rotation = TextRotation::Up;
    Axes[RightAxis].Title.Rotation = TextRotation::Down;
}

void clsChart2D::SetTickMarkLengths(double Scale)
{
    const TickLengths normal;
    m_ticks = {RoundToLong(Scale * normal.Major), RoundToLong(Scale * normal.Minor)};
}

void clsChart2D::SetTitle(int Axis, std::string Text)
{
    if (Axis == ChartTitleText)
        ChartTitle.Text = std::move(Text);
    else if (Axis >= BottomAxis && Axis <= RightAxis)
        Axes[static_cast<std::size_t>(Axis)].Title.Text = std::move(Text);
}

void clsChart2D::CreateChartLimits(Device& On, const DeviceRect& Box, bool KeepSquare)
{
    if (Box.Width() > 0 && Box.Height() > 0)
        m_layout = LayOut(On, Box, KeepSquare, Axes, ChartTitle, m_ticks);
}

void clsChart2D::ChartRedraw(Device& On) const
{
    if (!m_layout.HasPlot())
        return;
    if (FillPlot)
        On.FillRectangle(m_layout.Plot, PlotColour);
    if (DrawFrame)
        DrawPlotFrame(On);
    Draw(On, m_layout.ChartTitle);
    for (int axis = BottomAxis; axis <= RightAxis; ++axis) {
        if (!AxisOf(axis).Visible)
            continue;
        DrawAxisLine(On, axis);
        DrawTickMarks(On, axis);
        for (const PlacedText& label : m_layout.Labels[static_cast<std::size_t>(axis)])
            Draw(On, label);
        Draw(On, m_layout.Titles[static_cast<std::size_t>(axis)]);
    }
    DrawGridLines(On, AxisOf(BottomAxis).Visible ? BottomAxis : TopAxis, GridX);
    DrawGridLines(On, AxisOf(LeftAxis).Visible ? LeftAxis : RightAxis, GridY);
}

void clsChart2D::DrawPlotFrame(Device& On) const
{
    const clsPenScope pen(On, {});
    const auto [left, top, right, bottom] = m_layout.Plot;
    On.DrawPolyline(std::array{DevicePoint{left, top}, DevicePoint{right - 1, top},
        DevicePoint{right - 1, bottom - 1}, DevicePoint{left, bottom - 1}, DevicePoint{left, top}});
}

// Where the axis across it has its AxisAt.
void clsChart2D::DrawAxisLine(Device& On, int Axis) const
{
    const int partner = IsVertical(Axis)
        ? (Axis == RightAxis && AxisOf(TopAxis).Visible ? TopAxis : BottomAxis)
        : (Axis == TopAxis && AxisOf(RightAxis).Visible ? RightAxis : LeftAxis);
    const ChartAxis& across = AxisOf(partner);
    const auto mapping = AxisMapping::Of(across, PixelsOf(partner));
    if (!mapping || (across.Log && !(across.AxisAt > 0)))
        return;
    const int at = RoundToLong(mapping->ToDevice(across.AxisAt));
    const DeviceRect& plot = m_layout.Plot;
    const clsPenScope pen(On, AxisOf(Axis).AxisPen);
    if (IsVertical(Axis)) {
        const int x = std::clamp(at, plot.Left, plot.Right - 1);
        On.DrawPolyline(std::array{DevicePoint{x, plot.Top}, DevicePoint{x, plot.Bottom}});
    } else {
        const int y = std::clamp(at, plot.Top, plot.Bottom - 1);
        On.DrawPolyline(std::array{DevicePoint{plot.Left, y}, DevicePoint{plot.Right, y}});
    }
}

void clsChart2D::DrawTickMarks(Device& On, int Axis) const
{
    const ChartAxis& axis = AxisOf(Axis);
    const AxisPixels pixels = PixelsOf(Axis);
    if (axis.MajorTicks != TickMarkStyle::None) {
        const clsPenScope pen(On, axis.AxisPen);
        const auto span = TickSpan(Axis, m_layout.Plot, axis.MajorTicks, m_ticks.Major);
        const TickRow majors = MajorTicks(axis, pixels, m_ticks.Minor);
        for (int i = 0; i < majors.Count; ++i)
            DrawTick(On, Axis, span, majors.At(i));
    }
    if (axis.MinorTicks != TickMarkStyle::None) {
        const clsPenScope pen(On, axis.MinorPen);
        const auto span = TickSpan(Axis, m_layout.Plot, axis.MinorTicks, m_ticks.Minor);
        const bool skipMajor = axis.AutoMinor && axis.MajorTicks != TickMarkStyle::None;
        for (const int at : MinorTicks(axis, pixels, m_ticks.Minor, skipMajor))
            DrawTick(On, Axis, span, at);
    }
}

void clsChart2D::DrawGridLines(Device& On, int Axis, const GridPens& Pens) const
{
    const ChartAxis& axis = AxisOf(Axis);
    if (!axis.Visible)
        return;
    const AxisPixels pixels = PixelsOf(Axis);
    if (Pens.Major.Style != PenStyle::None) {
        const clsPenScope pen(On, Pens.Major);
        const TickRow majors = MajorTicks(axis, pixels, m_ticks.Minor);
        for (int i = 1; i < majors.Count; ++i)
            DrawGridLine(On, Axis, majors.At(i));
    }
    if (Pens.Minor.Style != PenStyle::None) {
        const clsPenScope pen(On, Pens.Minor);
        const bool skipMajor = axis.AutoMinor && axis.MajorTicks != TickMarkStyle::None;
        for (const int at : MinorTicks(axis, pixels, m_ticks.Minor, skipMajor))
            DrawGridLine(On, Axis, at);
    }
}

// Across the plot area; the frame is not drawn again.
void clsChart2D::DrawGridLine(Device& On, int Axis, int At) const
{
    const DeviceRect& plot = m_layout.Plot;
    if (IsVertical(Axis) && At > plot.Top && At < plot.Bottom - 1)
        On.DrawPolyline(
            std::array{DevicePoint{plot.Left + 1, At}, DevicePoint{plot.Right - 1, At}});
    else if (!IsVertical(Axis) && At > plot.Left && At < plot.Right - 1)
        On.DrawPolyline(
            std::array{DevicePoint{At, plot.Top + 1}, DevicePoint{At, plot.Bottom - 1}});
}

} // namespace morvane
