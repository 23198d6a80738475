// The user's preferences that documents copy at their creation and take up again at an analysis.
#pragma once
#include <array>

#include "document/TextFont.h"
#include "geometry/modTrace.h"

namespace morvane {

struct Preferences {
    bool HogWindows = true;   // one common set of output views, not one for each document
    bool AutoStretch = true;  // spread the display palette over the picture's range
    bool RedDisplay = true;   // red palette
    FringeDensity AutoTraceFringeDensity = FringeDensity::Normal;

    int SurfaceGridSize = 30; // cells of the surface map in each axis
    int SFringeSize = 150;    // cells of the synthetic fringe map in each axis
    int LineSize = 100;       // points of the line profile
    int LineAngle = 0;        // degrees

    bool AberrationsVisible = true, ZernikesVisible = false;
    TextFont ScreenText;
};

} // namespace morvane
