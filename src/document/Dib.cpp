#include "document/Dib.h"

#include <algorithm>
#include <cstring>

#include "document/LittleEndian.h"

namespace morvane {

namespace {

constexpr std::size_t FileHeaderSize = 14;

struct ValueRange {
    int Low = 0, High = 255;
};

// One less than a value, as a byte, puts black above all others.
ValueRange rangeWithoutBlack(std::span<const std::uint8_t> data)
{
    std::uint8_t lowestLessOne = 254, highest = 0;
    for (const std::uint8_t value : data) {
        lowestLessOne = std::min(lowestLessOne, static_cast<std::uint8_t>(value - 1));
        highest = std::max(highest, value);
    }
    const int lowest = lowestLessOne + 1;
    return highest > lowest ? ValueRange{lowest, highest} : ValueRange{};
}

std::size_t strideOf(const ImageBuffer& source)
{
    return AlignToDword(static_cast<std::size_t>(source.Size.Width));
}

// 0 without a picture.
std::size_t dibSize(const ImageBuffer& source)
{
    const auto [width, height] = source.Size;
    if (width <= 0 || height <= 0
        || source.Pixels.size() / static_cast<std::size_t>(width)
            < static_cast<std::size_t>(height))
        return 0;
    return DibHeaderSize + strideOf(source) * static_cast<std::size_t>(height);
}

void writeHeader(const ImageBuffer& source, std::uint8_t* target)
{
    StoreU32(target, DibInfoSize);
    StoreU32(target + 4, static_cast<std::uint32_t>(source.Size.Width));
    StoreU32(target + 8, static_cast<std::uint32_t>(source.Size.Height));
    StoreU16(target + 12, 1); // planes
    StoreU16(target + 14, 8); // bits
}

void writePalette(const std::array<Color, 256>& palette, std::uint8_t* target)
{
    for (const Color& color : palette) {
        target[0] = color.Blue;
        target[1] = color.Green;
        target[2] = color.Red;
        target += 4;
    }
}

// Target holds dibSize bytes, all 0.
void writeDib(const ImageBuffer& source, std::uint8_t* target)
{
    writeHeader(source, target);
    writePalette(BuildDisplayPalette(false, false, {}), target + DibInfoSize);
    const std::size_t width = static_cast<std::size_t>(source.Size.Width);
    std::uint8_t* row = target + DibHeaderSize;
    for (int y = source.Size.Height - 1; y >= 0; --y, row += strideOf(source))
        std::memcpy(row, source.Pixels.data() + static_cast<std::size_t>(y) * width, width);
}

} // namespace

std::array<Color, 256> BuildDisplayPalette(
    bool Red, bool Stretch, std::span<const std::uint8_t> Data)
{
    const ValueRange range = Stretch ? rangeWithoutBlack(Data) : ValueRange{};
    std::array<Color, 256> palette;
    for (int i = 0; i < 256; ++i) {
        const int above = std::clamp(i, range.Low, range.High) - range.Low;
        const auto level = static_cast<std::uint8_t>(255 * above / (range.High - range.Low));
        palette[static_cast<std::size_t>(i)] =
            Red ? Color{level, 0, 0} : Color{level, level, level};
    }
    return palette;
}

std::string BmpFromBuffer(const ImageBuffer& Source)
{
    const std::size_t size = dibSize(Source);
    if (size == 0)
        return {};
    std::string file(FileHeaderSize + size, '\0');
    auto* bytes = reinterpret_cast<std::uint8_t*>(file.data());
    StoreU16(bytes, 19778); // "BM"
    StoreU32(bytes + 2, static_cast<std::uint32_t>(file.size()));
    StoreU32(bytes + 10, FileHeaderSize + DibHeaderSize);
    writeDib(Source, bytes + FileHeaderSize);
    StoreU32(bytes + FileHeaderSize + 20, static_cast<std::uint32_t>(size - DibHeaderSize));
    return file;
}

} // namespace morvane
