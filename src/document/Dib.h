// The intensities on their way out: display colours and the BMP file. The stretch is one of colours
// only, the intensities stay as they are.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "document/ImageBuffer.h"
#include "platform/Device.h"

namespace morvane {

// The display colour of each intensity: a grey or red ramp; with Stretch spread over the range of
// the values in Data, black not counted.
std::array<Color, 256> BuildDisplayPalette(
    bool Red, bool Stretch, std::span<const std::uint8_t> Data);

inline constexpr std::size_t DibInfoSize = 40; // the header of a DIB
inline constexpr std::size_t DibHeaderSize = 1064; // with the 256 colours behind it

// The bytes of a row with its padding.
constexpr std::size_t AlignToDword(std::size_t Bytes)
{
    return (Bytes + 3) / 4 * 4;
}

// The whole of a BMP file of the intensities with a grey ramp; empty without a picture. Throws
// std::bad_alloc.
std::string BmpFromBuffer(const ImageBuffer& Source);

} // namespace morvane
