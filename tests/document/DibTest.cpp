#include "document/Dib.h"

#include <gtest/gtest.h>

#include "document/Bitmap.h"
#include "document/LoadPicture.h"

namespace morvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr Color grey(int level)
{
    const auto value = static_cast<std::uint8_t>(level);
    return {value, value, value};
}

TEST(BuildDisplayPalette, StretchSpreadsTheRangeWithoutBlack)
{
    const struct {
        const char* Name;
        Bytes Data;
        int Value, Level;
    } cases[] = {
        {"lowest is black", {0, 50, 200}, 50, 0},
        {"below the lowest", {0, 50, 200}, 20, 0},
        {"just above the lowest: 255 / 150 without its fraction", {0, 50, 200}, 51, 1},
        {"middle: 255 * 75 / 150", {0, 50, 200}, 125, 127},
        {"just below the highest: 255 * 149 / 150", {0, 50, 200}, 199, 253},
        {"highest is white", {0, 50, 200}, 200, 255},
        {"lowest 1 and highest 255", {1, 255}, 128, 127},
        {"only 254 and 255", {254, 255}, 254, 0},
        {"nothing scanned", {}, 100, 100},
        {"all black", {0, 0}, 100, 100},
        {"a single value", {7, 7}, 7, 7},
        {"only white", {255}, 254, 254},
    };
    for (const auto& c : cases) {
        const auto value = static_cast<std::size_t>(c.Value);
        EXPECT_EQ(BuildDisplayPalette(false, true, c.Data)[value], grey(c.Level)) << c.Name;
        EXPECT_EQ(BuildDisplayPalette(true, true, c.Data)[value],
            (Color{static_cast<std::uint8_t>(c.Level), 0, 0}))
            << c.Name << ", red";
        EXPECT_EQ(BuildDisplayPalette(false, false, c.Data)[value], grey(c.Value))
            << c.Name << ", not stretched";
    }
}

// Values in long data that only one end or the middle of a register sees.
TEST(BuildDisplayPalette, FindsTheExtremesWhereverTheyStand)
{
    for (const std::size_t at : {0UL, 31UL, 500UL, 998UL}) {
        Bytes data(1000, 100);
        data[at] = 40;
        data[999] = 240;
        const auto palette = BuildDisplayPalette(false, true, data);
        EXPECT_EQ(palette[40], grey(0)) << at;
        EXPECT_EQ(palette[90], grey(63)) << at; // 255 * 50 / 200
        EXPECT_EQ(palette[240], grey(255)) << at;
    }
}

TEST(BmpFromBuffer, ReadsBackTheSameIntensities)
{
    for (const RasterSize size : {RasterSize{1, 1}, {1, 7}, {5, 3}, {4, 4}, {255, 2}}) {
        ImageBuffer source{Bytes(static_cast<std::size_t>(size.Width * size.Height)), size};
        for (std::size_t i = 0; i < source.Pixels.size(); ++i)
            source.Pixels[i] = static_cast<std::uint8_t>(i * 37);
        const std::string file = BmpFromBuffer(source);
        const PictureResult read = DecodePicture(Bytes(file.begin(), file.end()));
        ImageBuffer again;
        std::string error;
        ASSERT_EQ(read.Error, PictureError::None) << size.Width << " x " << size.Height;
        ASSERT_TRUE(ConvertBitmapToData(read.Picture, again, error)) << error;
        EXPECT_EQ(again.Size, size);
        EXPECT_EQ(again.Pixels, source.Pixels);
    }
}

TEST(BmpFromBuffer, StatesItsSizes)
{
    const std::string file = BmpFromBuffer({{1, 2, 3, 4, 5, 6}, {3, 2}});
    const Bytes start{'B', 'M', 0x3E, 4, 0, 0, 0, 0, 0, 0, 0x36, 4, 0, 0, 40, 0, 0, 0};
    ASSERT_EQ(file.size(), 1078U + 8U);
    EXPECT_EQ(Bytes(file.begin(), file.begin() + 18), start);
    EXPECT_EQ(file[34], 8); // bytes of the rows
}

TEST(BmpFromBuffer, BlankDocumentHasNoFile)
{
    EXPECT_TRUE(BmpFromBuffer({}).empty());
}

} // namespace
} // namespace morvane
