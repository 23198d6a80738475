// The frame of a chart on any device: title, up to four axes with ticks, labels and titles, grid
// lines. What stands in the plot area is its owner's.
//
// A chart is made ready in this order: limits, AutoScaleMajor and AutoScaleMinor, titles and
// CreateTickLabels of each axis; then CreateChartLimits, again for each new size; then ChartRedraw
// at each paint, which measures nothing. Without room for a plot area nothing is drawn.
#pragma once
#include <array>

#include "views/ChartLayout.h"

namespace morvane {

// None is drawn unless it is given a style.
struct GridPens {
    Pen Major{Black, 1, PenStyle::None}, Minor{Black, 1, PenStyle::None};
};

class clsChart2D {
public:
    clsChart2D();

    std::array<ChartAxis, 4> Axes; // by the constants of the axes
    ChartText ChartTitle;
    GridPens GridX, GridY; // of the axis along x and along y that shows
    bool DrawFrame = true;
    bool FillPlot = false;
    Color PlotColour = White;

    // Those of the screen times Scale: the density of a window, the DiagonalRatio of a page.
    void SetTickMarkLengths(double Scale = 1);
    // ChartTitleText for the title of the chart.
    void SetTitle(int Axis, std::string Text);

    // Lays the chart out within the box. With KeepSquare the plot area is a square.
    void CreateChartLimits(Device& On, const DeviceRect& Box, bool KeepSquare = false);
    DeviceRect PlotArea() const { return m_layout.Plot; }
    // From the pixel of the axis's Min to that of its Max.
    AxisPixels PixelsOf(int Axis) const { return AlongPlot(Axis, m_layout.Plot); }

    void ChartRedraw(Device& On) const;

private:
    const ChartAxis& AxisOf(int Axis) const { return Axes[static_cast<std::size_t>(Axis)]; }
    void DrawPlotFrame(Device& On) const;
    void DrawAxisLine(Device& On, int Axis) const;
    void DrawTickMarks(Device& On, int Axis) const;
    void DrawGridLines(Device& On, int Axis, const GridPens& Pens) const;
    void DrawGridLine(Device& On, int Axis, int At) const;

    TickLengths m_ticks;
    ChartLayout m_layout;
};

} // namespace morvane
