// What the optician reads out of a coefficient set: the aberrations with their angles, and the
// figures of merit.
#pragma once
#include <array>
#include <limits>

#include "analysis/Pupil.h"
#include "analysis/Zernike.h"
#include "geometry/clsMask.h"

namespace morvane {

// 1 tilt, 2 its angle, 3 defocus, 4 astigmatism, 5 its angle, 6 coma, 7 its angle, 8 spherical, at
// [n - 1]; magnitudes in the coefficients' unit, angles in degrees.
using WNotation = std::array<double, 8>;
WNotation AToW(const ZernikeSet& Coefficients);

struct FiguresOfMerit {
    double RMS = 0, Strehl = 0, PV = 0; // waves; Strehl 0 to 1
    friend bool operator==(const FiguresOfMerit&, const FiguresOfMerit&) = default;
};
// Of a wavefront that has none; 0 would be a perfect one.
inline constexpr FiguresOfMerit NoFigures{
    std::numeric_limits<double>::quiet_NaN(),
    std::numeric_limits<double>::quiet_NaN(),
    std::numeric_limits<double>::quiet_NaN(),
};

// Samples the wavefront at the nodes of a grid over the pupil's square that fall on inside cells.
// Fewer than two of them give 0 for all three, a wavefront whose squares leave the range of double
// gives NoFigures. Figures keeps its values if the grid is below 2 by 2, there is no mask, or the
// pupil is not defined.
// Strehl = exp(-(2 pi RMS)^2), the extended Marechal approximation (Mahajan 1983).
void EvalAberrations(const ZernikeSet& Coefficients, const MaskView& Mask, const Pupil& Frame,
    int GridWidth, int GridHeight, FiguresOfMerit& Figures);

} // namespace morvane
