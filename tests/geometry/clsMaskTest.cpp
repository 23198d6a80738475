#include "geometry/clsMask.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "geometry/PlainMask.h"
#include "geometry/clsShape.h"

namespace morvane {
namespace {

clsShape circle(double x, double y, double radius)
{
    clsShape shape(ShapeRole::Aperture);
    shape.SetShapeType(ShapeKind::Circle);
    shape.SetCenter({x, y});
    shape.SetRadii({radius, radius});
    return shape;
}

std::vector<std::uint8_t> cellsOf(const clsMask& mask)
{
    return {mask.View().Cells.begin(), mask.View().Cells.end()};
}

TEST(clsMaskCreate, MakesAnEmptyMaskOfOneCellForASizeBelowOne)
{
    const struct {
        int Width, Height;
        std::size_t Cells;
        int ExpectedWidth;
    } cases[] = {{3, 2, 6, 3}, {0, 5, 1, 0}, {5, -1, 1, 0}, {1, 1, 1, 1}};
    for (const auto& c : cases) {
        clsMask mask;
        mask.MaskValid = true;
        EXPECT_TRUE(mask.CreateMask(c.Width, c.Height));
        EXPECT_TRUE(mask.HasMask());
        EXPECT_FALSE(mask.MaskValid);
        EXPECT_EQ(mask.View().Cells.size(), c.Cells);
        EXPECT_EQ(mask.Width(), c.ExpectedWidth);
        mask.UpdateApertureMask(circle(0, 0, 100), false);
        mask.TrimMask(1);
    }
}

TEST(clsMaskCreate, LeavesNoMaskWhenMemoryCannotBeHad)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer ends the program instead of refusing the memory";
#endif
    clsMask mask;
    ASSERT_TRUE(mask.CreateMask(2, 2));
    EXPECT_FALSE(mask.CreateMask(2147483647, 2147483647));
    EXPECT_FALSE(mask.HasMask());
    EXPECT_EQ(mask.Width(), 0);
    mask.ClearMask();
    mask.UpdateApertureMask(circle(0, 0, 100), false);
}

TEST(clsMaskUpdate, ObstructionOverridesInsideAndOutsideOfTheAperture)
{
    clsMask mask;
    mask.CreateMask(60, 40);
    mask.UpdateApertureMask(circle(20, 20, 10), false);
    mask.UpdateObstructionMask(circle(30, 20, 3), false);
    const MaskView view = mask.View();
    EXPECT_TRUE(view.IsInside(10, 20)) << "on the outline";
    EXPECT_FALSE(view.IsInside(10, 21)) << "one past it";
    EXPECT_EQ(view.Cells[20 * 60 + 28], MaskObstruction) << "in both";
    EXPECT_EQ(view.Cells[20 * 60 + 33], MaskObstruction) << "in the obstruction alone";
    mask.ClearMask();
    EXPECT_EQ(std::ranges::count(view.Cells, MaskOutside), 60 * 40);
}

TEST(clsMaskUpdate, DoublesEveryKindOfShapeForAMaskOfTwiceTheImage)
{
    clsShape shapes[] = {circle(20, 15, 10), circle(20, 15, 10), circle(20, 15, 10)};
    clsShape twice[] = {circle(40, 30, 20), circle(40, 30, 20), circle(40, 30, 20)};
    for (auto* tilted : {&shapes[1], &twice[1]}) {
        const Point center = tilted->GetCenter();
        tilted->SetShapeType(ShapeKind::Ellipse);
        tilted->SetCenter(center);
        tilted->SetAngle(.5);
    }
    shapes[1].SetRadii({12, 5});
    twice[1].SetRadii({24, 10});
    shapes[2].Save(ShapeKind::Polygon, std::vector<Point>{{5, 3}, {35.25, 8}, {20, 27}});
    twice[2].Save(ShapeKind::Polygon, std::vector<Point>{{10, 6}, {70.5, 16}, {40, 54}});
    for (int i = 0; i < 3; ++i) {
        clsMask doubled, expected;
        doubled.CreateMask(80, 60);
        expected.CreateMask(80, 60);
        doubled.HalfSize = true;
        doubled.UpdateApertureMask(shapes[i], false);
        EXPECT_EQ(std::ranges::count(doubled.View().Cells, MaskInside), 0) << "not of this mask";
        doubled.UpdateApertureMask(shapes[i], true);
        expected.UpdateApertureMask(twice[i], false);
        EXPECT_EQ(cellsOf(doubled), cellsOf(expected)) << i;
        EXPECT_GT(std::ranges::count(doubled.View().Cells, MaskInside), 100) << i;
    }
}

TEST(clsMaskTrim, TakesTheCellsThatTheWalksMark)
{
    std::mt19937 random(5);
    std::uniform_int_distribution<int> position(0, 150), radius(0, 80), rims(-1, 9);
    for (int i = 0; i < 60; ++i) {
        clsMask mask;
        mask.CreateMask(150, 90);
        mask.UpdateApertureMask(circle(position(random), position(random), radius(random)), false);
        mask.UpdateObstructionMask(circle(position(random), position(random), 9), false);
        plain::Mask expected{150, 90, cellsOf(mask)};
        const int rim = rims(random);
        plain::Trim(expected, rim);
        mask.TrimMask(rim);
        EXPECT_TRUE(mask.MaskTrimmed());
        EXPECT_EQ(cellsOf(mask), expected.Cells) << "mask " << i << ", rim " << rim;
    }
}

// A rectangle of 20 columns by 19 rows: the left side is cut only in the first row, by the rows'
// walks, and in all columns top and bottom are.
TEST(clsMaskTrim, SparesTheLeftSideInMostRows)
{
    clsMask mask;
    mask.CreateMask(40, 40);
    clsShape square(ShapeRole::Aperture);
    square.Save(ShapeKind::Polygon, std::vector<Point>{{10, 10}, {30, 10}, {30, 29}, {10, 29}});
    mask.UpdateApertureMask(square, false);
    mask.TrimMask(2);
    const MaskView view = mask.View();
    EXPECT_TRUE(view.IsInside(10, 20));
    EXPECT_TRUE(view.IsInside(27, 20));
    EXPECT_FALSE(view.IsInside(28, 20));
    EXPECT_FALSE(view.IsInside(15, 11));
    EXPECT_TRUE(view.IsInside(15, 12));
    mask.ClearMask();
    EXPECT_FALSE(mask.MaskTrimmed());
}

} // namespace
} // namespace morvane
