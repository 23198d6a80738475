#include "interferogram/ReducedPicture.h"

#include <cmath>
#include <random>

#include <gtest/gtest.h>

namespace morvane {
namespace {

std::vector<std::uint8_t> Noise(RasterSize size)
{
    std::mt19937 random(5);
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(size.Width) * size.Height);
    for (std::uint8_t& pixel : pixels)
        pixel = static_cast<std::uint8_t>(random());
    return pixels;
}

double PlainMean(
    const std::vector<std::uint8_t>& from, RasterSize full, RasterSize size, int x, int y)
{
    double sum = 0, count = 0;
    for (int row = y * full.Height / size.Height; row < (y + 1) * full.Height / size.Height; ++row)
        for (int at = x * full.Width / size.Width; at < (x + 1) * full.Width / size.Width; ++at) {
            sum += from[static_cast<std::size_t>(row) * full.Width + at];
            ++count;
        }
    return sum / count;
}

TEST(ReducedPicture, EachPixelIsTheMeanOfThoseItStandsFor)
{
    const struct {
        RasterSize Full, Size;
    } rows[] = {{{101, 77}, {75, 57}}, {{101, 77}, {49, 37}}, {{99, 131}, {24, 32}},
        {{7, 5}, {1, 1}}, {{64, 64}, {64, 64}}};
    for (const auto& [full, size] : rows) {
        const auto pixels = Noise(full);
        ReducedPicture reduced;
        reduced.Prepare(pixels, full, size);
        reduced.MakeRows(pixels, -3, size.Height + 3);
        for (int y = 0; y < size.Height; ++y)
            for (int x = 0; x < size.Width; ++x)
                ASSERT_EQ(reduced.Pixels()[static_cast<std::size_t>(y) * size.Width + x],
                    std::floor(PlainMean(pixels, full, size, x, y) + 0.5))
                    << size.Width << ": " << x << ", " << y;
    }
}

TEST(ReducedPicture, RowsMadeLaterAreTheSame)
{
    const RasterSize full{101, 77}, size{49, 37};
    const auto pixels = Noise(full);
    ReducedPicture whole, lazy;
    lazy.Prepare(std::vector<std::uint8_t>(pixels.size()), full, size);
    lazy.MakeRows(std::vector<std::uint8_t>(pixels.size()), 0, 20); // of another picture
    whole.Prepare(pixels, full, size);
    whole.MakeRows(pixels, 0, size.Height);
    lazy.Prepare(pixels, full, size);
    for (const auto& [first, end] : {std::pair{30, 99}, {5, 8}, {-4, 12}, {12, 30}})
        lazy.MakeRows(pixels, first, end);
    EXPECT_TRUE(std::ranges::equal(whole.Pixels(), lazy.Pixels()));
}

} // namespace
} // namespace morvane
