// The run lengths of BMP files.
#pragma once
#include <cstdint>
#include <span>

#include "document/Bitmap.h"

namespace morvane {

// Fills the rows of an 8-bit Target, which has its size and is all 0, from the bottom up.
// BitsPerPixel is 4 or 8. What the data skips stays 0. False if the data writes or moves outside
// the picture, or breaks off: it must end with its end mark or with the last pixel.
bool DecodeRle(std::span<const std::uint8_t> Data, int BitsPerPixel, Bitmap& Target);

} // namespace morvane
