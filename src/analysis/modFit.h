// The least-squares fit of Zernike terms to fringe centers: normal equations in covariance form,
// so that any constant added to the heights is absorbed, solved by a square-root-free triangular
// factorisation in the order of the terms.
#pragma once
#include <span>

#include "analysis/Pupil.h"
#include "analysis/Zernike.h"
#include "geometry/clsMask.h"

namespace morvane {

// Samples: image position and height, in waves, of each tick.
struct FitSamples {
    std::span<const double> X, Y, Z;
};

// Whether there is anything to fit: at least 4 samples and a mask of at least 2 by 2.
bool CanFit(std::size_t NumSamples, const MaskView& Mask);

// Fits NumZernikeToFit terms to the samples that round to a cell inside Mask, and returns how many
// did. 0 asks for as many terms as the number of samples carries, and a polygon that covers little
// of the circle lowers any number: the number taken is written back. Where the terms are nearly
// dependent, as in a thin aperture, the solution is refined on the residual heights; coefficients
// come out within 1e-9 down to an aperture ten times as long as wide, and up to an obstruction of
// 0.8 of the radius.
//
// Unless CanFit, nothing happens, Coefficients included, and the number given comes back. All
// coefficients are 0 if a term depends on those before it exactly, or if the numbers leave the
// range of double.
int FitFringeCenters(const FitSamples& Samples, const MaskView& Mask, const Pupil& Frame,
    int& NumZernikeToFit, ZernikeSet& Coefficients);

} // namespace morvane
