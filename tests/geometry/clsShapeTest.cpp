#include "geometry/clsShape.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RecordingDevice.h"
#include "TextParser.h"
#include "analysis/ModMathLib.h"

namespace morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

constexpr double Rounding = 1e-12; // of a few operations on numbers below 100
constexpr int NoVertex = 2147483647;

clsShape Shape(ShapeKind type, std::vector<Point> points)
{
    clsShape shape(ShapeRole::Aperture);
    shape.Save(type, points);
    return shape;
}

clsShape Square() // center (2, 2)
{
    return Shape(ShapeKind::Polygon, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
}

clsShape Ellipse() // half axes 50 level and 20
{
    return Shape(ShapeKind::Ellipse, {{50, 100}, {150, 100}, {100, 80}});
}

void ExpectNear(Point at, Point expected)
{
    EXPECT_NEAR(at.X, expected.X, Rounding);
    EXPECT_NEAR(at.Y, expected.Y, Rounding);
}

TEST(clsShapeSave, ACircleSpansTheExtentsOfItsPoints)
{
    const clsShape circle = Shape(ShapeKind::Circle, {{10, 5}, {2, 9}, {30, 7}, {12, 25}});
    EXPECT_EQ(circle.GetShapeType(), ShapeKind::Circle);
    EXPECT_EQ(circle.GetCenter(), (Point{16, 15}));
    EXPECT_EQ(circle.GetRadii(), (Point{14, 10}));
}

TEST(clsShapeSave, UnusablePointsGiveNoShape)
{
    const std::vector<Point> fiftyOne(51, Point{1, 2});
    const struct {
        const char* Name;
        ShapeKind Type;
        std::vector<Point> Points;
    } cases[] = {
        {"no points", ShapeKind::Circle, {}},
        {"circle, all x equal", ShapeKind::Circle, {{5, 1}, {5, 2}, {5, 3}, {5, 9}}},
        {"circle, all y equal", ShapeKind::Circle, {{1, 5}, {2, 5}, {3, 5}, {9, 5}}},
        {"circle beyond double", ShapeKind::Circle, {{-1e308, -1e308}, {1e308, 1e308}}},
        {"ellipse of two points", ShapeKind::Ellipse, {{1, 1}, {5, 9}}},
        {"ellipse, all x equal", ShapeKind::Ellipse, {{5, 1}, {5, 2}, {5, 3}}},
        {"ellipse, third on the axis' end", ShapeKind::Ellipse, {{0, 0}, {8, 6}, {8, 6}}},
        {"ellipse beyond double", ShapeKind::Ellipse, {{0, 0}, {1e308, 1e308}, {0, 5}}},
        {"polygon of two corners", ShapeKind::Polygon, {{0, 0}, {4, 4}}},
        {"polygon of 51 corners", ShapeKind::Polygon, fiftyOne},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Shape(c.Type, c.Points).GetShapeType(), ShapeKind::None) << c.Name;
}

TEST(clsShapeSave, APolygonKeepsItsCornersAndTheyAreNoCircles)
{
    clsShape shape = Square();
    EXPECT_EQ(shape.GetVertices(), 4);
    EXPECT_EQ(shape.GetVertex(3), (Point{4, 4}));
    for (const int outside : {0, 5, -1, NoVertex}) {
        EXPECT_EQ(shape.GetVertex(outside), Point()) << outside;
        shape.SetVertex({9, 9}, outside);
    }
    ExpectNear(shape.GetCenter(), {2, 2});
    shape.Save(ShapeKind::Circle, std::vector<Point>{{0, 0}, {2, 2}});
    EXPECT_EQ(shape.GetVertices(), 0);
    EXPECT_EQ(shape.GetVertex(1), Point());
    EXPECT_TRUE(shape.Vertices().empty());
}

TEST(clsShapeEdit, MovingACornerMovesTheCentroid)
{
    clsShape shape = Shape(ShapeKind::Polygon, {{0, 0}, {3, 0}, {0, 3}});
    shape.SetVertex({0, 6}, 3);
    ExpectNear(shape.GetCenter(), {1, 2});
}

TEST(clsShapeEdit, APolygonMovesAsAWhole)
{
    clsShape shape = Square();
    shape.SetCenter({12, 1});
    for (int i = 1; i <= 4; ++i)
        ExpectNear(shape.GetVertex(i), {Square().GetVertex(i).X + 10, Square().GetVertex(i).Y - 1});
}

TEST(clsShapeEdit, WithoutAreaAPolygonStaysWhereItIs)
{
    const std::vector<Point> line{{0, 0}, {1, 1}, {5, 5}};
    clsShape shape = Shape(ShapeKind::Polygon, line);
    EXPECT_EQ(shape.GetCenter(), Point());
    shape.SetCenter({9, 9});
    shape.Rotate(1);
    shape.Resize({4, 4}, 1);
    EXPECT_THAT(shape.Vertices(), ElementsAreArray(line));
}

TEST(clsShapeEdit, CopyTakesWhatItsTypeIsMadeOf)
{
    clsShape polygon(ShapeRole::Obstruction);
    polygon.SetRadii({7, 8});
    polygon.SetAngle(0.5);
    polygon.Copy(Square());
    ExpectNear(polygon.GetCenter(), {2, 2});
    EXPECT_THAT(polygon.Vertices(), ElementsAreArray(Square().Vertices()));
    EXPECT_EQ(polygon.GetRadii(), (Point{7, 8}));
    EXPECT_EQ(polygon.GetAngle(), 0.5);

    clsShape ellipse = Square();
    ellipse.Copy(Ellipse());
    EXPECT_EQ(ellipse.GetShapeType(), ShapeKind::Ellipse);
    EXPECT_EQ(ellipse.GetRadii(), Ellipse().GetRadii());
    EXPECT_EQ(ellipse.GetCenter(), Ellipse().GetCenter());
}

TEST(clsShapeEdit, SettingTheTypeStartsAnew)
{
    clsShape shape = Square();
    shape.SetShapeType(ShapeKind{4});
    EXPECT_EQ(shape.GetVertices(), 4);
    shape.SetShapeType(ShapeKind::Polygon);
    EXPECT_EQ(shape.GetVertices(), 0);
    EXPECT_EQ(shape.GetCenter(), (Point{0, 0}));
}

TEST(clsShapeResize, RadiiNotGivenStay)
{
    clsShape shape = Ellipse();
    shape.Resize({NoPoint, 30}, NoVertex);
    EXPECT_EQ(shape.GetRadii(), (Point{50, 30}));
    shape.Resize({60, NoPoint}, NoVertex);
    EXPECT_EQ(shape.GetRadii(), (Point{60, 30}));
}

TEST(clsShapeResize, APolygonScalesAboutItsCenter)
{
    clsShape shape = Square();
    for (const int vertex : {0, 5})
        shape.Resize({10, 10}, vertex);
    shape.Resize({NoPoint, 10}, 1);
    EXPECT_THAT(shape.Vertices(), ElementsAreArray(Square().Vertices()));
    shape.Resize({std::sqrt(8.0) * 3, 0}, 2);
    const Point corners[] = {{-4, -4}, {8, -4}, {8, 8}, {-4, 8}};
    for (int i = 0; i < 4; ++i)
        ExpectNear(shape.GetVertex(i + 1), corners[i]);
}

TEST(clsShapeRotate, AnEllipseStaysWithinAQuarterTurn)
{
    const struct {
        double From, Delta, To;
    } cases[] = {
        {1.5, 0.2, 1.7 - Pi},
        {-1.5, -0.2, Pi - 1.7},
        {0.5, 0.2, 0.7},
        {0, Pi / 2, Pi / 2},
    };
    for (const auto& c : cases) {
        clsShape shape = Ellipse();
        shape.SetAngle(c.From);
        shape.Rotate(c.Delta);
        EXPECT_NEAR(shape.GetAngle(), c.To, Rounding);
    }
}

TEST(clsShapeRotate, APolygonTurnsCounterClockwiseOnTheScreen)
{
    clsShape shape = Square();
    shape.Rotate(Pi / 2);
    ExpectNear(shape.GetVertex(2), {0, 0}); // from the upper right to the upper left
    ExpectNear(shape.GetVertex(3), {4, 0});
}

TEST(clsShapeFind, PolygonCornersComeBeforeEdges)
{
    const clsShape shape = Shape(ShapeKind::Polygon, {{0, 0}, {100, 0}, {100, 100}, {0, 100}});
    const struct {
        const char* Name;
        Point At;
        ShapePart Part;
        int Vertex;
    } cases[] = {
        {"corner at both limits", {103, 3}, ShapePart::Vertex, 2},
        {"edge at the limit", {50, 3}, ShapePart::Edge, 1},
        {"beyond the limit", {50, 3.01}, ShapePart::None, NoVertex},
        {"the closing edge", {-2, 50}, ShapePart::Edge, 4},
        {"on an edge's extension", {5000, 2}, ShapePart::Edge, 1},
        {"inside", {50, 50}, ShapePart::None, NoVertex},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(shape.Find(c.At).Part, c.Part) << c.Name;
        EXPECT_EQ(shape.Find(c.At).Vertex, c.Vertex) << c.Name;
    }
}

TEST(clsShapeFind, AnEdgeWithoutLengthEndsTheSearch)
{
    const clsShape shape =
        Shape(ShapeKind::Polygon, {{0, 0}, {100, 0}, {100, 0}, {100, 100}, {0, 100}});
    EXPECT_EQ(shape.Find({50, 0}).Part, ShapePart::Edge);
    EXPECT_EQ(shape.Find({50, 100}).Part, ShapePart::None);
}

TEST(clsShapeFind, RoundOutlines)
{
    clsShape tilted = Ellipse();
    tilted.SetAngle(Pi / 4); // its long axis points to the upper right
    const double along = 50 / std::sqrt(2.0);
    clsShape circle = Shape(ShapeKind::Circle, {{50, 80}, {150, 120}});
    circle.SetAngle(1); // of no meaning for a circle
    clsShape flat = circle;
    flat.SetRadii({0, 20});
    const clsShape none(ShapeRole::Aperture);
    const struct {
        const char* Name;
        const clsShape& Figure;
        Point At;
        ShapePart Part;
    } cases[] = {
        {"end of the long axis", tilted, {100 + along, 100 - along}, ShapePart::EllipseOutline},
        {"its mirror image", tilted, {100 + along, 100 + along}, ShapePart::None},
        {"circle, level", circle, {153, 100}, ShapePart::CircleOutline},
        {"circle, beyond", circle, {153.01, 100}, ShapePart::None},
        {"circle, straight up", circle, {100, 77}, ShapePart::CircleOutline},
        {"circle, straight down", circle, {100, 117}, ShapePart::CircleOutline},
        {"circle, center", circle, {100, 100}, ShapePart::None},
        {"no radius, center", flat, {100, 100}, ShapePart::CircleOutline},
        {"no radius, beside", flat, {100, 101}, ShapePart::None},
        {"none", none, {0, 0}, ShapePart::None},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.Figure.Find(c.At).Part, c.Part) << c.Name;
        EXPECT_EQ(c.Figure.Find(c.At).Vertex, NoVertex) << c.Name;
    }
}

std::vector<DeviceCall> Drawn(const clsShape& shape, const ImageMapping& map)
{
    RecordingDevice device;
    shape.Draw(device, map, RasterOp::Xor);
    for (const DeviceCall& call : device.Calls) {
        EXPECT_EQ(call.With, (Pen{White, 1}));
        EXPECT_EQ(call.Op, RasterOp::Xor);
    }
    EXPECT_EQ(device.CurrentPen(), Pen());
    EXPECT_EQ(device.CurrentRasterOp(), RasterOp::Copy);
    return device.Calls;
}

TEST(clsShapeDraw, ACircleIsOneEllipseWithItsLowerRightEdgeIncluded)
{
    const clsShape circle = Shape(ShapeKind::Circle, {{50, 80}, {150, 120}});
    const auto calls = Drawn(circle, {0.5, 10, 20});
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].What, DeviceCall::Kind::Ellipse);
    EXPECT_EQ(calls[0].Box, (DeviceRect{20, 30, 71, 51}));
    clsShape flat = circle;
    flat.SetRadii({10, 0});
    EXPECT_TRUE(Drawn(flat, {}).empty());
}

TEST(clsShapeDraw, AnEllipseHasSegmentsByItsSizeOnTheDevice)
{
    const struct {
        double Radius, Zoom;
        std::size_t Segments;
    } cases[] = {{50, 1, 20}, {200, 1, 50}, {200, 4, 100}, {5000, 1, 200}, {1e300, 16, 200}};
    for (const auto& c : cases) {
        clsShape shape = Ellipse();
        shape.SetRadii({5, c.Radius});
        const auto calls = Drawn(shape, {c.Zoom, 0, 0});
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(calls[0].Points.size(), c.Segments + 1) << c.Radius;
    }
    // Quarters of the outline of 20 segments.
    const auto outline = Drawn(Ellipse(), {})[0].Points;
    EXPECT_EQ(outline[0], (DevicePoint{150, 100}));
    EXPECT_EQ(outline[5], (DevicePoint{100, 120}));
    EXPECT_EQ(outline[10], (DevicePoint{50, 100}));
    EXPECT_EQ(outline[20], outline[0]);
}

TEST(clsShapeDraw, APolygonIsClosedFromItsLastCorner)
{
    const auto calls = Drawn(Square(), {2, 1, 0});
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_THAT(calls[0].Points,
        ElementsAre(DevicePoint{-2, 8}, DevicePoint{-2, 0}, DevicePoint{6, 0}, DevicePoint{6, 8},
            DevicePoint{-2, 8}));
    clsShape empty(ShapeRole::Aperture);
    empty.SetShapeType(ShapeKind::Polygon);
    EXPECT_TRUE(Drawn(empty, {}).empty());
}

clsShape Loaded(const std::string& block)
{
    TextParser parser(block);
    clsShape shape(ShapeRole::Aperture);
    shape.LoadFromFile(parser);
    return shape;
}

TEST(clsShapeBlock, HasAllLinesWhateverTheType)
{
    clsShape shape(ShapeRole::Obstruction);
    shape.Save(ShapeKind::Polygon, std::vector<Point>{{0, 0}, {-0.5, 0}, {0, 3}});
    shape.Save(ShapeKind::Circle, std::vector<Point>{{-2, 0}, {1, 5}});
    shape.SetAngle(-0.25);
    std::string text;
    shape.SaveToFile(text);
    EXPECT_EQ(text,
        "Obstruction\r\nShapeType, 1 \r\nCenter,-0.5, 2.5\r\nRadiusX, 1.5\r\n"
        "RadiusY, 2.5\r\nAngle,-0.25\r\nNumVertices, 3 \r\nVertex, 0, 0\r\n"
        "Vertex,-0.5, 0\r\nVertex, 0, 3\r\nEndShape\r\n");
    std::string nothing;
    clsShape(ShapeRole::None).SaveToFile(nothing);
    EXPECT_EQ(nothing, "");
}

TEST(clsShapeBlock, ComesBackToTheBitAndLeavesTheNextLine)
{
    clsShape shape = Shape(ShapeKind::Polygon, {{0.1, 1.0 / 3}, {1e17, 2}, {-7, 9e-9}});
    shape.SetRadii({0.1 + 0.2, 7});
    std::string text;
    shape.SaveToFile(text);
    TextParser parser(text + "Next");
    parser->Readline(); // "Aperture" is the document's
    clsShape read(ShapeRole::Aperture);
    read.LoadFromFile(parser);
    EXPECT_EQ(read.GetCenter(), shape.GetCenter());
    EXPECT_EQ(read.GetRadii(), shape.GetRadii());
    EXPECT_THAT(read.Vertices(), ElementsAreArray(shape.Vertices()));
    ASSERT_TRUE(parser->Readline());
    EXPECT_EQ(parser->GetKeyword(), "next");
}

TEST(clsShapeBlock, NumbersOutOfRangeAreHeldToTheirLimits)
{
    EXPECT_EQ(Loaded("ShapeType, 3\nNumVertices, 51").GetVertices(), 50);
    EXPECT_EQ(Loaded("ShapeType, 3\nNumVertices,-1").GetVertices(), 0);
    EXPECT_EQ(Loaded("ShapeType, 3\nNumVertices, 1e300").GetVertices(), 50);
    EXPECT_EQ(Loaded("ShapeType, 3\nNumVertices, 2").GetVertex(2), (Point{0, 0}));
    for (const char* type : {"4", "-1", "1e99", "what"})
        EXPECT_EQ(Loaded(std::string("ShapeType, ") + type).GetShapeType(), ShapeKind::None);
}

TEST(clsShapeResize, ACornerOnTheCenterHasNoBearing)
{
    clsShape shape = Loaded("ShapeType 3\nCenter 4 4\nNumVertices 2\nVertex 4 4\nVertex 8 8");
    shape.Resize({10, 0}, 1);
    EXPECT_THAT(shape.Vertices(), ElementsAre(Point{4, 4}, Point{8, 8}));
}

TEST(clsShapeBlock, CornersBeyondFiftyAndUnknownWordsAreDropped)
{
    std::string block = "What is this\nSHAPETYPE 3 NumVertices 50 junk RadiusX 5\n";
    for (int i = 1; i <= 52; ++i)
        block += "Vertex, " + std::to_string(i) + ", 7\n";
    block += "RadiusY: 2.5 Center; 1 2\nEndShape RadiusY 9\nRadiusY, 9";
    const clsShape shape = Loaded(block);
    EXPECT_EQ(shape.GetVertices(), 50);
    EXPECT_EQ(shape.GetVertex(50), (Point{50, 7}));
    EXPECT_EQ(shape.GetRadii(), (Point{0, 2.5}));
    EXPECT_EQ(shape.GetCenter(), (Point{1, 2}));
}

} // namespace
} // namespace morvane
