#include "document/BmpDecoder.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

#include "document/BmpHeader.h"
#include "document/Dib.h"
#include "document/LittleEndian.h"
#include "document/PictureLimits.h"
#include "document/RleDecoder.h"
#include "platform/LargePages.h"

namespace morvane {

namespace {

// One colour of a pixel with bit fields, brought to the range 0 to Maximum. Halves do not occur:
// the range of a mask is odd.
class Channel {
public:
    Channel(std::uint32_t Mask, std::uint32_t Maximum)
        : m_mask(Mask), m_shift(Mask == 0 ? 0 : std::countr_zero(Mask)),
          m_range(std::max(Mask >> m_shift, 1U)), m_maximum(Maximum)
    {
    }
    std::uint32_t operator()(std::uint32_t Pixel) const
    {
        const std::uint64_t value = (Pixel & m_mask) >> m_shift;
        return static_cast<std::uint32_t>((value * m_maximum + m_range / 2) / m_range);
    }

private:
    std::uint32_t m_mask;
    int m_shift;
    std::uint32_t m_range, m_maximum;
};

// Several pixels a byte, the leftmost in the highest bits.
void unpackRow(const std::uint8_t* source, int bits, std::span<std::uint8_t> target)
{
    const std::size_t perByte = static_cast<std::size_t>(8 / bits);
    const int mask = (1 << bits) - 1;
    for (std::size_t x = 0; x < target.size(); ++x) {
        const int shift = 8 - bits * static_cast<int>(x % perByte + 1);
        target[x] = static_cast<std::uint8_t>(source[x / perByte] >> shift & mask);
    }
}

void convertRow16(const std::uint8_t* source, const BmpHeader& header, std::uint8_t* target)
{
    const Channel red(header.Masks[0], 31), green(header.Masks[1], 31), blue(header.Masks[2], 31);
    for (int x = 0; x < header.Width; ++x, source += 2, target += 2) {
        const std::uint32_t pixel = LoadU16(source);
        StoreU16(
            target, static_cast<std::uint16_t>(red(pixel) << 10 | green(pixel) << 5 | blue(pixel)));
    }
}

void convertRow32(const std::uint8_t* source, const BmpHeader& header, std::uint8_t* target)
{
    const Channel red(header.Masks[0], 255), green(header.Masks[1], 255),
        blue(header.Masks[2], 255);
    for (int x = 0; x < header.Width; ++x, source += 4, target += 3) {
        const std::uint32_t pixel = LoadU32(source);
        target[0] = static_cast<std::uint8_t>(blue(pixel));
        target[1] = static_cast<std::uint8_t>(green(pixel));
        target[2] = static_cast<std::uint8_t>(red(pixel));
    }
}

void dropFourthByte(const std::uint8_t* source, int width, std::uint8_t* target)
{
    for (int x = 0; x < width; ++x, source += 4, target += 3) {
        target[0] = source[0];
        target[1] = source[1];
        target[2] = source[2];
    }
}

void readRow(const std::uint8_t* source, const BmpHeader& header, std::uint8_t* target)
{
    const std::size_t width = static_cast<std::size_t>(header.Width);
    if (header.BitCount < 8)
        unpackRow(source, header.BitCount, {target, width});
    else if (header.BitCount == 16 && header.Masks != FiveBitMasks)
        convertRow16(source, header, target);
    else if (header.BitCount == 32 && header.Masks != ByteMasks)
        convertRow32(source, header, target);
    else if (header.BitCount == 32)
        dropFourthByte(source, header.Width, target);
    else
        std::memcpy(target, source, width * static_cast<std::size_t>(header.BitCount / 8));
}

// The padding of the last row may be missing: nothing is lost with it.
bool readPlainRows(std::span<const std::uint8_t> data, const BmpHeader& header, Bitmap& target)
{
    const std::size_t bits =
        static_cast<std::size_t>(header.Width) * static_cast<std::size_t>(header.BitCount);
    const std::size_t stride = AlignToDword((bits + 7) / 8);
    const std::size_t height = static_cast<std::size_t>(header.Height);
    if (data.size() < stride * (height - 1) + (bits + 7) / 8)
        return false;
    ResizeInLargePages(target.Rows, target.Stride() * height);
    for (std::size_t row = 0; row < height; ++row)
        readRow(data.data() + row * stride, header, target.Rows.data() + row * target.Stride());
    return true;
}

bool readRuns(std::span<const std::uint8_t> data, const BmpHeader& header, Bitmap& target)
{
    if (!CanHoldCompressed(data.size(), header.Width, header.Height))
        return false;
    ResizeInLargePages(target.Rows, target.Stride() * static_cast<std::size_t>(header.Height));
    return DecodeRle(data, header.BitCount, target);
}

void flipRows(Bitmap& picture)
{
    const auto stride = static_cast<std::ptrdiff_t>(picture.Stride());
    auto low = picture.Rows.begin(), high = picture.Rows.end() - stride;
    for (; low < high; low += stride, high -= stride)
        std::swap_ranges(low, low + stride, high);
}

// False if a pixel names a colour that the file does not have.
bool takePalette(const std::vector<Color>& palette, Bitmap& picture)
{
    std::uint8_t highest = 0;
    for (const std::uint8_t value : picture.Rows)
        highest = std::max(highest, value);
    if (highest >= palette.size())
        return false;
    picture.Palette = palette;
    picture.Palette.resize(256);
    return true;
}

} // namespace

bool IsBmp(std::span<const std::uint8_t> File)
{
    return File.size() >= 2 && File[0] == 'B' && File[1] == 'M';
}

std::optional<Bitmap> DecodeBmp(std::span<const std::uint8_t> File)
{
    const std::optional<BmpHeader> header = ReadBmpHeader(File);
    if (!header)
        return std::nullopt;
    Bitmap picture;
    picture.Width = header->Width;
    picture.Height = header->Height;
    picture.BitCount = std::clamp(header->BitCount, 8, 24);
    const std::span<const std::uint8_t> data = File.subspan(header->PixelOffset);
    const bool isRead = header->Encoding == BmpEncoding::Rle
        ? readRuns(data, *header, picture)
        : readPlainRows(data, *header, picture);
    if (!isRead)
        return std::nullopt;
    if (header->BitCount <= 8 && !takePalette(header->Palette, picture))
        return std::nullopt;
    if (header->IsTopDown)
        flipRows(picture);
    return picture;
}

} // namespace morvane
