// How the report's page falls into panes: rows of one pane over the whole width or of two halves.
// The same on the paper and in the miniature of the page setup.
#pragma once
#include <array>
#include <span>
#include <vector>

#include "platform/Device.h"

namespace morvane {

inline constexpr int MaxPanes = 6;

struct PaneRow {
    double Top; // fraction of the page's height; the row ends where the next one begins
    int Panes; // side by side
};
inline constexpr std::array OnePane{PaneRow{0, 1}};
inline constexpr std::array TwoPanes{PaneRow{0, 1}, PaneRow{3.0 / 5, 1}};
inline constexpr std::array ThreePanes{PaneRow{0, 1}, PaneRow{3.0 / 5, 2}};
inline constexpr std::array FourPanes{PaneRow{0, 2}, PaneRow{1.0 / 2, 2}};
inline constexpr std::array FivePanes{PaneRow{0, 1}, PaneRow{2.0 / 5, 2}, PaneRow{7.0 / 10, 2}};
inline constexpr std::array SixPanes{PaneRow{0, 2}, PaneRow{1.0 / 3, 2}, PaneRow{2.0 / 3, 2}};
inline constexpr std::array<std::span<const PaneRow>, MaxPanes> PaneRows{
    OnePane, TwoPanes, ThreePanes, FourPanes, FivePanes, SixPanes};

// Both ends are to be drawn.
struct PageLine {
    DevicePoint From, To;
    friend bool operator==(const PageLine&, const PageLine&) = default;
};

struct PaneLayout {
    std::vector<DeviceRect> Panes; // row by row; the line between two belongs to both
    std::vector<PageLine> Lines; // between panes
};

// Without panes if there are not 1 to MaxPanes.
PaneLayout LayOutPanes(const DeviceRect& Page, int NumPanes);

// The largest of a picture's proportions in the middle of Box; empty if either has no extent.
DeviceRect FitInto(const DeviceRect& Box, DeviceSize Picture);

} // namespace morvane
