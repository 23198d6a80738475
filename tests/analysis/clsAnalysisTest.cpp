#include "analysis/clsAnalysis.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace morvane {
namespace {

constexpr RasterSize Size{400, 400};

// A circle of radius 100 around (200, 200): the rim that trimming takes off is 3 cells.
class EnsureMask : public ::testing::Test {
protected:
    EnsureMask()
    {
        const Point points[] = {{100, 200}, {300, 200}, {200, 100}, {200, 300}};
        aperture.Save(ShapeKind::Circle, points);
    }
    long NumInside() const
    {
        const auto cells = analysis.Mask.View().Cells;
        return std::count(cells.begin(), cells.end(), MaskInside);
    }

    clsShape aperture{ShapeRole::Aperture}, obstruction{ShapeRole::Obstruction};
    clsAnalysis analysis;
};

TEST_F(EnsureMask, TrimsOnceAndBringsTheRimBackWithANewMask)
{
    ASSERT_TRUE(analysis.EnsureMask(Size, aperture, obstruction, false));
    const long whole = NumInside();
    EXPECT_EQ(analysis.Frame.CenterX, 200);
    ASSERT_TRUE(analysis.EnsureMask(Size, aperture, obstruction, true));
    const long trimmed = NumInside();
    EXPECT_LT(trimmed, whole);
    EXPECT_FALSE(analysis.Mask.View().IsInside(300, 200));
    EXPECT_FALSE(analysis.Mask.View().IsInside(298, 200));
    EXPECT_TRUE(analysis.Mask.View().IsInside(297, 200));
    ASSERT_TRUE(analysis.EnsureMask(Size, aperture, obstruction, true));
    EXPECT_EQ(NumInside(), trimmed) << "a trimmed mask is not trimmed again";

    ASSERT_TRUE(analysis.EnsureMask(Size, aperture, obstruction, false));
    EXPECT_EQ(NumInside(), trimmed) << "nothing has made it invalid";
    analysis.Mask.MaskValid = false;
    ASSERT_TRUE(analysis.EnsureMask(Size, aperture, obstruction, false));
    EXPECT_EQ(NumInside(), whole);
}

TEST_F(EnsureMask, FollowsTheShapesOnlyWhenInvalid)
{
    ASSERT_TRUE(analysis.EnsureMask(Size, aperture, obstruction, false));
    const long whole = NumInside();
    aperture.SetRadii({50, 50});
    obstruction.Copy(aperture);
    obstruction.SetRadii({20, 20});
    ASSERT_TRUE(analysis.EnsureMask(Size, aperture, obstruction, false));
    EXPECT_EQ(NumInside(), whole);
    analysis.Mask.MaskValid = false;
    ASSERT_TRUE(analysis.EnsureMask(Size, aperture, obstruction, false));
    EXPECT_LT(NumInside(), whole / 4);
    EXPECT_FALSE(analysis.Mask.View().IsInside(200, 200));
    EXPECT_EQ(analysis.Frame.ScaleX, 1.0 / 50);
}

TEST_F(EnsureMask, SizeFollowsImageAndTracer)
{
    const struct {
        RasterSize Image;
        int Factor;
    } cases[] = {{{350, 350}, 1}, {{349, 500}, 2}, {{500, 349}, 2}, {{1, 1}, 2}};
    for (const auto& c : cases) {
        ASSERT_TRUE(analysis.EnsureTraceMask(c.Image, aperture, obstruction));
        EXPECT_EQ(analysis.Mask.Width(), c.Factor * c.Image.Width);
        EXPECT_EQ(analysis.Mask.Height(), c.Factor * c.Image.Height);
        EXPECT_EQ(analysis.Mask.HalfSize, c.Factor == 2);
        ASSERT_TRUE(analysis.EnsureMask(c.Image, aperture, obstruction, false));
        EXPECT_EQ(analysis.Mask.Width(), c.Image.Width);
        EXPECT_FALSE(analysis.Mask.HalfSize);
    }
    EXPECT_FALSE(analysis.EnsureMask({0, 10}, aperture, obstruction, false));
}

} // namespace
} // namespace morvane
