// Interferograms with known wavefronts, for tests, samples and measurements. The same recipe gives
// the same picture on every machine: random numbers come from a fixed generator, not from the
// library's distributions.
//
// Heights are in fringe orders, and a dark fringe center lies wherever the wavefront, piston
// included, is a whole number. Pupil coordinates are those of the analysis (Pupil.h).
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/Zernike.h"
#include "geometry/modRaster.h"
#include "geometry/modTrace.h"
#include "tools/Outline.h"

namespace morvane {

struct InterferogramRecipe {
    RasterSize Size{512, 512};
    Outline Aperture = CircleOutline({255.5, 255.5}, {240, 240});
    Outline Obstruction;

    // Carrier: orders gained across the pupil's diameter, to the right and downward. The larger
    // one decides the direction of the fringes.
    double FringesX = 20, FringesY = 0;
    double Piston = 0;
    ZernikeSet Aberrations{};

    double Contrast = 1; // 0 to 1: (bright - dark) / (bright + dark)
    double Vignetting = 0; // 0 to 1: brightness lost at the pupil's edge, by the square of r
    double Background = 0; // grey level outside the aperture and on the obstruction
    double Noise = 0; // standard deviation, grey levels
    int DustSpots = 0; // soft dark spots, anywhere in the picture
    double DustRadius = 4; // of the largest spot, pixels
    std::uint64_t Seed = 1;

    FringeDirection Direction() const;
};

// Grey levels, rows top-down without padding.
std::vector<std::uint8_t> MakeInterferogram(const InterferogramRecipe& Recipe);

// Carrier and aberrations as the fit is to find them, in fringe orders: with the sign of the
// numbering, which counts the fringes from left to right or, horizontal ones, from the top down.
ZernikeSet TrueCoefficients(const InterferogramRecipe& Recipe);

// The number of whole orders that the wavefront takes where the optic is seen.
int CountFringes(const InterferogramRecipe& Recipe);

// JSON that goes beside the picture: "aperture" and "obstruction" with "shape" and "points" (a
// flat list of x, y), "direction", "truth" (36 numbers), "fringes".
std::string SidecarText(const InterferogramRecipe& Recipe);

} // namespace morvane
