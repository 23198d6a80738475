#include "interferogram/DragGeometry.h"

#include <cmath>

#include <gtest/gtest.h>

#include "analysis/ModMathLib.h"

namespace morvane {
namespace {

constexpr double Rounding = 1e-9; // of positions of a few hundred pixels

Point Polar(Point center, double length, double bearing)
{
    return {center.X + length * std::cos(bearing), center.Y - length * std::sin(bearing)};
}

void ExpectNear(Point a, Point b)
{
    EXPECT_NEAR(a.X, b.X, Rounding);
    EXPECT_NEAR(a.Y, b.Y, Rounding);
}

TEST(DragGeometry, OrthogonalFollowsTheLargerStep)
{
    const struct {
        const char* Name;
        Point At;
        bool Orthogonal;
        Point Expected;
    } rows[] = {
        // of (10, 20), dragged from (100, 100)
        {"free", {103, 96}, false, {13, 16}},
        {"level", {95, 104}, true, {5, 20}},
        {"upright", {103, 96}, true, {10, 16}},
        {"a tie is level", {97, 103}, true, {7, 20}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MovedPoint({10, 20}, {100, 100}, row.At, row.Orthogonal), row.Expected)
            << row.Name;
}

TEST(DragGeometry, ACircleStretchesOnOneSide)
{
    using enum ResizeAxis;
    const struct {
        const char* Name;
        Point Start;
        ResizeAxis Axis, Decided;
        Point At, Center, Radii;
    } rows[] = {
        // about (100, 100), half extents 40 and 30
        {"right, out", {140, 100}, Undecided, X, {150, 93}, {105, 100}, {45, NoPoint}},
        {"left, out", {60, 100}, Undecided, X, {50, 107}, {95, 100}, {45, NoPoint}},
        {"left, in", {60, 100}, Undecided, X, {80, 100}, {110, 100}, {30, NoPoint}},
        {"below, out", {100, 130}, Undecided, Y, {90, 150}, {100, 110}, {NoPoint, 40}},
        {"above, out", {100, 70}, Undecided, Y, {100, 50}, {100, 90}, {NoPoint, 40}},
        {"above, in", {100, 70}, Undecided, Y, {100, 90}, {100, 110}, {NoPoint, 20}},
        {"the diagonal is upright", {125, 75}, Undecided, Y, {125, 55}, {100, 90}, {NoPoint, 40}},
        {"decided before", {140, 100}, Y, Y, {150, 104}, {100, 102}, {NoPoint, 32}},
        {"through the other side", {140, 100}, Undecided, X, {40, 100}, {50, 100}, {10, NoPoint}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        ResizeAxis axis = row.Axis;
        const RoundFigure after = ResizedCircle({{100, 100}, {40, 30}, 0}, row.Start, row.At, axis);
        EXPECT_EQ(axis, row.Decided);
        EXPECT_EQ(after.Center, row.Center);
        EXPECT_EQ(after.Radii, row.Radii);
    }
}

// Of either axis both ends lie in opposite quadrants, and the tilts bring each end into all four.
TEST(DragGeometry, AnEllipseKeepsTheEndOppositeToTheOneDragged)
{
    const Point center{200, 150}, radii{80, 50};
    for (const double angle : {0.0, 0.4, -0.4, 1.2, -1.2, Pi / 2, -Pi / 2})
        for (const ResizeAxis axis : {ResizeAxis::X, ResizeAxis::Y})
            for (const double end : {0.0, Pi})
                for (const double outwards : {30.0, -20.0, -240.0}) {
                    const bool isX = axis == ResizeAxis::X;
                    const double bearing = angle + (isX ? 0 : -Pi / 2) + end;
                    const double radius = isX ? radii.X : radii.Y;
                    SCOPED_TRACE(testing::Message() << "tilt " << angle << ", axis " << isX
                                                    << ", end " << end << ", by " << outwards);
                    const Point start = Polar(center, radius, bearing);
                    // A step across the axis counts for nothing.
                    const Point at = Polar(Polar(start, outwards, bearing), 7, bearing + Pi / 2);
                    ResizeAxis decided = ResizeAxis::Undecided;
                    const RoundFigure after =
                        ResizedEllipse({center, radii, angle}, start, at, decided);

                    EXPECT_EQ(decided, axis);
                    EXPECT_EQ(isX ? after.Radii.Y : after.Radii.X, NoPoint);
                    const double grown = radius + outwards / 2;
                    EXPECT_NEAR(isX ? after.Radii.X : after.Radii.Y, std::abs(grown), Rounding);
                    ExpectNear(
                        Polar(after.Center, -grown, bearing), Polar(center, -radius, bearing));
                }
}

// Grabbed beside the end of its axis, in the next quadrant.
TEST(DragGeometry, ATiltedEllipseKeepsItsFarEndWhereverItIsGrabbed)
{
    const Point center{200, 150};
    const double tilt = 0.6;
    const Point start = Polar(center, 70, -0.1), at = Polar(start, 30, tilt);
    ResizeAxis axis = ResizeAxis::Undecided;
    const RoundFigure after = ResizedEllipse({center, {80, 50}, tilt}, start, at, axis);
    EXPECT_NEAR(after.Radii.X, 95, Rounding);
    ExpectNear(Polar(after.Center, -95, tilt), Polar(center, -80, tilt));
}

TEST(DragGeometry, AnEllipseKeepsTheAxisOfTheFirstStep)
{
    ResizeAxis axis = ResizeAxis::Y;
    const RoundFigure after = ResizedEllipse({{0, 0}, {80, 50}, 0}, {80, 0}, {90, -10}, axis);
    EXPECT_EQ(axis, ResizeAxis::Y);
    EXPECT_EQ(after.Radii, (Point{NoPoint, 55}));
}

TEST(DragGeometry, TurnsTakeTheShortWay)
{
    const Point center{100, 100};
    const struct {
        const char* Name;
        double From, To, Expected;
    } rows[] = {
        {"counter-clockwise", 0.3, 0.8, 0.5},
        {"clockwise", 0.3, -0.2, -0.5},
        {"across the seam", Pi - 0.1, -Pi + 0.1, 0.2},
        {"and back", -Pi + 0.1, Pi - 0.1, -0.2},
    };
    for (const auto& row : rows)
        for (const double start : {0.0, 3.1, -3.1, 1.6})
            EXPECT_NEAR(TurnBetween(Polar(center, 30, row.From), Polar(center, 50, row.To),
                            Polar(center, 40, start), center),
                row.Expected, Rounding)
                << row.Name << " from " << start;
    const Point start = Polar(center, 40, 0.5), to = Polar(center, 30, 0.7);
    EXPECT_EQ(TurnBetween(start, to, center, center), 0) << "start on the center";
    EXPECT_NEAR(TurnBetween(center, to, start, center), 0.2, Rounding) << "counts as no turn";
    EXPECT_NEAR(TurnBetween(to, center, start, center), -0.2, Rounding);
}

} // namespace
} // namespace morvane
