// The 36 wavefront terms: the fringe set without piston, each 1 at the edge of the unit circle, in
// pupil coordinates with y down as in the image. Coefficients are in the unit of the heights.
#pragma once
#include <array>
#include <span>

namespace morvane {

inline constexpr int NumZernikes = 36;

// Coefficient or value of term n at [n - 1].
using ZernikeSet = std::array<double, NumZernikes>;

// The value of each term at a pupil position.
ZernikeSet EvalZernikeTerms(double X, double Y);
double EvalZernikeWithTerms(const ZernikeSet& Terms, const ZernikeSet& Coefficients);
// Sum of coefficient * term.
double EvalZernike(double X, double Y, const ZernikeSet& Coefficients);

// Which aberrations are taken out of the wavefront: terms 1, 2; 3; 4, 5; 6, 7; 8.
struct RemoveFlags {
    bool Tilt = false, Focus = false, Astigmatism = false, Coma = false, Spherical = false;
    friend bool operator==(const RemoveFlags&, const RemoveFlags&) = default;
};
void Remove(const RemoveFlags& Flags, ZernikeSet& Coefficients);

} // namespace morvane
