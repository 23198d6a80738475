// The interferograms that the road's figures are measured on, made once and kept.
#pragma once
#include <cstdint>
#include <vector>

#include "geometry/clsMask.h"
#include "geometry/clsShape.h"
#include "tools/InterferogramGenerator.h"

namespace morvane {

struct BenchPicture {
    RasterSize Size;
    int NumFringes = 0;
    std::vector<std::uint8_t> Pixels;
    std::vector<std::uint8_t> Jpeg; // colour, quality 90
    clsShape Aperture{ShapeRole::Aperture};
    clsMask Mask; // of the aperture
};

// 4096 x 4096 with 120 vertical fringes, 1024 x 1024 with 30; a faint noise, as a camera's.
BenchPicture& LargePicture();
BenchPicture& SmallPicture();

// The reference: the library alone decodes File into Target, 3 bytes a pixel, rows top-down.
// False if File is no JPEG of the size of Target.
bool DecodeJpeg(const std::vector<std::uint8_t>& File, std::vector<std::uint8_t>& Target);

} // namespace morvane
