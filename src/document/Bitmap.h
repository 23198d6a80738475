// A picture as a decoder delivers it, in its own depth, and the 8-bit intensities made of it.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "document/ImageBuffer.h"
#include "platform/Device.h"

namespace morvane {

// A decoded picture: rows bottom-up, each padded to a multiple of four bytes, as in a DIB. A pixel
// of 24 or 32 bits begins with blue.
struct Bitmap {
    int Width = 0, Height = 0;
    int BitCount = 0; // 8, 16, 24 or 32
    int Compression = 0; // 0, or 3: channel masks in Masks
    // Red, green, blue: the second to fourth entry of the colour table that comes with the bitmap.
    std::array<std::uint32_t, 3> Masks{};
    std::vector<Color> Palette; // of an 8-bit picture; 256 entries
    std::vector<std::uint8_t> Rows;

    std::size_t Stride() const;
};

// Grey is (red + green + blue) / 3, rounded. In 16 and 32 bits each channel counts in units of the
// lowest bit of its mask: 5-5-5 white is 31.
// False, with the text of the message in Error and Target blank, if the depth is not 8, 16, 24 or
// 32, the rows are not all there, a sum leaves the range of a byte, or memory does not suffice.
bool ConvertBitmapToData(const Bitmap& Source, ImageBuffer& Target, std::string& Error);

// A frame grabber's block: 40-byte header, palette if 8 bits, rows bottom-up. Of 24 bits the grey
// is (red + green + blue) / 3 without its fraction; 8 bits are taken as they stand. False as above.
bool ConvertDIBToData(std::span<const std::uint8_t> Dib, ImageBuffer& Target, std::string& Error);

} // namespace morvane
