#include "geometry/modTrace.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "geometry/PlainTrace.h"
#include "geometry/clsShape.h"

namespace morvane {
namespace {

clsShape circle(Point center, double radius)
{
    clsShape shape(ShapeRole::Aperture);
    shape.SetShapeType(ShapeKind::Circle);
    shape.SetCenter(center);
    shape.SetRadii({radius, radius});
    return shape;
}

// Columns left to right - 1, rows top to bottom.
clsShape rectangle(int left, int right, int top, int bottom)
{
    const double l = left, r = right, t = top, b = bottom + 1;
    clsShape shape(ShapeRole::Aperture);
    shape.Save(ShapeKind::Polygon, std::vector<Point>{{l, t}, {r, t}, {r, b}, {l, b}});
    return shape;
}

clsMask maskOf(RasterSize image, bool doubled, const clsShape& aperture,
    const clsShape& obstruction = clsShape(ShapeRole::Obstruction))
{
    clsMask mask;
    const int factor = doubled ? 2 : 1;
    mask.CreateMask(image.Width * factor, image.Height * factor);
    mask.HalfSize = doubled;
    mask.UpdateApertureMask(aperture, doubled);
    mask.UpdateObstructionMask(obstruction, doubled);
    return mask;
}

// Straight vertical fringes, dark at x = first, first + period, ...
plain::Picture straightFringes(RasterSize size, double first, double period, double contrast = 100)
{
    plain::Picture picture{size.Width, size.Height};
    for (int y = 0; y < size.Height; ++y)
        for (int x = 0; x < size.Width; ++x)
            picture.At(y, x) = static_cast<std::uint8_t>(
                std::lround(120 - contrast * std::cos(2 * Pi * (x - first) / period)));
    return picture;
}

TraceOutcome trace(clsFringes& fringes, const clsMask& mask, const plain::Picture& picture,
    FringeDirection direction = FringeDirection::Vertical,
    FringeDensity density = FringeDensity::Normal)
{
    return AutoTrace(
        fringes, mask, picture.Pixels, {picture.Width, picture.Height}, direction, density);
}

// All that a trace leaves: slots, orders and ticks.
std::vector<std::pair<int, std::vector<std::pair<double, double>>>> contentOf(const clsFringes& f)
{
    std::vector<std::pair<int, std::vector<std::pair<double, double>>>> content;
    for (int slot = 1; slot <= f.NumFringes(); ++slot) {
        content.push_back({f.GetFringeOrder(slot), {}});
        for (const Point& tick : f.Ticks(slot))
            content.back().second.push_back({tick.X, tick.Y});
    }
    return content;
}

TEST(AutoTrace, FindsStraightFringesWhereTheyAre)
{
    const RasterSize size{400, 360};
    const plain::Picture picture = straightFringes(size, 35, 30);
    clsFringes fringes;
    ASSERT_EQ(trace(fringes, maskOf(size, false, rectangle(20, 381, 5, 350)), picture),
        TraceOutcome::Done);
    ASSERT_EQ(fringes.NumFringes(), 12) << "dark at 35, 65, ... 365";
    for (int slot = 1; slot <= 12; ++slot) {
        const int order = fringes.GetFringeOrder(slot);
        EXPECT_GE(fringes.Ticks(slot).size(), 27U) << "every 12 of 340 rows";
        for (const Point& tick : fringes.Ticks(slot)) {
            EXPECT_EQ(tick.X, 5 + 30 * order);
            EXPECT_TRUE(tick.Y >= 7 && tick.Y <= 348) << "two pixels clear of the edge";
        }
    }
}

TEST(AutoTrace, GivesTicksOfSmallPicturesInHalfPixels)
{
    const RasterSize size{200, 349};
    clsFringes fringes;
    const clsMask mask = maskOf(size, true, circle({100, 170}, 90));
    ASSERT_EQ(trace(fringes, mask, straightFringes(size, 20.5, 30)), TraceOutcome::Done);
    ASSERT_EQ(fringes.NumFringes(), 6);
    for (int slot = 1; slot <= 6; ++slot)
        for (const Point& tick : fringes.Ticks(slot))
            EXPECT_EQ(tick.X, 30 * fringes.GetFringeOrder(slot) - 9.5);
}

// A picture turned by 90 degrees, traced the other way: the same, with x and y exchanged.
TEST(AutoTrace, HorizontalFringesAreTheTransposedCase)
{
    const RasterSize size{400, 360};
    const plain::Picture upright = straightFringes(size, 35, 30);
    clsFringes vertical, horizontal;
    trace(vertical, maskOf(size, false, circle({200, 170}, 150)), upright);
    trace(horizontal, maskOf({360, 400}, false, circle({170, 200}, 150)),
        plain::Transposed(upright), FringeDirection::Horizontal);
    vertical.TransposeAll();
    EXPECT_EQ(contentOf(horizontal), contentOf(vertical));
    EXPECT_EQ(horizontal.NumFringes(), 10) << "65, 95, ... 335 lie inside, and 50 + 2 does not";
}

TEST(AutoTrace, IgnoresContrastThatDoesNotPassTheThreshold)
{
    const RasterSize size{400, 360};
    const clsMask mask = maskOf(size, false, circle({200, 170}, 150));
    clsFringes fringes;
    trace(fringes, mask, straightFringes(size, 35, 40, 2.4)); // levels 118 to 122
    EXPECT_EQ(fringes.NumFringes(), 0);
    trace(fringes, mask, straightFringes(size, 35, 40, 6)); // 114 to 126
    EXPECT_GT(fringes.NumFringes(), 0);
}

// Ticks of straight fringes lie 12 rows apart. Traces start at rows 20, 40, 60 and 80; down to row
// 92 each of them has seven, down to row 104 the first one has eight.
TEST(AutoTrace, DiscardsFringesOfSevenTicks)
{
    const RasterSize size{400, 360};
    const plain::Picture picture = straightFringes(size, 35, 30);
    const struct {
        int LastClearRow, Fringes;
    } cases[] = {{92, 0}, {104, 12}};
    for (const auto& c : cases) {
        clsFringes fringes;
        trace(fringes, maskOf(size, false, rectangle(20, 381, 10, c.LastClearRow + 2)), picture);
        ASSERT_EQ(fringes.NumFringes(), c.Fringes) << c.LastClearRow;
        for (int slot = 1; slot <= c.Fringes; ++slot)
            EXPECT_EQ(fringes.Ticks(slot).size(), 8U);
    }
}

TEST(AutoTrace, JoinsTheHalvesThatAnObstructionCuts)
{
    const RasterSize size{400, 400};
    clsFringes fringes;
    const clsMask mask = maskOf(size, false, circle({200, 200}, 180), circle({200, 200}, 50));
    ASSERT_EQ(trace(fringes, mask, straightFringes(size, 35, 30)), TraceOutcome::Done);
    for (int order = 1; order <= 12; ++order) {
        const auto ticks = fringes.Ticks(fringes.GetFringeIndex(order));
        ASSERT_FALSE(ticks.empty()) << order;
        EXPECT_TRUE(std::ranges::any_of(ticks, [](Point p) { return p.Y < 150; }));
        EXPECT_TRUE(std::ranges::any_of(ticks, [](Point p) { return p.Y > 250; }));
        EXPECT_EQ(ticks.front().X, 5 + 30 * order);
        EXPECT_EQ(ticks.back().X, ticks.front().X);
    }
    EXPECT_EQ(fringes.GetFringeIndex(13), NoFringe);
}

// The trace of a known valley needs a slot too, until it is thrown away.
TEST(AutoTrace, KeepsTwoHundredFringesAndTellsThatTheStoreIsFull)
{
    for (const int count : {199, 200, 201}) {
        const RasterSize size{16 * count + 20, 120};
        clsFringes fringes;
        const auto outcome =
            trace(fringes, maskOf(size, false, rectangle(4, size.Width - 4, 2, 118)),
                straightFringes(size, 14, 16), FringeDirection::Vertical, FringeDensity::SuperFine);
        EXPECT_EQ(outcome, count >= 200 ? TraceOutcome::TooManyFringes : TraceOutcome::Done);
        EXPECT_EQ(fringes.NumFringes(), std::min(count, 200));
        EXPECT_EQ(fringes.Ticks(199)[0].X, 14 + 16 * 198);
    }
}

// One fringe down a very high picture: with a tick every 6 rows the store of the first is full at
// row 24000, and those further down start a second one.
TEST(AutoTrace, StopsAtAFullFringe)
{
    const RasterSize size{60, 25000};
    const plain::Picture picture = straightFringes(size, 30, 60);
    const clsMask mask = maskOf(size, false, rectangle(2, 58, 2, 24997));
    clsFringes expected, found;
    plain::AutoTrace(expected, mask, picture, FringeDirection::Vertical, FringeDensity::SuperFine);
    trace(found, mask, picture, FringeDirection::Vertical, FringeDensity::SuperFine);
    EXPECT_EQ(contentOf(found), contentOf(expected));
    ASSERT_EQ(found.NumFringes(), 2);
    EXPECT_EQ(found.Ticks(1).size(), 4000U);
}

TEST(AutoTrace, LeavesTheFringesWhenMaskAndPictureDoNotFit)
{
    const plain::Picture picture = straightFringes({400, 360}, 35, 30);
    const clsShape aperture = circle({200, 170}, 150);
    clsMask none, empty;
    empty.CreateMask(0, 0);
    const struct {
        const char* Name;
        clsMask Mask;
        RasterSize Size;
    } cases[] = {
        {"no mask", none, {400, 360}},
        {"empty mask", empty, {0, 0}},
        {"other size", maskOf({400, 361}, false, aperture), {400, 360}},
        {"doubled without need", maskOf({200, 180}, true, aperture), {400, 360}},
        {"pixels are missing", maskOf({400, 361}, false, aperture), {400, 361}},
    };
    for (const auto& c : cases) {
        clsFringes fringes;
        fringes.AddOrder(7);
        EXPECT_EQ(AutoTrace(fringes, c.Mask, picture.Pixels, c.Size, FringeDirection::Vertical,
                      FringeDensity::Normal),
            TraceOutcome::NothingTraced)
            << c.Name;
        EXPECT_EQ(fringes.NumFringes(), 1) << c.Name;
    }
}

TEST(AutoTrace, FindsNothingInTinyPictures)
{
    for (const RasterSize size : {RasterSize{1, 1}, {1, 50}, {50, 1}, {2, 2}, {3, 60}})
        for (const auto direction : {FringeDirection::Vertical, FringeDirection::Horizontal}) {
            clsFringes fringes;
            fringes.AddOrder(7);
            EXPECT_EQ(trace(fringes, maskOf(size, true, circle({0, 0}, 100)),
                          straightFringes(size, 0, 30), direction),
                TraceOutcome::Done);
            EXPECT_EQ(fringes.NumFringes(), 0);
        }
}

// Bent fringes with noise, dust and clipping, up to the border of the picture and beyond it.
plain::Picture randomFringes(RasterSize size, std::mt19937& random)
{
    const auto real = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    const double period = real(12, 50), tilt = real(-.4, .4), bend = real(-30, 30);
    const double contrast = real(5, 140), level = real(80, 170);
    std::normal_distribution<double> noise(0, real(0, 12));
    plain::Picture picture{size.Width, size.Height};
    for (int y = 0; y < size.Height; ++y)
        for (int x = 0; x < size.Width; ++x) {
            const double u = 2.0 * x / size.Width - 1, v = 2.0 * y / size.Height - 1;
            const double phase = (x + tilt * y + bend * (u * u + v * v + u * v * v)) / period;
            const double value = level + contrast * std::cos(2 * Pi * phase) + noise(random);
            picture.At(y, x) = static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));
        }
    for (int dust = 0; dust < 20; ++dust) {
        const int x = static_cast<int>(real(0, size.Width - 6));
        const int y = static_cast<int>(real(0, size.Height - 6));
        for (int i = 0; i < 36; ++i)
            picture.At(y + i / 6, x + i % 6) = dust % 2 ? 255 : 0;
    }
    return picture;
}

TEST(AutoTrace, FindsTheTicksOfThePlainTracer)
{
    std::mt19937 random(6);
    std::size_t ticks = 0;
    for (int i = 0; i < 96; ++i) {
        const bool doubled = i % 3 == 0;
        const int least = doubled ? 40 : 200, range = doubled ? 150 : 300;
        const RasterSize size{
            least + static_cast<int>(random() % range), least + static_cast<int>(random() % range)};
        const plain::Picture picture = randomFringes(size, random);
        const Point center{size.Width * .5, size.Height * .45};
        clsShape obstruction = circle({center.X + 5, center.Y}, size.Width * .15);
        if (i % 4 == 0)
            obstruction.Delete();
        const clsMask mask = maskOf(size, doubled, circle(center, size.Width * .48), obstruction);
        const auto direction = i % 2 == 0 ? FringeDirection::Vertical : FringeDirection::Horizontal;
        const auto density = static_cast<FringeDensity>(1 + i / 2 % 4);

        clsFringes expected, found;
        const bool hadRoom = plain::AutoTrace(expected, mask, picture, direction, density);
        EXPECT_EQ(trace(found, mask, picture, direction, density),
            hadRoom ? TraceOutcome::Done : TraceOutcome::TooManyFringes);
        ASSERT_EQ(contentOf(found), contentOf(expected)) << "picture " << i;
        ticks += static_cast<std::size_t>(found.TotalNumTicks());
    }
    EXPECT_GT(ticks, 5000U) << "the pictures test nothing";
}

} // namespace
} // namespace morvane
