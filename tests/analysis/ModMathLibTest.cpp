#include "analysis/ModMathLib.h"

#include <cmath>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

namespace morvane {
namespace {

constexpr double Rounding = 1e-12; // of a few operations on numbers below 100

TEST(ModMathLibAngles, BearingsGoAroundTheWholeCircleWithYUp)
{
    const Point center{10, 20};
    const struct {
        Point At;
        double Bearing;
    } cases[] = {
        {{11, 20}, 0},
        {{11, 19}, Pi / 4},
        {{10, 19}, Pi / 2},
        {{9, 19}, 3 * Pi / 4},
        {{9, 20}, Pi},
        {{9, 21}, -3 * Pi / 4},
        {{10, 21}, -Pi / 2},
        {{11, 21}, -Pi / 4},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(VectorAngle(c.At, center), c.Bearing, Rounding) << c.At.X << ' ' << c.At.Y;
    EXPECT_NEAR(TurnAngle({10, 19}, {11, 19}, center), Pi / 4, Rounding);
}

TEST(ModMathLibAngles, SlopeAndQuadrantAtTheirLimits)
{
    EXPECT_EQ(SlopeAngle({1, 5}, {9, 5}), 0);
    EXPECT_EQ(SlopeAngle({1, 5}, {1, 4}), -Pi / 2);
    EXPECT_EQ(SlopeAngle({1, 5}, {1, 6}), Pi / 2);
    EXPECT_NEAR(SlopeAngle({0, 0}, {1, -1}), Pi / 4, Rounding);
    EXPECT_EQ(Atan2Quadrant(-1, 0), -Pi);
    EXPECT_NEAR(Atan2Quadrant(-1, 1), 3 * Pi / 4, Rounding);
    EXPECT_NEAR(Atan2Quadrant(-1, -1), -3 * Pi / 4, Rounding);
    EXPECT_NEAR(Atan2Quadrant(1, -1), -Pi / 4, Rounding);
}

TEST(ModMathLibCircle, GoesThroughItsPointsWhicheverChordIsLevel)
{
    const Point east{15, 7}, north{10, 2}, west{5, 7}, southEast{13, 11}; // (10, 7), radius 5
    const Point northEast{13, 3}, northWest{7, 3};
    const Point triples[][3] = {
        {east, west, north},
        {north, east, west},
        {east, north, west},
        {northEast, northWest, north},
        {north, northEast, northWest},
        {north, southEast, west},
    };
    for (const auto& t : triples) {
        const auto circle = CircleFrom3Points(t[0], t[1], t[2]);
        ASSERT_TRUE(circle);
        EXPECT_NEAR(circle->Center.X, 10, Rounding);
        EXPECT_NEAR(circle->Center.Y, 7, Rounding);
        EXPECT_NEAR(circle->Radius, 5, Rounding);
    }
    EXPECT_FALSE(CircleFrom3Points({1, 0}, {1, 5}, {1, 7}));
    EXPECT_FALSE(CircleFrom3Points({0, 1}, {5, 1}, {7, 1}));
    EXPECT_FALSE(std::isfinite(CircleFrom3Points({0, 0}, {1, 1}, {2, 2})->Radius));
}

// The point at parameter t on the outline of an ellipse.
Point OnEllipse(const TiltedEllipse& e, double t)
{
    const double along = e.RadiusX * std::cos(t), across = e.RadiusY * std::sin(t);
    return {e.Center.X + along * std::cos(e.Angle) + across * std::sin(e.Angle),
        e.Center.Y - along * std::sin(e.Angle) + across * std::cos(e.Angle)};
}

TEST(ModMathLibEllipse, ComesBackFromItsAxisAndAnyPoint)
{
    for (const double angle : {-1.2, -0.3, 0.0, 0.7, 1.5})
        for (const double t : {0.4, 1.2, Pi / 2, 2.5, 4.0}) {
            const TiltedEllipse truth{{50, 40}, 30, 12, angle};
            const Point a = OnEllipse(truth, 0), b = OnEllipse(truth, Pi), c = OnEllipse(truth, t);
            for (const auto& e : {EllipseFrom3Points(a, b, c), EllipseFrom3Points(c, a, b),
                     EllipseFrom3Points(b, c, a)}) {
                ASSERT_TRUE(e);
                EXPECT_NEAR(e->Center.X, 50, Rounding);
                EXPECT_NEAR(e->Center.Y, 40, Rounding);
                EXPECT_NEAR(e->RadiusX, 30, Rounding);
                EXPECT_NEAR(e->RadiusY, 12, 1e-10) << angle << ' ' << t; // ends amplify rounding
                EXPECT_NEAR(e->Angle, angle, Rounding);
            }
        }
}

TEST(ModMathLibEllipse, UprightAxisTakesItsSignFromTheClicks)
{
    const Point top{0, -10}, bottom{0, 10}, side{4, 0};
    EXPECT_EQ(EllipseFrom3Points(bottom, top, side)->Angle, Pi / 2);
    EXPECT_EQ(EllipseFrom3Points(top, bottom, side)->Angle, -Pi / 2);
    EXPECT_NEAR(EllipseFrom3Points(top, bottom, side)->RadiusY, 4, Rounding);
}

TEST(ModMathLibEllipse, ApexStraightAboveTheCenterOfATiltedAxis)
{
    // Axis along y = x / 2, half length sqrt(125). The apex (0, 5) has along = -sqrt 5 and
    // across = sqrt 20: b^2 = 20 / (1 - 5 / 125) = 125 / 6.
    const auto ellipse = EllipseFrom3Points({-10, -5}, {10, 5}, {0, 5});
    ASSERT_TRUE(ellipse);
    EXPECT_NEAR(ellipse->RadiusY, std::sqrt(125.0 / 6), Rounding);
}

TEST(ModMathLibEllipse, TiesBetweenLongestChords)
{
    // 2-3 is the axis when 1-3 or 1-2 is as long.
    EXPECT_EQ(EllipseFrom3Points({-1, 0}, {1, 0}, {0, 9})->Center, (Point{0.5, 4.5}));
    EXPECT_EQ(EllipseFrom3Points({-1, 0}, {0, 9}, {1, 0})->Center, (Point{0.5, 4.5}));
    // 1-3 is the axis when 1-2 is as long.
    EXPECT_EQ(EllipseFrom3Points({0, 9}, {-1, 0}, {1, 0})->Center, (Point{0.5, 4.5}));
}

TEST(ModMathLibEllipse, DegeneratePointsGiveNoneOrNoUsableRadius)
{
    EXPECT_FALSE(EllipseFrom3Points({1, 0}, {1, 5}, {1, 7}));
    EXPECT_FALSE(EllipseFrom3Points({0, 1}, {5, 1}, {7, 1}));
    EXPECT_FALSE(EllipseFrom3Points({3, 3}, {3, 3}, {3, 3}));
    EXPECT_FALSE(std::isfinite(EllipseFrom3Points({0, 0}, {8, 6}, {8, 6})->RadiusY));
}

TEST(ModMathLibCentroid, IsTheMeanOfTheUnsignedFan)
{
    const Point square[] = {{0, 0}, {4, 0}, {4, 2}, {0, 2}};
    EXPECT_NEAR(PolygonCentroid(square).X, 2, Rounding);
    EXPECT_NEAR(PolygonCentroid(square).Y, 1, Rounding);
    const Point dart[] = {{8, 0}, {2, 1}, {0, 8}, {0, 0}};
    // The corner bent in folds the fan from (8, 0): (2, 1) (0, 8) has area 20, (0, 8) (0, 0) has
    // 32, and both count as positive.
    EXPECT_NEAR(PolygonCentroid(dart).X, (20 * 10.0 / 3 + 32 * 8.0 / 3) / 52, Rounding);
    EXPECT_NEAR(PolygonCentroid(dart).Y, (20 * 9.0 / 3 + 32 * 8.0 / 3) / 52, Rounding);
}

TEST(ModMathLibCentroid, WithoutAreaThereIsNone)
{
    const Point none{NoPoint, NoPoint};
    const Point line[] = {{0, 0}, {1, 1}, {2, 2}, {5, 5}};
    const Point huge[] = {{0, 0}, {1e308, 0}, {0, 1e308}};
    EXPECT_EQ(PolygonCentroid(line), none);
    EXPECT_EQ(PolygonCentroid(std::span(line).first(2)), none);
    EXPECT_EQ(PolygonCentroid({}), none);
    EXPECT_EQ(PolygonCentroid(huge), none);
}

TEST(ModMathLibNumbers, GreatestCommonDivisor)
{
    EXPECT_EQ(GreatestCommonDivisor(0, 7), 7);
    EXPECT_EQ(GreatestCommonDivisor(7, 0), 7);
    EXPECT_EQ(GreatestCommonDivisor(48, 36), 12);
    EXPECT_EQ(GreatestCommonDivisor(-48, 36), 12);
    EXPECT_EQ(GreatestCommonDivisor(std::numeric_limits<std::int32_t>::min(), 6), 2);
}

TEST(ModMathLibProjection, ParallelFollowsTheTurnedAxes)
{
    // Seen from above, x runs right at azimuth -90 and y up.
    const Point above = ProjectPoint({2, 3, 9}, 0, -90, 0);
    EXPECT_NEAR(above.X, 2, Rounding);
    EXPECT_NEAR(above.Y, -3, Rounding);
    // Seen from the side, height runs up the screen, which counts down.
    EXPECT_NEAR(ProjectPoint({2, 3, 9}, 0, -90, 90).Y, -9, Rounding);
}

TEST(ModMathLibProjection, PerspectiveShrinksWithDepth)
{
    // The eye at height 10 above the origin: a point at height z is enlarged by 10 / (10 - z).
    const Point flat = ProjectPoint({1, 2, 0}, 0, -90, 0);
    for (const double z : {0.0, 5.0, -10.0}) {
        const Point p = ProjectPoint({1, 2, z}, 10, -90, 0);
        EXPECT_NEAR(p.X, flat.X * 10 / (10 - z), Rounding) << z;
        EXPECT_NEAR(p.Y, flat.Y * 10 / (10 - z), Rounding) << z;
    }
    EXPECT_EQ(ProjectPoint({1, 2, 10}, 10, -90, 0), (Point{NoPoint, NoPoint}));
}

TEST(ModMathLibText, SignificantDigits)
{
    using enum NumberStyle;
    const struct {
        double Value;
        int Digits;
        NumberStyle Style;
        const char* Text;
    } cases[] = {
        {0.30000000000001, 0, Automatic, "0.3"},
        {0.29999999999999, 0, Automatic, "0.3"},
        {0.999999999999996, 0, Automatic, "1"},
        {1.25000000000002, 0, Automatic, "1.25"},
        {0.25, 0, Automatic, "0.25"},
        {99999, 0, Plain, "99999"}, // five digits are no noise
        {1234567, 3, Automatic, "1.23E6"},
        {1234567, 3, Plain, "1230000"},
        {123456, 3, Automatic, "123000"},
        {0.001234, 2, Automatic, "0.0012"},
        {0.0001234, 2, Automatic, "1.2E-4"},
        {0.0001234, 2, Plain, "0.00012"},
        {-0.0995, 2, Automatic, "-0.1"},
        {9.96, 2, Scientific, "1E1"},
        {2.5, 1, Plain, "3"},
        {-2.5, 1, Plain, "-3"},
        {5000, 4, Scientific, "5E3"},
        {1e308, 0, Automatic, "1E308"},
        {0, 3, Automatic, "0"},
        {-0.0, 0, Plain, "0"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatSignificant(c.Value, c.Digits, c.Style), c.Text) << c.Value;
}

TEST(ModMathLibAxis, ExponentIsTheLeadingDigitOfTheSpan)
{
    EXPECT_EQ(AxisExponent(1, 1), 0);
    EXPECT_EQ(AxisExponent(0, 0.0346), 3);
    EXPECT_EQ(AxisExponent(-5, 4.7), 1);
    EXPECT_EQ(AxisExponent(-1e308, 1e308), 0);
}

TEST(ModMathLibAxis, RoundLimits)
{
    const struct {
        const char* Name;
        double Low, High;
        const char* Held; // of "frozen", "low", "high"
        double MinSpan, NiceLow, NiceHigh;
        int Count;
    } cases[] = {
        {"frozen", 0.3, 7.1, "frozen", NoPoint, 0.3, 7.1, 0},
        {"no span", 4, 4, "", NoPoint, 0, 1, 0},
        {"exact decade", 5, 6, "", NoPoint, 5, 6, 1},
        {"exact digit", 1, 4, "", NoPoint, 1, 4, 0},
        {"above one, to 1.2", 0, 1.1, "low", NoPoint, 0, 1.2, 12},
        {"above one, to 1.5", 0, 130, "low", NoPoint, 0, 150, 15},
        {"below one", 0, 9.7, "low", NoPoint, 0, 10, 10},
        {"above a digit", 0, 0.0031, "low", NoPoint, 0, 0.004, 4},
        {"below a digit", 0, 2.9, "low", NoPoint, 0, 3, 3},
        {"high fixed", 0.1, 3, "high", NoPoint, 0, 3, 3},
        {"both fixed", 0.1, 3, "low high", NoPoint, 0.1, 3, 3},
        {"least span", 0, 0.001, "low", 0.5, 0, 0.5, 1},
        {"both free", 0.5, 3.2, "", NoPoint, 0.3, 3.3, 3},
        {"both free, grown", 0.59, 3.48, "", NoPoint, 0.5, 5.5, 5},
        {"both free, grown from nine", 0.95, 10.3, "", NoPoint, 0, 12, 12},
    };
    for (const auto& c : cases) {
        double low = c.Low, high = c.High;
        const auto holds = [&c](const char* what) { return std::strstr(c.Held, what) != nullptr; };
        EXPECT_EQ(NiceAxisRange(low, high, holds("frozen"), holds("low"), holds("high"), c.MinSpan),
            c.Count)
            << c.Name;
        EXPECT_NEAR(low, c.NiceLow, Rounding) << c.Name;
        EXPECT_NEAR(high, c.NiceHigh, Rounding) << c.Name;
    }
}

TEST(ModMathLibAxis, FreeLimitsHoldAllData)
{
    for (const double low : {-1e6, -7.77, -0.001, 0.0, 0.0123, 5.55, 1e9})
        for (int i = 0; i < 300; ++i) {
            const double span = 1e-4 * std::pow(1.07, i);
            double niceLow = low, niceHigh = low + span;
            NiceAxisRange(niceLow, niceHigh, false, false, false, NoPoint);
            EXPECT_LE(niceLow, low) << span;
            EXPECT_GE(niceHigh, low + span) << low;
        }
}

TEST(ModMathLibAutoScale, RoundRanges)
{
    const struct {
        const char* Name;
        double Min, Max;
        const char* Free; // of "min", "max"
        double MinSpan, RoundMin, RoundMax;
        int Hint;
    } cases[] = {
        {"no span", 4, 4, "min max", NoPoint, 4, 4, 0},
        {"exact decade", 5, 6, "min max", NoPoint, 5, 6, 1},
        {"exact digit", 1, 4, "min max", NoPoint, 1, 4, 3},
        {"exact but for binary noise", 0.1, 0.4, "min max", NoPoint, 0.1, 0.4, 3},
        {"above one, to 1.2", 0, 1.1, "max", NoPoint, 0, 1.2, 0},
        {"just below the second step", 0, 1.19, "max", NoPoint, 0, 1.2, 0},
        {"above one, to 1.5", 0, 130, "max", NoPoint, 0, 150, 0},
        {"below one", 0, 9.7, "max", NoPoint, 0, 10, 0},
        {"above a digit", 0, 0.0031, "max", NoPoint, 0, 0.004, 0},
        {"below a digit", 0, 2.9, "max", NoPoint, 0, 3, 0},
        {"only min free", 0.1, 3, "min", NoPoint, 0, 3, 0},
        {"none free", 0.1, 3, "", NoPoint, 0.1, 3, 0},
        {"least span", 0, 0.001, "max", 0.5, 0, 0.5, 0},
        {"exact, below the least span", 0, 0.3, "min max", 0.5, 0, 0.5, 0},
        {"about zero", -0.02, 0.31, "min max", NoPoint, -0.04, 0.36, 0},
        {"a whole tenth but for binary noise", 0.3, 0.397, "min max", NoPoint, 0.3, 0.4, 0},
        {"tenth below", 0.5, 3.2, "min max", NoPoint, 0.3, 3.3, 0},
        {"grown from a digit", 0.59, 3.48, "min max", NoPoint, 0.4, 4.4, 0},
        {"grown from ten", 0.95, 10.65, "min max", NoPoint, 0, 12, 0},
        {"widened and grown from 1.2", 0.1, 1.23, "min max", NoPoint, 0, 1.5, 0},
        {"widened and grown from 1.5", 0.1, 1.55, "min max", NoPoint, 0, 2, 0},
        {"widened and grown from a digit", 0.58, 6.03, "min max", NoPoint, 0, 7, 0},
        {"widened and grown, off zero", 12.58, 18.03, "min max", NoPoint, 12, 19, 0},
        {"widened and grown from nine", 0.95, 10.35, "min max", NoPoint, 0, 12, 0},
    };
    for (const auto& c : cases) {
        double min = c.Min, max = c.Max;
        const auto isFree = [&c](const char* what) { return std::strstr(c.Free, what) != nullptr; };
        EXPECT_EQ(AutoScaleRange(min, max, false, isFree("min"), isFree("max"), c.MinSpan), c.Hint)
            << c.Name;
        EXPECT_NEAR(min, c.RoundMin, Rounding) << c.Name;
        EXPECT_NEAR(max, c.RoundMax, Rounding) << c.Name;
    }
}

TEST(ModMathLibAutoScale, FreeLimitsHoldAllDataAndTheLeastSpan)
{
    constexpr double noise = 1e-9; // of the span
    for (const double low : {-1e4, -7.77, -0.001, 0.0, 0.0123, 5.55, 1e5})
        for (const double least : {NoPoint, 0.5, 0.07})
            for (int i = 0; i < 300; ++i) {
                const double span = 1e-2 * std::pow(1.03, i);
                double min = low, max = low + span;
                AutoScaleRange(min, max, false, true, true, least);
                EXPECT_LE(min, low + noise * span) << span;
                EXPECT_GE(max, low + span - noise * span) << low;
                EXPECT_TRUE(least == NoPoint || max - min >= least * (1 - noise)) << span;
            }
}

TEST(ModMathLibAutoScale, LogarithmicLimitsGoOutToDecades)
{
    const struct {
        double Min, Max;
        bool FreeMin, FreeMax;
        double RoundMin, RoundMax;
    } cases[] = {
        {2, 250, true, true, 1, 1000},
        {2, 250, true, false, 1, 250},
        {2, 250, false, true, 2, 1000},
        {2, 250, false, false, 2, 250},
        {1, 1000, true, true, 1, 1000},
        {0, 250, true, true, 100, 1000},
        {0, 100, true, true, 10, 100},
        {0, 100, true, false, 10, 100},
        {5, 5, true, true, 1, 10},
        {10, 10, true, true, 10, 100},
        {-2, -1, true, true, -2, -1},
    };
    for (const auto& c : cases) {
        double min = c.Min, max = c.Max;
        EXPECT_EQ(AutoScaleRange(min, max, true, c.FreeMin, c.FreeMax, NoPoint), 10);
        EXPECT_DOUBLE_EQ(min, c.RoundMin) << c.Min << " to " << c.Max;
        EXPECT_DOUBLE_EQ(max, c.RoundMax) << c.Min << " to " << c.Max;
    }
}

TEST(ModMathLibAutoScale, HintIsTheOnlyDigitOfAFixedSpan)
{
    EXPECT_EQ(ScaleDivisionHint(0, 0.3), 3);
    EXPECT_EQ(ScaleDivisionHint(0.1, 0.4), 3);
    EXPECT_EQ(ScaleDivisionHint(0, 3.04), 3);
    EXPECT_EQ(ScaleDivisionHint(0, 3.1), 0);
    EXPECT_EQ(ScaleDivisionHint(0, 9.96), 1);
    EXPECT_EQ(ScaleDivisionHint(1, 1), 0);
    EXPECT_EQ(ScaleDivisionHint(2, 1), 0);
}

} // namespace
} // namespace morvane
