#include "geometry/PolygonFill.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "geometry/PlainMask.h"

namespace morvane {
namespace {

constexpr std::uint8_t Value = 2;

void fillPolygon(plain::Mask& mask, std::span<const Point> corners)
{
    std::vector<ColumnSpan> spans(mask.Height);
    FillPolygon({mask.Cells, mask.Width, mask.Height}, corners, Value, spans);
}

// Corners drawn from one of several distributions: about the mask, on few rows, on few places, on
// a line, far outside.
std::vector<Point> randomCorners(std::mt19937& random, int kind)
{
    const auto real = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    std::vector<Point> corners(std::uniform_int_distribution<int>(0, 12)(random));
    const double slope = real(-3, 3);
    for (Point& p : corners) {
        p = {real(-30, 90), real(-30, 80)};
        if (kind == 1)
            p.Y = std::round(real(0, 4)) * 10;
        else if (kind == 2)
            p = {std::round(real(0, 3)) * 12, std::round(real(0, 3)) * 12};
        else if (kind == 3)
            p.X = slope * p.Y + 20;
        else if (kind == 4)
            p = {real(-3000, 3000), real(-3000, 3000)};
        else if (kind == 5)
            p = {real(10, 50), real(10, 40)};
    }
    return corners;
}

TEST(PolygonFill, SetsTheCellsOfAllTriangles)
{
    std::mt19937 random(3);
    for (int i = 0; i < 1200; ++i) {
        const auto corners = randomCorners(random, i % 6);
        plain::Mask expected{61, 47}, mask = expected;
        plain::FillPolygon(expected, corners, Value);
        fillPolygon(mask, corners);
        ASSERT_EQ(mask.Cells, expected.Cells) << "polygon " << i;
    }
}

TEST(PolygonFill, SetsTheCellsOfAllTrianglesWithFiftyCorners)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> at(-10, 130);
    std::vector<Point> corners(50);
    for (Point& p : corners)
        p = {at(random), at(random)};
    plain::Mask expected{120, 120}, mask = expected;
    plain::FillPolygon(expected, corners, Value);
    fillPolygon(mask, corners);
    EXPECT_EQ(mask.Cells, expected.Cells);
}

TEST(PolygonFill, HoldsAbsurdCornersAtTheLimit)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto& corners : {std::vector<Point>{{-1e300, -1e300}, {1e300, 20}, {10, 1e9}},
             std::vector<Point>{{nan, 5}, {40, nan}, {NoPoint, NoPoint}, {20, 40}}}) {
        plain::Mask expected{61, 47}, mask = expected;
        plain::FillPolygon(expected, corners, Value);
        fillPolygon(mask, corners);
        EXPECT_EQ(mask.Cells, expected.Cells);
    }
}

// By hand: between the left edge at column 2 and the slanted one at 2 + row - 1.
TEST(PolygonFill, LeavesOutTheLastColumnAndRowsWithoutWidth)
{
    plain::Mask mask{8, 6};
    fillPolygon(mask, std::vector<Point>{{2, 1}, {2, 4}, {5, 4}});
    const std::vector<std::uint8_t> expected{
        0,
        0,
        0,
        0,
        0,
        0,
        0,
        0, //
        0,
        0,
        0,
        0,
        0,
        0,
        0,
        0, //
        0,
        0,
        2,
        0,
        0,
        0,
        0,
        0, //
        0,
        0,
        2,
        2,
        0,
        0,
        0,
        0, //
        0,
        0,
        0,
        0,
        0,
        0,
        0,
        0, // the two corners of this row are not above one another
        0,
        0,
        0,
        0,
        0,
        0,
        0,
        0,
    };
    EXPECT_EQ(mask.Cells, expected);
}

TEST(PolygonFill, FillsAnLAsItsHull)
{
    plain::Mask mask{40, 40};
    fillPolygon(mask, std::vector<Point>{{5, 5}, {10, 5}, {10, 30}, {35, 30}, {35, 35}, {5, 35}});
    EXPECT_EQ(mask.At(28, 20), Value) << "in the re-entrant corner";
    EXPECT_EQ(mask.At(10, 30), 0) << "beyond the hull";
}

} // namespace
} // namespace morvane
