#include "document/BmpHeader.h"

#include <algorithm>
#include <bit>

#include "document/LittleEndian.h"
#include "document/PictureLimits.h"

namespace morvane {

namespace {

constexpr std::size_t FileHeaderSize = 14;
constexpr std::uint32_t CoreHeaderSize = 12; // OS/2: 16-bit sizes, three bytes a colour
constexpr std::uint32_t InfoHeaderSize = 40; // the later ones begin alike and are longer
constexpr std::uint32_t MasksSize = 12; // red, green, blue

enum Compression : std::uint32_t { Rgb, Rle8, Rle4, BitFields, AlphaBitFields = 6 };

// Field by field, before anything of it is believed.
struct RawHeader {
    std::uint32_t Size = 0;
    std::int64_t Width = 0, Height = 0; // negative height: top-down
    int BitCount = 0;
    std::uint32_t Compression = Rgb;
    std::uint32_t NumColors = 0; // 0: all that the depth allows

    std::size_t ColorSize() const { return Size == CoreHeaderSize ? 3 : 4; }
    bool HasBitFields() const { return Compression == BitFields || Compression == AlphaBitFields; }
    // Masks follow a header that has no fields for them.
    std::size_t End() const
    {
        const std::size_t end = FileHeaderSize + Size;
        if (Size != InfoHeaderSize || !HasBitFields())
            return end;
        return end + (Compression == BitFields ? MasksSize : MasksSize + 4);
    }
    std::size_t NumColorsClaimed() const
    {
        if (BitCount > 8)
            return NumColors;
        const std::uint32_t all = 1U << BitCount;
        return NumColors == 0 ? all : std::min(NumColors, all);
    }
};

std::optional<RawHeader> readRawHeader(std::span<const std::uint8_t> file)
{
    if (file.size() < FileHeaderSize + CoreHeaderSize)
        return std::nullopt;
    const std::uint8_t* fields = file.data() + FileHeaderSize;
    RawHeader raw;
    raw.Size = LoadU32(fields);
    if (raw.Size == CoreHeaderSize) {
        raw.Width = LoadU16(fields + 4);
        raw.Height = LoadU16(fields + 6);
        raw.BitCount = LoadU16(fields + 10);
        return raw;
    }
    // No header ends within the masks.
    const bool isWhole = raw.Size == InfoHeaderSize || raw.Size >= InfoHeaderSize + MasksSize;
    if (!isWhole || raw.Size > file.size() - FileHeaderSize)
        return std::nullopt;
    raw.Width = LoadI32(fields + 4);
    raw.Height = LoadI32(fields + 8);
    raw.BitCount = LoadU16(fields + 14);
    raw.Compression = LoadU32(fields + 16);
    raw.NumColors = LoadU32(fields + 32);
    return raw;
}

bool isKnownFormat(const RawHeader& raw)
{
    const int bits = raw.BitCount;
    switch (raw.Compression) {
    case Rgb:
        return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    case Rle8:
        return bits == 8;
    case Rle4:
        return bits == 4;
    case BitFields:
    case AlphaBitFields:
        return bits == 16 || bits == 32;
    default:
        return false;
    }
}

// Some writers leave the offset 0: the pixels follow the colours.
std::size_t pixelOffset(std::span<const std::uint8_t> file, const RawHeader& raw)
{
    const std::size_t stated = LoadU32(file.data() + 10);
    return stated != 0 ? stated : raw.End() + raw.NumColorsClaimed() * raw.ColorSize();
}

// The colours that really stand between the header and the pixels, blue first.
std::vector<Color> readPalette(
    std::span<const std::uint8_t> file, const RawHeader& raw, std::size_t offset)
{
    const std::size_t count =
        std::min(raw.NumColorsClaimed(), (offset - raw.End()) / raw.ColorSize());
    std::vector<Color> palette(count);
    const std::uint8_t* entry = file.data() + raw.End();
    for (Color& color : palette) {
        color = {entry[2], entry[1], entry[0]};
        entry += raw.ColorSize();
    }
    return palette;
}

// A channel is one run of bits inside the pixel, or missing; some channel is there.
bool areValidMasks(const ChannelMasks& masks, int bitCount)
{
    const auto isValid = [bitCount](std::uint32_t mask) {
        if (mask == 0)
            return true;
        const std::uint32_t run = mask >> std::countr_zero(mask);
        return (run & (run + 1)) == 0 && (std::uint64_t{mask} >> bitCount) == 0;
    };
    return std::ranges::all_of(masks, isValid) && (masks[0] | masks[1] | masks[2]) != 0;
}

// All headers that have masks, and the one that they follow, have them at the same place.
ChannelMasks readMasks(std::span<const std::uint8_t> file, const RawHeader& raw)
{
    if (!raw.HasBitFields())
        return raw.BitCount == 16 ? FiveBitMasks : ByteMasks;
    const std::uint8_t* masks = file.data() + FileHeaderSize + InfoHeaderSize;
    return {LoadU32(masks), LoadU32(masks + 4), LoadU32(masks + 8)};
}

} // namespace

std::optional<BmpHeader> ReadBmpHeader(std::span<const std::uint8_t> File)
{
    const std::optional<RawHeader> raw = readRawHeader(File);
    if (!raw || !isKnownFormat(*raw) || raw->End() > File.size())
        return std::nullopt;
    const std::int64_t height = raw->Height < 0 ? -raw->Height : raw->Height;
    const std::size_t offset = pixelOffset(File, *raw);
    if (!IsAllowedSize(raw->Width, height) || offset < raw->End() || offset > File.size())
        return std::nullopt;

    BmpHeader header;
    header.Width = static_cast<int>(raw->Width);
    header.Height = static_cast<int>(height);
    header.IsTopDown = raw->Height < 0;
    header.BitCount = raw->BitCount;
    header.PixelOffset = offset;
    if (raw->Compression == Rle4 || raw->Compression == Rle8)
        header.Encoding = BmpEncoding::Rle;
    if (raw->BitCount <= 8) {
        header.Palette = readPalette(File, *raw, offset);
        if (header.Palette.empty())
            return std::nullopt;
    } else {
        header.Masks = readMasks(File, *raw);
        if (!areValidMasks(header.Masks, raw->BitCount))
            return std::nullopt;
    }
    return header;
}

} // namespace morvane
