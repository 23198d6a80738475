// What the headers of a BMP file say of the picture in it.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "document/Bitmap.h"

namespace morvane {

using ChannelMasks = std::array<std::uint32_t, 3>; // red, green, blue
inline constexpr ChannelMasks FiveBitMasks{0x7C00, 0x3E0, 0x1F}, ByteMasks{0xFF0000, 0xFF00, 0xFF};

enum class BmpEncoding { Plain, Rle };

struct BmpHeader {
    int Width = 0, Height = 0;
    bool IsTopDown = false;
    int BitCount = 0; // 1, 4, 8, 16, 24, 32; 4 or 8 with Rle
    BmpEncoding Encoding = BmpEncoding::Plain;
    ChannelMasks Masks{}; // of 16 and 32 bits
    std::vector<Color> Palette; // of up to 8 bits: the entries that the file has
    std::size_t PixelOffset = 0; // within the file
};

// Nothing if the header is cut, of an unknown kind, contradicts itself, or gives a size beyond the
// limits. Whether the pixels are there is not looked at.
std::optional<BmpHeader> ReadBmpHeader(std::span<const std::uint8_t> File);

} // namespace morvane
