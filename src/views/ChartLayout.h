// Where the parts of a chart lie: room for the titles and labels first, the plot area in what is
// left. Texts that do not fit are shortened, labels that would touch each other are left out.
#pragma once
#include <array>
#include <string>
#include <vector>

#include "views/ChartAxis.h"

namespace morvane {

inline constexpr int BottomAxis = 0, LeftAxis = 1, TopAxis = 2, RightAxis = 3;
inline constexpr int ChartTitleText = 4; // where a text is meant, beside those of the axes

constexpr bool IsVertical(int Axis)
{
    return Axis == LeftAxis || Axis == RightAxis;
}

// A text made ready to be drawn; empty if it has no room.
struct PlacedText {
    std::string Text;
    Font In;
    DevicePoint At;
    TextAlign Align;
    Color Ink;
    DeviceRect Box; // of a label
};
void Draw(Device& On, const PlacedText& Text);

// Laid out once for each size, so that a paint only draws.
struct ChartLayout {
    DeviceRect Plot;
    PlacedText ChartTitle;
    std::array<PlacedText, 4> Titles;
    std::array<std::vector<PlacedText>, 4> Labels;

    bool HasPlot() const { return Plot.Width() > 0 && Plot.Height() > 0; }
};

AxisPixels AlongPlot(int Axis, const DeviceRect& Plot);

ChartLayout LayOut(Device& On, const DeviceRect& Box, bool KeepSquare,
    const std::array<ChartAxis, 4>& Axes, const ChartText& ChartTitle, TickLengths Ticks);

} // namespace morvane
