// JPEG files, as 24-bit pictures: grey, colour, and the four inks of print.
#pragma once
#include <cstdint>
#include <optional>
#include <span>

#include "document/Bitmap.h"

namespace morvane {

bool IsJpeg(std::span<const std::uint8_t> File);

// Nothing if the file is damaged, cut, or beyond the limits.
std::optional<Bitmap> DecodeJpeg(std::span<const std::uint8_t> File);

} // namespace morvane
