// Picture files in the depths and packings that the program reads but does not write itself.
#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "geometry/modRaster.h"

namespace morvane {

enum class PictureFormat {
    Bmp1, // black and white, parted at 128
    Bmp4, // 16 grey levels
    Bmp8,
    Bmp16, // 5-5-5: 32 grey levels
    Bmp24,
    Bmp32,
    Rle4, // 16 grey levels, packed
    Rle8,
    JpegGrey,
    JpegColor, // three equal channels
};

// "bmp8", "rle4", "jpeg-grey", ...
std::optional<PictureFormat> PictureFormatByName(std::string_view Name);

// The whole of a file of grey pixels, rows top-down. Quality is the JPEG's, 1 to 100. Empty if the
// encoder fails or the pixels are not as many as Size says.
std::vector<std::uint8_t> EncodePicture(
    std::span<const std::uint8_t> Pixels, RasterSize Size, PictureFormat Format, int Quality = 90);

} // namespace morvane
