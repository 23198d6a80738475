// The one form of image data that analysis and display see.
#pragma once
#include <cstdint>
#include <vector>

#include "geometry/modRaster.h"

namespace morvane {

// Intensities, one byte a pixel, 0 black, rows top-down without padding. A blank document has one
// byte and no size.
struct ImageBuffer {
    std::vector<std::uint8_t> Pixels = std::vector<std::uint8_t>(1);
    RasterSize Size;
};

} // namespace morvane
