#include "geometry/ShapeFill.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "geometry/PlainMask.h"

namespace morvane {
namespace {

constexpr std::uint8_t Value = 2;

MaskCells cellsOf(plain::Mask& mask)
{
    return {mask.Cells, mask.Width, mask.Height};
}

TEST(ShapeFillCircle, SetsTheCellsOfItsFormula)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    std::vector<std::pair<Point, Point>> circles{{{20, 20}, {10, 10}}, {{20, 20}, {0, 5}},
        {{20, 20}, {5, 0}}, {{20, 20}, {0, 0}}, {{20.5, 3}, {.5, 9}}, {{20, 20}, {-7, 7}},
        {{nan, 20}, {5, 5}}, {{20, 20}, {nan, 5}}, {{20, 20}, {inf, 5}}, {{1e300, 20}, {1e300, 5}},
        {{-1e9, 20}, {1e9 + 9, 1e9}}, {{0, 0}, {1e-300, 1e300}}};
    std::mt19937 random(1);
    std::uniform_real_distribution<double> at(-20, 80), radius(0, 50);
    for (int i = 0; i < 300; ++i)
        circles.push_back({{at(random), at(random)}, {radius(random), radius(random)}});
    for (const auto& [center, radii] : circles) {
        plain::Mask expected{61, 47}, mask = expected;
        plain::FillCircle(expected, center, radii, Value);
        FillCircle(cellsOf(mask), center, radii, Value);
        EXPECT_EQ(mask.Cells, expected.Cells) << center.X << " " << center.Y << " " << radii.X;
    }
}

TEST(ShapeFillEllipse, SetsTheCellsOfItsFormula)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    std::vector<TiltedEllipse> ellipses{{{30, 20}, 20, 10, 0}, {{30, 20}, 20, 20, .3},
        {{30, 20}, 20, 0, 0}, {{30, 20}, 20, 0, .5}, {{30, 20}, 0, 0, 0}, {{30, 20}, 20, 1e-9, .5},
        {{30, 20}, 25, 25e-7, 0}, {{30, 20}, 1e-9, 20, 1}, {{30, 20}, 20, nan, 0},
        {{30, 20}, inf, 20, 0}, {{inf, 20}, 20, 20, 0}, {{30, 20}, 20, 10, 1e17},
        {{30, 20}, 1e200, 1e200, 0}, {{1e12, 20}, 1e12, 5, 0}, {{30, 20}, 1e-200, 1e-200, 1},
        {{30, 20}, 20, 10, nan}, {{1e8, 20}, 1e8, 1e8, .1}, {{30, 20}, -20, 10, 1},
        {{30, 20}, 20, 10, Pi / 2}, {{30, 20}, 10, 20, -Pi / 4}};
    std::mt19937 random(2);
    std::uniform_real_distribution<double> at(-20, 80), radius(0, 50), angle(-2, 2);
    for (int i = 0; i < 300; ++i) {
        ellipses.push_back(
            {{at(random), at(random)}, radius(random), radius(random), angle(random)});
        // Whole numbers put many cells right on the outline.
        TiltedEllipse& e = ellipses.back();
        if (i % 3 == 0)
            e = {{std::round(e.Center.X), std::round(e.Center.Y)}, std::round(e.RadiusX),
                std::round(e.RadiusY), i % 2 * Pi / 4};
    }
    for (const TiltedEllipse& e : ellipses) {
        plain::Mask expected{61, 47}, mask = expected;
        plain::FillEllipse(expected, e, Value);
        FillEllipse(cellsOf(mask), e, Value);
        EXPECT_EQ(mask.Cells, expected.Cells)
            << e.Center.X << " " << e.RadiusX << " " << e.RadiusY << " " << e.Angle;
    }
}

// Ends of the axes and points beside them, from the equation of the tilted outline.
TEST(ShapeFillEllipse, TiltsCounterClockwiseAsSeenOnTheScreen)
{
    plain::Mask mask{100, 100};
    FillEllipse(cellsOf(mask), {{50, 50}, 40, 10, Pi / 4}, Value);
    EXPECT_EQ(mask.At(50 - 28, 50 + 28), Value) << "28 * sqrt(2) = 39.6 along the long axis";
    EXPECT_EQ(mask.At(50 - 29, 50 + 29), 0);
    EXPECT_EQ(mask.At(50 + 7, 50 + 7), Value) << "9.9 along the short axis";
    EXPECT_EQ(mask.At(50 + 8, 50 + 8), 0);
}

} // namespace
} // namespace morvane
