#include "analysis/Pupil.h"

#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace morvane {

namespace {

clsShape roundShape(ShapeKind kind, Point center, Point radii)
{
    clsShape shape(ShapeRole::Aperture);
    shape.SetShapeType(kind);
    shape.SetCenter(center);
    shape.SetRadii(radii);
    return shape;
}

clsShape polygon(const std::vector<Point>& vertices)
{
    clsShape shape(ShapeRole::Aperture);
    shape.Save(ShapeKind::Polygon, vertices);
    return shape;
}

constexpr double Rounding = 1e-12; // relative, of the few operations of a circle

constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(PupilSetScalefactors, StretchesACircleAndKeepsAnEllipseInside)
{
    Pupil pupil;
    clsShape circle = roundShape(ShapeKind::Circle, {100, 80}, {50, 40});
    pupil.SetScalefactors(circle);
    EXPECT_EQ(pupil.CenterX, 100);
    EXPECT_EQ(pupil.CenterY, 80);
    EXPECT_EQ(pupil.ScaleX, 1.0 / 50);
    EXPECT_EQ(pupil.ScaleY, 1.0 / 40);
    EXPECT_EQ(pupil.ApertureType, ShapeKind::Circle);

    clsShape ellipse = roundShape(ShapeKind::Ellipse, {10, 20}, {30, 60});
    pupil.SetScalefactors(ellipse);
    EXPECT_EQ(pupil.CenterX, 10);
    EXPECT_EQ(pupil.CenterY, 20);
    EXPECT_EQ(pupil.ScaleX, 1.0 / 60);
    EXPECT_EQ(pupil.ScaleY, 1.0 / 60);
    EXPECT_EQ(pupil.ApertureType, ShapeKind::Ellipse);
}

TEST(PupilSetScalefactors, PutsTheSmallestCircleThroughThreeVerticesRoundAPolygon)
{
    std::vector<Point> fifty(MaxVertices); // on a circle, so every triple gives it
    for (int i = 0; i < MaxVertices; ++i)
        fifty[i] = {200 + 90 * std::cos(i * 0.1256), 150 + 90 * std::sin(i * 0.1256)};
    const struct {
        const char* Name;
        std::vector<Point> Vertices;
        Point Center;
        double Radius;
    } cases[] = {
        {"square", {{10, 10}, {30, 10}, {30, 30}, {10, 30}}, {20, 20}, std::sqrt(200.0)},
        {"vertex inside", {{0, 0}, {80, 0}, {40, 40}, {40, 5}, {80, 60}}, {40, 30}, 50},
        // The circle on the longest side alone would have a radius of 40.
        {"obtuse triangle", {{0, 0}, {80, 0}, {40, 20}}, {40, -30}, 50},
        {"corners of the limit", fifty, {200, 150}, 90},
    };
    for (const auto& c : cases) {
        clsShape shape = polygon(c.Vertices);
        Pupil pupil;
        pupil.SetScalefactors(shape);
        EXPECT_NEAR(pupil.CenterX, c.Center.X, c.Radius * 1e-9) << c.Name;
        EXPECT_NEAR(pupil.CenterY, c.Center.Y, c.Radius * 1e-9) << c.Name;
        EXPECT_NEAR(1 / pupil.ScaleX, c.Radius, c.Radius * 1e-9) << c.Name;
        EXPECT_EQ(pupil.ScaleX, pupil.ScaleY) << c.Name;
        EXPECT_NEAR(shape.GetRadii().X * pupil.ScaleX, 1, Rounding) << c.Name;
        EXPECT_NEAR(shape.GetRadii().Y * pupil.ScaleY, 1, Rounding) << c.Name;
    }
}

TEST(PupilSetScalefactors, KeepsCenterAndScalesForUnusableShapes)
{
    const Pupil before{7, 8, 0.25, 0.5, ShapeKind::Circle};
    clsShape cases[] = {
        clsShape(ShapeRole::Aperture),
        roundShape(ShapeKind::Circle, {1, 1}, {0, 0}),
        roundShape(ShapeKind::Circle, {1, 1}, {5, 0}),
        roundShape(ShapeKind::Circle, {1, 1}, {5, 1e-320}), // the reciprocal is infinite
        roundShape(ShapeKind::Ellipse, {1, 1}, {0, 0}),
        roundShape(ShapeKind::Ellipse, {1, 1}, {5, Infinite}),
        polygon({{1, 1}, {2, 1}, {9, 1}}),
        polygon({{4, 4}, {4, 4}, {4, 4}}),
        polygon({{1, 1}, {2, 2}, {NotANumber, 4}}),
        polygon({{0, 0}, {1, 1}, {2, 2}}), // on a slant: a circle that is not finite
        polygon({{1e200, 0}, {0, 1e200}, {-1e200, 5}}),
    };
    for (clsShape& shape : cases) {
        Pupil pupil = before;
        pupil.SetScalefactors(shape);
        const auto name = testing::Message() << "case " << &shape - cases;
        EXPECT_EQ(pupil.CenterX, before.CenterX) << name;
        EXPECT_EQ(pupil.CenterY, before.CenterY) << name;
        EXPECT_EQ(pupil.ScaleX, before.ScaleX) << name;
        EXPECT_EQ(pupil.ScaleY, before.ScaleY) << name;
        EXPECT_EQ(pupil.ApertureType, shape.GetShapeType()) << name;
    }
}

TEST(PupilCells, RoundHalvesToEven)
{
    const Pupil pupil{10, 20, 0.5, 0.25, ShapeKind::Circle};
    EXPECT_EQ(pupil.Column(0.25), 10); // 10.5
    EXPECT_EQ(pupil.Column(0.75), 12); // 11.5
    EXPECT_EQ(pupil.Column(-1), 8);
    EXPECT_EQ(pupil.Row(0.125), 20); // 20.5
    EXPECT_EQ(pupil.Row(1), 24);
}

TEST(PupilTrimRim, IsThreePercentOfTheMeanRadius)
{
    const struct {
        double RadiusX, RadiusY;
        int Rim;
    } cases[] = {{40, 40, 1}, {10, 10, 0}, {200, 100, 4}};
    for (const auto& c : cases)
        EXPECT_EQ((Pupil{0, 0, 1 / c.RadiusX, 1 / c.RadiusY, ShapeKind::Circle}.TrimRim()), c.Rim)
            << c.RadiusX << " " << c.RadiusY;
    EXPECT_EQ(Pupil{}.TrimRim(), 0);
}

} // namespace morvane
