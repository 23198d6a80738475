#include "geometry/modRaster.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "geometry/PlainTrace.h"

namespace morvane {
namespace {

using Raster = std::vector<std::uint8_t>;

plain::Picture randomPicture(int width, int height, unsigned seed)
{
    plain::Picture picture{width, height};
    std::mt19937 random(seed);
    for (auto& pixel : picture.Pixels)
        pixel = static_cast<std::uint8_t>(random() >> 24);
    return picture;
}

constexpr RasterSize sizes[] = {
    {1, 1}, {1, 7}, {7, 1}, {2, 2}, {3, 3}, {5, 2}, {67, 33}, {200, 131}};

// Rows in parts of a few columns.
Raster smoothedInParts(const plain::Picture& picture, int part)
{
    Raster target(picture.Pixels.size(), 77);
    for (int row = 0; row < picture.Height; ++row)
        for (int left = 0; left < picture.Width; left += part)
            SmoothRow(picture.Pixels, {picture.Width, picture.Height}, row, left,
                std::span(target).subspan(
                    row * picture.Width + left, std::min(part, picture.Width - left)));
    return target;
}

TEST(modRasterSmooth, RoundsTheWeightedMeanHalvesToEven)
{
    for (const auto [width, height] : sizes) {
        const plain::Picture picture = randomPicture(width, height, 1);
        EXPECT_EQ(smoothedInParts(picture, 16), plain::Smoothed(picture).Pixels)
            << width << " x " << height;
    }
    const struct {
        int Center, North, Expected;
    } halves[] = {{1, 0, 0}, {3, 0, 2}, {1, 1, 1}, {5, 0, 2}, {255, 255, 159}};
    for (const auto& c : halves) {
        plain::Picture picture{3, 3};
        picture.At(1, 1) = static_cast<std::uint8_t>(c.Center);
        picture.At(0, 1) = static_cast<std::uint8_t>(c.North);
        EXPECT_EQ(smoothedInParts(picture, 3)[4], c.Expected) << c.Center << ", " << c.North;
    }
}

TEST(modRasterResample, DoublesByTheMeanOfNeighbours)
{
    for (const auto [width, height] : sizes) {
        const plain::Picture picture = randomPicture(width, height, 2);
        Raster target(picture.Pixels.size() * 4, 77);
        ResampleImage(picture.Pixels, {width, height}, target, 1, 2);
        EXPECT_EQ(target, plain::Doubled(picture).Pixels) << width << " x " << height;
    }
}

// A ramp of 6 levels a column and 30 a row; each expected level is read off the ramp, and what has
// no neighbour on its right or below is black.
TEST(modRasterResample, StretchesEachAxisByItsOwnFactor)
{
    const Raster ramp{0, 6, 12, 30, 36, 42, 60, 66, 72};
    const struct {
        const char* Name;
        double Aspect, Scale;
        RasterSize Size;
        Raster Expected;
    } cases[] = {
        {"copy", 1, 1, {3, 3}, ramp},
        {"twice as wide", 2, 1, {6, 3}, {0, 3, 6, 9, 0, 0, 30, 33, 36, 39, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"twice as high", .5, 2, {3, 6},
            {0, 6, 0, 15, 21, 0, 30, 36, 0, 45, 51, 0, 0, 0, 0, 0, 0, 0}},
        {"a third wider", 4. / 3, 1, {4, 3}, {0, 4, 9, 0, 30, 34, 39, 0, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        const RasterSize size = ResampledSize({3, 3}, c.Aspect, c.Scale);
        EXPECT_EQ(size, c.Size) << c.Name;
        Raster target(c.Expected.size(), 77);
        ResampleImage(ramp, {3, 3}, target, c.Aspect, c.Scale);
        EXPECT_EQ(target, c.Expected) << c.Name;
    }
}

TEST(modRasterResample, DoesNothingForSizesThatDoNotFit)
{
    const Raster source(9, 50);
    for (const double scale : {0.0, -2.0, 3.0, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
        Raster target(36, 77);
        ResampleImage(source, {3, 3}, target, 1, scale);
        EXPECT_EQ(std::ranges::count(target, 77), 36) << scale;
    }
    Raster target(36, 77);
    ResampleImage(std::span(source).first(8), {3, 3}, target, 1, 2);
    EXPECT_EQ(target[0], 77) << "source too short";
}

} // namespace
} // namespace morvane
