// BMP files, those named .rle included: OS/2 and Windows headers, 1, 4, 8, 16, 24 and 32 bits, bit
// fields, run lengths, both row orders.
#pragma once
#include <cstdint>
#include <optional>
#include <span>

#include "document/Bitmap.h"

namespace morvane {

bool IsBmp(std::span<const std::uint8_t> File);

// Nothing if the file is damaged, cut, or beyond the limits.
std::optional<Bitmap> DecodeBmp(std::span<const std::uint8_t> File);

} // namespace morvane
