#include "document/Bitmap.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <new>

#include "document/Dib.h"
#include "document/LittleEndian.h"
#include "platform/LargePages.h"

// Two builds of a function, chosen when the program starts. Only x86-64 needs it: there the wide
// registers are an extra that a processor may lack.
#if defined(__x86_64__) && defined(__GNUC__)
#define MORVANE_WIDE_REGISTERS __attribute__((target_clones("avx2", "default")))
#else
#define MORVANE_WIDE_REGISTERS
#endif

namespace morvane {

namespace {

constexpr const char* NotConverted = "Could not convert bitmap to valid data";
constexpr const char* TooFewColors = "Display adapter must have at least 256 color support";
constexpr const char* UnsupportedDib = "Cannot convert DIB, unsupported format";
constexpr const char* OutOfRange = "Overflow";
constexpr const char* NoMemory = "Out of memory";

bool fail(ImageBuffer& target, std::string& error, const char* text)
{
    target = {};
    error = text;
    return false;
}

// 21846 / 65536 is so little above 1 / 3 that the quotient is exact up to three bytes and beyond.
constexpr std::uint8_t third(unsigned sum)
{
    return static_cast<std::uint8_t>(sum * 21846 >> 16);
}

// Adding 1 first rounds sum / 3 to the nearest: it never ends on a half.
MORVANE_WIDE_REGISTERS
void roundThirds(
    const std::uint8_t* __restrict source, std::size_t count, std::uint8_t* __restrict target)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = third(source[3 * i] + source[3 * i + 1] + source[3 * i + 2] + 1U);
}

MORVANE_WIDE_REGISTERS
void cutThirds(
    const std::uint8_t* __restrict source, std::size_t count, std::uint8_t* __restrict target)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = third(source[3 * i] + source[3 * i + 1] + source[3 * i + 2]);
}

// A row from the bottom of the source goes to the bottom of the target.
template <typename Kernel>
void convertRows(const std::uint8_t* source, std::size_t stride, ImageBuffer& target, Kernel kernel)
{
    const std::size_t width = static_cast<std::size_t>(target.Size.Width);
    std::uint8_t* row = target.Pixels.data() + target.Pixels.size();
    for (int y = 0; y < target.Size.Height; ++y, source += stride) {
        row -= width;
        kernel(source, width, row);
    }
}

void copyRow(const std::uint8_t* source, std::size_t width, std::uint8_t* target)
{
    std::memcpy(target, source, width);
}

void convert8(const Bitmap& source, ImageBuffer& target)
{
    std::array<std::uint8_t, 256> greys{};
    bool isRamp = true;
    for (std::size_t i = 0; i < greys.size(); ++i) {
        const Color color = i < source.Palette.size() ? source.Palette[i] : Black;
        greys[i] = static_cast<std::uint8_t>((color.Red + color.Green + color.Blue + 1) / 3);
        isRamp = isRamp && greys[i] == i;
    }
    if (isRamp)
        return convertRows(source.Rows.data(), source.Stride(), target, copyRow);
    convertRows(source.Rows.data(), source.Stride(), target,
        [&greys](const std::uint8_t* from, std::size_t width, std::uint8_t* to) {
            std::transform(
                from, from + width, to, [&greys](std::uint8_t value) { return greys[value]; });
        });
}

// The green mask of 32 bits reaches over red and the fourth byte: only pictures that are dark in
// both come through in range.
std::array<std::uint32_t, 3> channelMasks(const Bitmap& source)
{
    if (source.Compression == 3)
        return source.Masks;
    if (source.BitCount == 32)
        return {16711680, 4294967040, 255};
    return {31744, 992, 31};
}

// A mask of no bits has no colour in it.
std::uint64_t channel(std::uint32_t pixel, std::uint32_t mask)
{
    return mask == 0 ? 0 : (pixel & mask) >> std::countr_zero(mask);
}

// False if a grey exceeds a byte. A 16-bit pixel is a signed number: masks above bit 15 see its
// sign.
template <int bytesPerPixel>
bool convertMasked(const Bitmap& source, ImageBuffer& target)
{
    const std::array<std::uint32_t, 3> masks = channelMasks(source);
    std::uint64_t highest = 0;
    convertRows(source.Rows.data(), source.Stride(), target,
        [&](const std::uint8_t* from, std::size_t width, std::uint8_t* to) {
            for (std::size_t x = 0; x < width; ++x, from += bytesPerPixel) {
                const std::uint32_t pixel = bytesPerPixel == 4
                    ? LoadU32(from)
                    : static_cast<std::uint32_t>(static_cast<std::int16_t>(LoadU16(from)));
                const std::uint64_t sum =
                    channel(pixel, masks[0]) + channel(pixel, masks[1]) + channel(pixel, masks[2]);
                const std::uint64_t grey = (sum + 1) / 3;
                highest = std::max(highest, grey);
                to[x] = static_cast<std::uint8_t>(grey);
            }
        });
    return highest <= std::numeric_limits<std::uint8_t>::max();
}

bool convertPixels(const Bitmap& source, ImageBuffer& target)
{
    switch (source.BitCount) {
    case 8:
        convert8(source, target);
        return true;
    case 16:
        return convertMasked<2>(source, target);
    case 24:
        convertRows(source.Rows.data(), source.Stride(), target, roundThirds);
        return true;
    default:
        return convertMasked<4>(source, target);
    }
}

// Where the size is not positive no number of bytes is enough.
bool holdsRows(std::size_t bytes, int width, int height, std::size_t bytesPerPixel)
{
    if (width <= 0 || height <= 0)
        return false;
    const std::size_t stride = AlignToDword(static_cast<std::size_t>(width) * bytesPerPixel);
    return bytes / stride >= static_cast<std::size_t>(height);
}

void allocate(int width, int height, ImageBuffer& target)
{
    target.Size = {width, height};
    ResizeInLargePages(
        target.Pixels, static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

} // namespace

std::size_t Bitmap::Stride() const
{
    return AlignToDword(static_cast<std::size_t>(Width) * static_cast<std::size_t>(BitCount / 8));
}

bool ConvertBitmapToData(const Bitmap& Source, ImageBuffer& Target, std::string& Error)
try {
    if (Source.Width <= 0 || Source.Height <= 0)
        return fail(Target, Error, NotConverted);
    const int bits = Source.BitCount;
    if (bits != 8 && bits != 16 && bits != 24 && bits != 32)
        return fail(Target, Error, TooFewColors);
    if (!holdsRows(
            Source.Rows.size(), Source.Width, Source.Height, static_cast<std::size_t>(bits / 8)))
        return fail(Target, Error, NotConverted);
    allocate(Source.Width, Source.Height, Target);
    return convertPixels(Source, Target) || fail(Target, Error, OutOfRange);
} catch (const std::bad_alloc&) {
    return fail(Target, Error, NoMemory);
}

bool ConvertDIBToData(std::span<const std::uint8_t> Dib, ImageBuffer& Target, std::string& Error)
try {
    if (Dib.size() < DibInfoSize)
        return fail(Target, Error, NotConverted);
    const int width = LoadI32(Dib.data() + 4), height = LoadI32(Dib.data() + 8);
    const int bits = LoadU16(Dib.data() + 14);
    if (bits != 8 && bits != 24)
        return fail(Target, Error, UnsupportedDib);
    const std::size_t bytesPerPixel = static_cast<std::size_t>(bits / 8);
    const std::size_t offset = bits == 8 ? DibHeaderSize : DibInfoSize;
    if (Dib.size() < offset || !holdsRows(Dib.size() - offset, width, height, bytesPerPixel))
        return fail(Target, Error, NotConverted);
    allocate(width, height, Target);
    const std::size_t stride = AlignToDword(static_cast<std::size_t>(width) * bytesPerPixel);
    convertRows(Dib.data() + offset, stride, Target, bits == 8 ? copyRow : cutThirds);
    return true;
} catch (const std::bad_alloc&) {
    return fail(Target, Error, NoMemory);
}

} // namespace morvane
