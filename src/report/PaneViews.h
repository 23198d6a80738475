// What a pane of the report can show. The numbers are those that settings keep.
#pragma once
#include <array>

namespace morvane {

enum class PaneView {
    None = 0,
    Aberrations = 1,
    ContourPlot = 2,
    Interferogram = 3,
    LineProfile = 4,
    Logo = 5,
    SurfacePlot = 6,
    SyntheticFringes = 7,
    Zernikes = 8,
    GridResults = 9
};

struct PaneChoice {
    PaneView View;
    const char* Name;
};
inline constexpr std::array PaneChoices{PaneChoice{PaneView::None, "None"},
    PaneChoice{PaneView::Aberrations, "Aberrations"},
    PaneChoice{PaneView::ContourPlot, "Contour Plot"},
    PaneChoice{PaneView::GridResults, "Grid Results"},
    PaneChoice{PaneView::Interferogram, "Interferogram"},
    PaneChoice{PaneView::LineProfile, "Line Profile"}, PaneChoice{PaneView::Logo, "Logo"},
    PaneChoice{PaneView::SurfacePlot, "Surface Plot"},
    PaneChoice{PaneView::SyntheticFringes, "Synthetic Fringes"},
    PaneChoice{PaneView::Zernikes, "Zernikes"}};

} // namespace morvane
