// The wavefront on a regular grid or along a line, for views and exports.
#pragma once
#include <span>
#include <string>

#include "analysis/Pupil.h"
#include "analysis/Zernike.h"
#include "geometry/clsMask.h"

namespace morvane {

// A map or profile cell outside the mask.
inline constexpr double NoData = static_cast<double>(-3e38f);

enum class MapContent {
    Wavefront,
    Fringes, // 1 - cos(2 pi w): a synthetic fringe, 0 at its dark center to 2
};

// Fills Map, Width * Height cells row by row, with the square around the unit circle. Nothing
// happens without a mask or pupil, or below 2 by 2.
void EvalSurface(const ZernikeSet& Coefficients, const MaskView& Mask, const Pupil& Frame,
    int Width, int Height, MapContent Content, std::span<double> Map);

// X from -1 to 1 along a line through the pupil center at Angle (radians, clockwise on the
// screen), Y the wavefront there. Both have the number of points of the profile, at least 2.
void EvalProfile(const ZernikeSet& Coefficients, const MaskView& Mask, const Pupil& Frame,
    double Angle, std::span<double> X, std::span<double> Y);

// 100 lines of 100 finite numbers separated by commas, top row first; NoData is written as 0.
std::string MapText(std::span<const double> Map, int Width);
// 36 lines of one coefficient each, with at most 15 significant digits.
std::string ZernikesText(const ZernikeSet& Coefficients);

} // namespace morvane
