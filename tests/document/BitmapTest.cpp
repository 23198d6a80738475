#include "document/Bitmap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace morvane {
namespace {

using testing::ElementsAre;
using Bytes = std::vector<std::uint8_t>;

Bitmap onePixel(int bitCount, Bytes row)
{
    Bitmap bitmap;
    bitmap.Width = bitmap.Height = 1;
    bitmap.BitCount = bitCount;
    bitmap.Rows = std::move(row);
    bitmap.Palette = std::vector<Color>(256);
    return bitmap;
}

Bitmap masked(int bitCount, std::array<std::uint32_t, 3> masks, Bytes row)
{
    Bitmap bitmap = onePixel(bitCount, std::move(row));
    bitmap.Compression = 3;
    bitmap.Masks = masks;
    return bitmap;
}

TEST(ConvertBitmapToData, AveragesTheChannels)
{
    Bitmap paletted = onePixel(8, {3, 0, 0, 0});
    paletted.Palette[3] = {10, 21, 30};
    const struct {
        const char* Name;
        Bitmap Source;
        int Grey;
    } cases[] = {
        {"8 bits through the palette, a third rounds down", paletted, 20},
        {"24 bits", onePixel(24, {10, 20, 30, 0}), 20},
        {"24 bits, two thirds round up", onePixel(24, {10, 20, 32, 0}), 21},
        {"5-5-5 white keeps its own range", onePixel(16, {0xFF, 0x7F, 0, 0}), 31},
        {"5-5-5 white with the unused bit", onePixel(16, {0xFF, 0xFF, 0, 0}), 31},
        {"5-5-5 channels 1, 2, 4", onePixel(16, {0x44, 0x04, 0, 0}), 2},
        {"32 bits, blue and green", onePixel(32, {30, 12, 0, 0}), 14},
        {"5-6-5 by masks", masked(16, {0xF800, 0x7E0, 0x1F}, {0xFF, 0xFF, 0, 0}), 42},
        {"masks of nothing", masked(16, {0, 0, 0}, {0xFF, 0xFF, 0, 0}), 0},
        {"the highest grey", masked(32, {0xFFFFFFFF, 0, 0}, {0xFE, 2, 0, 0}), 255},
        {"8-8-8 by masks", masked(32, {0xFF0000, 0xFF00, 0xFF}, {9, 20, 40, 255}), 23},
    };
    for (const auto& c : cases) {
        ImageBuffer target;
        std::string error;
        EXPECT_TRUE(ConvertBitmapToData(c.Source, target, error)) << c.Name << ": " << error;
        EXPECT_THAT(target.Pixels, ElementsAre(c.Grey)) << c.Name;
        EXPECT_EQ(target.Size, (RasterSize{1, 1})) << c.Name;
    }
}

// Every sum that three bytes can have, in a row longer than any register and of odd length.
TEST(ConvertBitmapToData, RoundsEverySumAsTheQuotient)
{
    Bitmap bitmap;
    bitmap.Width = 766;
    bitmap.Height = 1;
    bitmap.BitCount = 24;
    for (int sum = 0; sum <= 765; ++sum)
        for (int channel = 0; channel < 3; ++channel)
            bitmap.Rows.push_back(
                static_cast<std::uint8_t>(std::clamp(sum - 255 * channel, 0, 255)));
    bitmap.Rows.resize(bitmap.Stride());
    ImageBuffer target;
    std::string error;
    ASSERT_TRUE(ConvertBitmapToData(bitmap, target, error));
    for (int sum = 0; sum <= 765; ++sum)
        ASSERT_EQ(target.Pixels[static_cast<std::size_t>(sum)], std::lround(sum / 3.0)) << sum;
}

TEST(ConvertBitmapToData, TurnsRowsOverAndDropsThePadding)
{
    Bitmap bitmap;
    bitmap.Width = 3;
    bitmap.Height = 2;
    bitmap.BitCount = 8;
    for (int i = 0; i < 256; ++i) {
        const auto level = static_cast<std::uint8_t>(i);
        bitmap.Palette.push_back({level, level, level});
    }
    bitmap.Rows = {1, 2, 3, 99, 4, 5, 6, 99};
    ImageBuffer target;
    std::string error;
    ASSERT_TRUE(ConvertBitmapToData(bitmap, target, error));
    EXPECT_THAT(target.Pixels, ElementsAre(4, 5, 6, 1, 2, 3));

    bitmap.Palette[5] = {50, 50, 50};
    ASSERT_TRUE(ConvertBitmapToData(bitmap, target, error));
    EXPECT_THAT(target.Pixels, ElementsAre(4, 50, 6, 1, 2, 3));
}

TEST(ConvertBitmapToData, RefusalLeavesABlankBuffer)
{
    const char* const invalid = "Could not convert bitmap to valid data";
    const char* const fewColors = "Display adapter must have at least 256 color support";
    Bitmap negative = onePixel(8, {1, 2, 3, 4});
    negative.Height = -1;
    const struct {
        const char* Name;
        Bitmap Source;
        const char* Error;
    } cases[] = {
        {"no picture", Bitmap(), invalid},
        {"negative height", negative, invalid},
        {"4 bits", onePixel(4, {0, 0, 0, 0}), fewColors},
        {"row is cut", onePixel(24, {1, 2, 3}), invalid},
        {"green mask over red: (3 + 3 * 256) / 3", onePixel(32, {0, 0, 3, 0}), "Overflow"},
        {"a third above the highest", masked(32, {0xFFFFFFFF, 0, 0}, {0xFF, 2, 0, 0}), "Overflow"},
        {"sign of 16 bits under a high mask", masked(16, {0xFFFF8000, 0, 0}, {0, 0x80, 0, 0}),
            "Overflow"},
    };
    for (const auto& c : cases) {
        ImageBuffer target{{1, 2}, {2, 1}};
        std::string error;
        EXPECT_FALSE(ConvertBitmapToData(c.Source, target, error)) << c.Name;
        EXPECT_EQ(error, c.Error) << c.Name;
        EXPECT_EQ(target.Size, RasterSize()) << c.Name;
        EXPECT_EQ(target.Pixels.size(), 1U) << c.Name;
    }
}

Bytes dibBlock(int width, int height, int bitCount, const Bytes& pixels)
{
    Bytes block(bitCount == 8 ? 1064 : 40);
    block[0] = 40;
    for (int i = 0; i < 4; ++i) {
        block[4 + i] = static_cast<std::uint8_t>(width >> 8 * i);
        block[8 + i] = static_cast<std::uint8_t>(height >> 8 * i);
    }
    block[14] = static_cast<std::uint8_t>(bitCount);
    block.insert(block.end(), pixels.begin(), pixels.end());
    return block;
}

TEST(ConvertDIBToData, CutsThirdsAndIgnoresThePalette)
{
    ImageBuffer target;
    std::string error;
    ASSERT_TRUE(ConvertDIBToData(dibBlock(1, 2, 24, {10, 20, 32, 0, 1, 1, 1, 0}), target, error));
    EXPECT_THAT(target.Pixels, ElementsAre(1, 20));
    ASSERT_TRUE(ConvertDIBToData(dibBlock(2, 2, 8, {7, 8, 0, 0, 9, 10, 0, 0}), target, error));
    EXPECT_THAT(target.Pixels, ElementsAre(9, 10, 7, 8));
}

TEST(ConvertDIBToData, RefusesWhatIsNotThere)
{
    const char* const unsupported = "Cannot convert DIB, unsupported format";
    const char* const invalid = "Could not convert bitmap to valid data";
    Bytes headerOnly = dibBlock(1, 1, 8, {});
    headerOnly.resize(44);
    const struct {
        const char* Name;
        Bytes Dib;
        const char* Error;
    } cases[] = {
        {"nothing", {}, invalid},
        {"16 bits", dibBlock(1, 1, 16, {0, 0, 0, 0}), unsupported},
        {"rows missing", dibBlock(2, 2, 24, {1, 2, 3, 4, 5, 6, 0, 0}), invalid},
        {"size beyond memory", dibBlock(2147483647, 2147483647, 24, {1, 2, 3, 4}), invalid},
        {"negative", dibBlock(-1, -1, 8, {1, 2, 3, 4}), invalid},
        {"colors missing", headerOnly, invalid},
    };
    for (const auto& c : cases) {
        ImageBuffer target;
        std::string error;
        EXPECT_FALSE(ConvertDIBToData(c.Dib, target, error)) << c.Name;
        EXPECT_EQ(error, c.Error) << c.Name;
    }
}

} // namespace
} // namespace morvane
