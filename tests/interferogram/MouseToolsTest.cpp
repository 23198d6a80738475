#include "interferogram/MouseTools.h"

#include <cmath>

#include <gtest/gtest.h>

#include "FringePicture.h"
#include "TemporaryFolder.h"
#include "ToolDesk.h"

namespace morvane {
namespace {

constexpr int Both = ShiftKey + ControlKey;
constexpr double Rounding = 1e-9;

const Point Triangle[] = {{100, 100}, {200, 100}, {150, 200}};
const Point Extremes[] = {{100, 150}, {200, 150}, {150, 90}, {150, 210}};

std::vector<Point> PointsOfCircle(int count)
{
    std::vector<Point> points;
    for (int i = 0; i < count; ++i)
        points.push_back({200 + 100 * std::cos(i * 0.12), 200 + 100 * std::sin(i * 0.12)});
    return points;
}

// --- Drawing

TEST(MouseToolsDrawing, CircleAndEllipseEndWithTheirLastClick)
{
    ToolDesk desk;
    SetCircle(desk.Document.Aperture, 300, 100, 20);
    desk.Hover(320, 100);
    desk.Tools.StartShape(ShapeRole::Aperture, ShapeKind::Circle);
    EXPECT_EQ(desk.Document.Aperture.GetShapeType(), ShapeKind::None) << "the old figure goes";
    EXPECT_EQ(desk.Pointer, PointerShape::AddShape) << "and is forgotten";
    EXPECT_EQ(desk.Hint, "Click 4 points to define a circle.");
    EXPECT_EQ(desk.Box.Controls(), (ToolControls{false, true, false}));

    desk.BeClean();
    desk.Click(std::span(Extremes).first(3));
    EXPECT_EQ(desk.Marks.size(), 3u);
    EXPECT_EQ(desk.Changes, 0);
    const int repaints = desk.Repaints;
    desk.Click(Extremes[3]);
    EXPECT_EQ(desk.Document.Aperture.GetShapeType(), ShapeKind::Circle);
    EXPECT_EQ(desk.Document.Aperture.GetCenter(), (Point{150, 150}));
    EXPECT_EQ(desk.Document.Aperture.GetRadii(), (Point{50, 60}));
    EXPECT_EQ(desk.Tools.Target(), DrawTarget::FringeCenters);
    EXPECT_TRUE(desk.Tools.Clicks().empty());
    EXPECT_EQ(desk.Box.Controls(), ToolControls());
    EXPECT_FALSE(desk.Document.Analysis.Mask.MaskValid);
    EXPECT_FALSE(desk.Document.AnalysisValid);
    EXPECT_EQ(desk.Changes, 1);
    EXPECT_GT(desk.Repaints, repaints);

    desk.Tools.StartShape(ShapeRole::Obstruction, ShapeKind::Ellipse);
    EXPECT_EQ(desk.Box.Controls(), (ToolControls{false, false, true}));
    desk.Click(std::vector<Point>{{250, 100}, {350, 100}, {300, 120}});
    EXPECT_EQ(desk.Document.Obstruction.GetShapeType(), ShapeKind::Ellipse);
    EXPECT_NEAR(desk.Document.Obstruction.GetRadii().X, 50, Rounding);
    EXPECT_NEAR(desk.Document.Obstruction.GetRadii().Y, 20, Rounding);

    desk.Tools.StartShape(ShapeRole::Aperture, ShapeKind::Circle);
    desk.Click(std::vector<Point>(4, Point{100, 100}));
    EXPECT_EQ(desk.Document.Aperture.GetShapeType(), ShapeKind::None) << "no figure";
    EXPECT_EQ(desk.Tools.Target(), DrawTarget::FringeCenters) << "ends all the same";
}

TEST(MouseToolsDrawing, APolygonClosesNearItsFirstPoint)
{
    const auto fifty = PointsOfCircle(50);
    auto fiftyNear = fifty;
    fiftyNear.back() = {fifty[0].X + 2, fifty[0].Y};
    const auto with = [](std::initializer_list<Point> more) {
        std::vector<Point> points(std::begin(Triangle), std::end(Triangle));
        points.insert(points.end(), more);
        return points;
    };
    const struct {
        const char* Name;
        std::vector<Point> Points;
        int Vertices; // 0: still being drawn
    } rows[] = {
        {"fourth at both limits", with({{103, 97}}), 3},
        {"fourth beyond in x", with({{103.01, 100}}), 0},
        {"fourth beyond in y", with({{100, 96.99}}), 0},
        {"fifth", with({{100, 200}, {99, 101}}), 4},
        {"third never closes", {{100, 100}, {200, 100}, {101, 101}}, 0},
        {"49", PointsOfCircle(49), 0},
        {"50 are the ceiling", fifty, 50},
        {"the 50th closes, too", fiftyNear, 49},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        ToolDesk desk;
        desk.Tools.StartShape(ShapeRole::Aperture, ShapeKind::Polygon);
        desk.Click(row.Points);
        EXPECT_EQ(desk.Document.Aperture.GetVertices(), row.Vertices);
        EXPECT_EQ(desk.Tools.Clicks().size(), row.Vertices ? 0 : row.Points.size());
        EXPECT_EQ(
            desk.Tools.Target(), row.Vertices ? DrawTarget::FringeCenters : DrawTarget::Aperture);
    }
}

TEST(MouseToolsDrawing, APressOnAnObjectDragsItAndIsNoClick)
{
    ToolDesk desk;
    desk.Document.Fringes.InsertOrder(1, std::vector<Point>{{50, 50}});
    SetCircle(desk.Document.Aperture, 200, 150, 30);
    desk.Document.Grid.SetBounds(20, 20, 380, 280);
    desk.Tools.StartShape(ShapeRole::Obstruction, ShapeKind::Circle);
    desk.Click(Extremes[0]);
    for (const Point on : {Point{51, 49}, {230, 150}, {21, 150}}) {
        desk.Down(on.X, on.Y);
        EXPECT_NE(desk.Tools.Selected().Type, ObjectType::None);
        desk.Up();
        EXPECT_EQ(desk.Tools.Clicks().size(), 1u);
        EXPECT_EQ(desk.Tools.Target(), DrawTarget::Obstruction);
    }
    desk.Click({51, 49}, ControlKey);
    EXPECT_EQ(desk.NumTicks(1), 1) << "Ctrl deletes centers only while they are placed";
}

TEST(MouseToolsDrawing, ClicksReleasedWithAKeyDownWaitForTheNext)
{
    ToolDesk desk;
    desk.Tools.StartShape(ShapeRole::Aperture, ShapeKind::Circle);
    for (const Point& at : PointsOfCircle(60)) {
        desk.Down(at.X, at.Y);
        desk.Up(ShiftKey);
    }
    EXPECT_EQ(desk.Tools.Clicks().size(), 50u) << "the buffer is full";
    EXPECT_EQ(desk.Marks.size(), 50u);
    desk.Click({10, 10});
    EXPECT_EQ(desk.Document.Aperture.GetShapeType(), ShapeKind::Circle) << "passed, not reached";
    EXPECT_EQ(desk.Tools.Target(), DrawTarget::FringeCenters);
}

TEST(MouseToolsDrawing, StopAndClearCancel)
{
    ToolDesk desk;
    desk.Click({50, 50}); // a center of order 1
    const int repaints = desk.Repaints;
    desk.Tools.StopDrawingObject();
    EXPECT_EQ(desk.Repaints, repaints) << "nothing to stop";

    desk.Tools.SetEditMode(false);
    desk.Tools.StartShape(ShapeRole::Aperture, ShapeKind::Polygon);
    EXPECT_TRUE(desk.Tools.EditMode());
    desk.Click(Triangle);
    desk.Tools.StopDrawingObject();
    EXPECT_TRUE(desk.Tools.Clicks().empty());
    EXPECT_EQ(desk.Box.Controls(), ToolControls());
    EXPECT_EQ(desk.Tools.Target(), DrawTarget::FringeCenters);
    EXPECT_GT(desk.Repaints, repaints);

    SetCircle(desk.Document.Obstruction, 300, 100, 20);
    desk.Tools.StartShape(ShapeRole::Aperture, ShapeKind::Polygon);
    desk.Click(Triangle);
    desk.BeClean();
    desk.Tools.ClearShape(ShapeRole::Obstruction);
    EXPECT_EQ(desk.Document.Obstruction.GetShapeType(), ShapeKind::None);
    EXPECT_TRUE(desk.Tools.Clicks().empty());
    EXPECT_EQ(desk.Tools.Target(), DrawTarget::FringeCenters);
    EXPECT_FALSE(desk.Document.Analysis.Mask.MaskValid);
    EXPECT_EQ(desk.Changes, 1);
    desk.Click({60, 60});
    EXPECT_EQ(desk.NumTicks(1), 2) << "back to placing centers";
}

TEST(MouseToolsDrawing, AGridTakesTwoRoundedCorners)
{
    ToolDesk desk;
    desk.Tools.StartGrid();
    EXPECT_EQ(desk.Hint, "Click 2 points to define the grid.");
    desk.Click({240.5, 130.2});
    EXPECT_EQ(desk.Document.Grid.PixelWidth, -1);
    desk.Click({39.6, 30.5});
    const clsGrid& grid = desk.Document.Grid;
    EXPECT_EQ(grid.GetVertex(0), (Point{40, 30}));
    EXPECT_EQ(grid.GetVertex(2), (Point{240, 130}));
    EXPECT_EQ(desk.Tools.Target(), DrawTarget::FringeCenters);
    EXPECT_EQ(desk.Changes, 1);
}

// --- Fringe centers

TEST(MouseToolsCenters, ClicksPlaceThemAtTheCurrentOrder)
{
    ToolDesk desk;
    desk.Box.SetOrder(7);
    desk.Click({50, 60});
    EXPECT_EQ(desk.Changes, 1);
    EXPECT_FALSE(desk.Document.AnalysisValid);
    EXPECT_TRUE(desk.Document.Analysis.Mask.MaskValid);
    desk.Click({90, 60});
    EXPECT_EQ(desk.Changes, 1) << "the document has been marked already";
    EXPECT_EQ(desk.Tick(7, 1), (Point{50, 60}));
    EXPECT_EQ(desk.Tick(7, 2), (Point{90, 60}));
    EXPECT_EQ(desk.Marks, (std::vector<Point>{{50, 60}, {90, 60}}));

    desk.Down(10, 10);
    desk.Up(ControlKey); // waits
    desk.Down(30, 10);
    desk.Up(Both);
    EXPECT_EQ(desk.NumTicks(7), 2);
    desk.Tools.SaveFringe(8);
    EXPECT_EQ(desk.NumTicks(8), 2);
    EXPECT_TRUE(desk.Tools.Clicks().empty());
    desk.BeClean();
    desk.Tools.SaveFringe(8);
    EXPECT_EQ(desk.Changes, 0) << "nothing to save";

    desk.Box.TypeOrder("500");
    const int repaints = desk.Repaints;
    desk.Click({200, 10});
    EXPECT_EQ(desk.Document.Fringes.TotalNumTicks(), 4) << "refused by the store";
    EXPECT_GT(desk.Repaints, repaints) << "its mark must not stay";
}

TEST(MouseToolsCenters, CtrlDeletesAndShiftSelectsTheOrder)
{
    ToolDesk desk;
    desk.Document.Fringes.InsertOrder(5, std::vector<Point>{{50, 50}, {90, 50}});
    desk.Down(51, 50, ShiftKey);
    desk.Drag(150, 150, ShiftKey);
    desk.Up(ShiftKey);
    EXPECT_EQ(desk.Orders, std::vector<int>{5});
    EXPECT_EQ(desk.Tick(5, 1), (Point{50, 50})) << "nothing moves";
    EXPECT_EQ(desk.Changes, 0);

    desk.Click({50, 50}, ControlKey + AltKey);
    EXPECT_EQ(desk.NumTicks(5), 2) << "Alt means no action";
    const int repaints = desk.Repaints;
    desk.Click({50, 50}, ControlKey);
    EXPECT_EQ(desk.NumTicks(5), 1);
    EXPECT_EQ(desk.Tick(5, 1), (Point{90, 50}));
    EXPECT_GT(desk.Repaints, repaints);
    EXPECT_EQ(desk.Changes, 1);
    EXPECT_FALSE(desk.Document.AnalysisValid);

    desk.Tools.DeleteHoverCenter();
    EXPECT_EQ(desk.NumTicks(5), 1) << "the one deleted is forgotten";
    desk.Hover(90, 50);
    desk.Tools.DeleteHoverCenter();
    EXPECT_EQ(desk.NumTicks(5), 0);
}

TEST(MouseToolsCenters, ADragOffThePictureDeletes)
{
    ToolDesk desk;
    desk.View.ScrollTo(240, 0); // the last column, 639, is at 399
    desk.Document.Fringes.InsertOrder(5, std::vector<Point>{{600, 50}, {620, 80}});
    desk.Down(361, 50);
    desk.Drag(400, 50);
    EXPECT_EQ(desk.Tick(5, 1), (Point{639, 50})) << "the last column itself is inside";
    EXPECT_EQ(desk.Xors, std::vector<ObjectType>(2, ObjectType::FringeCenter));
    desk.Drag(400.5, 50);
    EXPECT_EQ(desk.NumTicks(5), 1);
    EXPECT_EQ(desk.Tick(5, 1), (Point{620, 80}));
    EXPECT_EQ(desk.Tools.Selected(), ImageObject());
    EXPECT_EQ(desk.Xors.back(), ObjectType::None) << "wiped, and nothing drawn again";
    desk.Drag(200, 50);
    desk.Up();
    EXPECT_EQ(desk.NumTicks(5), 1);
    EXPECT_TRUE(desk.Tools.Clicks().empty());

    for (const Point off : {Point{380, -1}, {380, 480}, {-241, 80}}) {
        desk.Document.Fringes.DeleteAll();
        desk.Document.Fringes.InsertOrder(5, std::vector<Point>{{620, 80}});
        desk.Down(380, 80);
        desk.Drag(off.X, off.Y);
        EXPECT_EQ(desk.NumTicks(5), 0);
        desk.Up();
    }
}

TEST(MouseToolsCenters, OrdersAreInsertedDeletedAndRenumbered)
{
    ToolDesk desk;
    const std::vector<Point> tick{{50, 50}};
    const auto orders = [&desk] {
        std::string text;
        for (int index = 1; index <= desk.Document.Fringes.NumFringes(); ++index)
            text += std::to_string(desk.Document.Fringes.GetFringeOrder(index)) + ' ';
        return text;
    };
    for (const int order : {1, 2, 5, 199})
        desk.Document.Fringes.InsertOrder(order, tick);
    EXPECT_TRUE(desk.Tools.InsertFringe(2));
    EXPECT_EQ(orders(), "1 3 6 200 ");
    EXPECT_EQ(desk.Changes, 1);
    desk.BeClean();
    EXPECT_FALSE(desk.Tools.InsertFringe(2)) << "200 has no place to go";
    EXPECT_EQ(orders(), "1 3 6 200 ");
    EXPECT_EQ(desk.Changes, 0);

    desk.Tools.RenumberFringe(3, 3);
    EXPECT_EQ(desk.Changes, 0);
    desk.Tools.RenumberFringe(4, 3);
    EXPECT_EQ(orders(), "1 4 6 200 ") << "not in use: only the number";
    EXPECT_EQ(desk.Changes, 1);
    EXPECT_FALSE(desk.Document.AnalysisValid);
    desk.Tools.RenumberFringe(1, 4);
    EXPECT_EQ(orders(), "1 5 199 ") << "combined: those above close up";
    EXPECT_EQ(desk.NumTicks(1), 2);
    desk.Tools.DeleteFringe(5);
    EXPECT_EQ(orders(), "1 198 ");
}

// --- Drags

// Centers of what is dragged: circle with its right side at (130, 100), polygon with a vertex at
// (200, 60) and an edge through (230, 60), grid with its corner at (300, 200), ellipse with an end
// of its long axis at (120, 220), tick at (350, 30).
void FillDesk(ToolDesk& desk)
{
    SetCircle(desk.Document.Aperture, 100, 100, 30);
    desk.Document.Obstruction.Save(
        ShapeKind::Polygon, std::vector<Point>{{200, 60}, {260, 60}, {260, 120}, {200, 120}});
    desk.Document.Grid.SetBounds(300, 200, 380, 280);
    desk.Document.Fringes.InsertOrder(5, std::vector<Point>{{350, 30}});
}

Point PlaceOf(const ToolDesk& desk, ObjectType type)
{
    switch (type) {
    case ObjectType::Aperture:
        return desk.Document.Aperture.GetCenter();
    case ObjectType::Obstruction:
        return desk.Document.Obstruction.GetCenter();
    case ObjectType::Grid:
        return desk.Document.Grid.GetCenter();
    default:
        return desk.Tick(5, 1);
    }
}

TEST(MouseToolsDrag, MovesWhateverTheKeysDoNotChange)
{
    using enum ObjectType;
    const Point circle{130, 100}, edge{230, 60}, corner{300, 200}, border{340, 200}, tick{350, 30};
    const struct {
        const char* Name;
        ObjectType Type;
        Point Grab;
        int AtPress, AtMove;
        Point Moved; // by a step of (10, 4)
    } rows[] = {
        {"circle", Aperture, circle, 0, 0, {10, 4}},
        {"orthogonal", Aperture, circle, Both, Both, {10, 0}},
        {"orthogonal from now on", Aperture, circle, 0, Both, {10, 0}},
        {"Ctrl on a circle", Aperture, circle, ControlKey, ControlKey, {10, 4}},
        {"Ctrl later", Aperture, circle, 0, ControlKey, {10, 4}},
        {"Ctrl later, orthogonal", Aperture, circle, Both, ControlKey, {10, 0}},
        {"Shift on an edge", Obstruction, edge, ShiftKey, ShiftKey, {10, 4}},
        {"Shift later on an edge", Obstruction, edge, 0, ShiftKey, {10, 4}},
        {"grid border", Grid, border, ShiftKey, ShiftKey, {10, 4}},
        {"grid border, Ctrl", Grid, border, ControlKey, ControlKey, {10, 4}},
        {"grid corner", Grid, corner, 0, 0, {10, 4}},
        {"grid corner, Ctrl later", Grid, corner, 0, ControlKey, {10, 4}},
        {"grid, orthogonal", Grid, corner, Both, Both, {10, 0}},
        {"tick", FringeCenter, tick, 0, 0, {10, 4}},
        {"tick ignores Shift", FringeCenter, tick, 0, ShiftKey, {10, 4}},
        {"tick ignores Ctrl", FringeCenter, tick, Both, ControlKey, {10, 0}},
        {"tick ignores Alt", FringeCenter, tick, 0, AltKey, {10, 4}},
        {"Alt stops a shape", Aperture, circle, 0, AltKey, {0, 0}},
        {"Alt at the press", Aperture, circle, AltKey, 0, {0, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        ToolDesk desk;
        FillDesk(desk);
        const Point before = PlaceOf(desk, row.Type);
        desk.Down(row.Grab.X, row.Grab.Y, row.AtPress);
        const int repaints = desk.Repaints;
        desk.Drag(row.Grab.X + 10, row.Grab.Y + 4, row.AtMove);
        const Point after = PlaceOf(desk, row.Type);
        EXPECT_NEAR(after.X - before.X, row.Moved.X, Rounding);
        EXPECT_NEAR(after.Y - before.Y, row.Moved.Y, Rounding);
        EXPECT_EQ(desk.Repaints, repaints) << "no full repaint during a drag";
        const bool moved = row.Moved != Point{0, 0};
        const bool isShape = row.Type == Aperture || row.Type == Obstruction;
        EXPECT_EQ(desk.Xors, std::vector<ObjectType>(moved ? 2 : 0, row.Type));
        EXPECT_EQ(desk.Changes, moved);
        EXPECT_EQ(desk.Document.Analysis.Mask.MaskValid, !(moved && isShape));
        EXPECT_EQ(desk.Document.AnalysisValid, !moved || row.Type == Grid);
        desk.Up(row.AtMove);
        EXPECT_EQ(desk.Tools.Selected(), ImageObject());
    }
}

TEST(MouseToolsDrag, KeysBeginANewPhaseAtTheLastPosition)
{
    ToolDesk desk;
    const std::vector<Point> ellipse{{100, 200}, {200, 200}, {150, 220}};
    desk.Document.Aperture.Save(ShapeKind::Ellipse, ellipse);
    const clsShape& shape = desk.Document.Aperture;
    const auto expect = [&shape](Point center, Point radii, double angle) {
        EXPECT_NEAR(shape.GetCenter().X, center.X, Rounding);
        EXPECT_NEAR(shape.GetCenter().Y, center.Y, Rounding);
        EXPECT_NEAR(shape.GetRadii().X, radii.X, Rounding);
        EXPECT_NEAR(shape.GetRadii().Y, radii.Y, Rounding);
        EXPECT_NEAR(shape.GetAngle(), angle, Rounding);
    };
    desk.Down(200, 200);
    desk.Drag(210, 190);
    expect({160, 190}, {50, 20}, 0);
    desk.Drag(230, 190, ShiftKey); // resized by 20 from (210, 190), its right end
    expect({170, 190}, {60, 20}, 0);
    desk.Drag(170, 130, ControlKey); // about (170, 190), from (230, 190): a quarter turn
    expect({170, 190}, {60, 20}, 1.5707963267948966);
    desk.Drag(175, 140, AltKey); // nothing, but a position
    desk.Drag(180, 144, Both); // from there, with the step of the longer axis
    expect({175, 190}, {60, 20}, 1.5707963267948966);
    desk.Up(Both);
    EXPECT_EQ(desk.Changes, 1);
}

TEST(MouseToolsDrag, ANewPhaseDecidesItsAxisAnew)
{
    ToolDesk desk;
    FillDesk(desk);
    const clsShape& circle = desk.Document.Aperture;
    desk.Down(130, 100, ShiftKey);
    desk.Drag(140, 100, ShiftKey);
    EXPECT_EQ(circle.GetRadii(), (Point{35, 30}));
    desk.Drag(200, 150, Both); // level: the center is at (165, 100) then, the mouse below it
    desk.Drag(200, 160, ShiftKey);
    EXPECT_EQ(circle.GetRadii(), (Point{35, 35}));
    EXPECT_EQ(circle.GetCenter(), (Point{165, 105}));
}

TEST(MouseToolsDrag, TakesTheFirstOfSeveralObjects)
{
    ToolDesk desk;
    desk.Document.Fringes.InsertOrder(5, std::vector<Point>{{130, 100}});
    SetCircle(desk.Document.Aperture, 100, 100, 30);
    SetCircle(desk.Document.Obstruction, 100, 100, 30);
    desk.Document.Grid.SetBounds(130, 100, 380, 280);
    const auto taken = [&desk] {
        desk.Down(130, 100);
        const ObjectType type = desk.Tools.Selected().Type;
        desk.Up();
        return type;
    };
    EXPECT_EQ(taken(), ObjectType::FringeCenter);
    desk.Document.Fringes.DeleteAll();
    EXPECT_EQ(taken(), ObjectType::Aperture);
    desk.Document.Aperture.Delete();
    EXPECT_EQ(taken(), ObjectType::Obstruction);
    desk.Document.Obstruction.Delete();
    EXPECT_EQ(taken(), ObjectType::Grid);
}

TEST(MouseToolsDrag, VerticesAndCornersResize)
{
    ToolDesk desk;
    FillDesk(desk);
    const clsShape& polygon = desk.Document.Obstruction; // about (230, 90)
    desk.Down(200, 60);
    desk.Drag(190, 65);
    EXPECT_EQ(polygon.GetVertex(1), (Point{190, 65})) << "only the vertex moves";
    EXPECT_EQ(polygon.GetVertex(2), (Point{260, 60}));
    desk.Drag(200, 60);
    desk.Up();
    desk.Down(200, 60, ShiftKey);
    desk.Drag(170, 30, ShiftKey); // twice as far from the center
    EXPECT_NEAR(polygon.GetVertex(3).X, 290, Rounding);
    EXPECT_NEAR(polygon.GetVertex(3).Y, 150, Rounding);
    desk.Up(ShiftKey);

    const clsGrid& grid = desk.Document.Grid;
    desk.Down(381, 279, ShiftKey);
    desk.Drag(340.4, 260.2, ShiftKey);
    EXPECT_EQ(grid.GetVertex(0), (Point{300, 200})) << "the opposite corner stays";
    EXPECT_EQ(grid.PixelWidth, 40);
    EXPECT_EQ(grid.PixelHeight, 60);
    desk.Up(ShiftKey);
    desk.Down(300, 200, ShiftKey);
    desk.Drag(320, 220, ShiftKey);
    EXPECT_EQ(grid.GetVertex(2), (Point{340, 260}));
}

// --- Hand

TEST(MouseToolsHand, PansWithinTheLimits)
{
    ToolDesk desk; // 640 by 480 in 400 by 300
    desk.View.SetZoomPercent(200);
    desk.View.Layout(400, 300, 1, ToolDesk::Picture);
    desk.View.ScrollTo(100, 100);
    desk.Tools.SetEditMode(false);
    EXPECT_EQ(desk.Pointer, PointerShape::Hand);
    desk.Down(200, 150);
    const struct {
        Point At;
        int Left, Top;
    } steps[] = {{{180, 170}, 110, 90}, {{-2000, 150}, 440, 100}, {{2000, 2000}, 0, 0}};
    for (const auto& [at, left, top] : steps) {
        desk.Drag(at.X, at.Y);
        EXPECT_EQ(desk.View.Horizontal().Value, left);
        EXPECT_EQ(desk.View.Vertical().Value, top);
    }
    EXPECT_EQ(desk.Scrolls, 3);
    desk.Up();
    desk.Hover(100, 100);
    EXPECT_EQ(desk.Scrolls, 3) << "the pan is over";

    desk.View.SetZoomPercent(75);
    desk.View.Layout(400, 500, 1, ToolDesk::Picture);
    desk.Down(200, 150);
    desk.Drag(170, 120);
    EXPECT_EQ(desk.View.Horizontal().Value, 40);
    EXPECT_EQ(desk.View.Vertical().Value, 0) << "all of it shows";
}

TEST(MouseToolsHand, ClicksZoom)
{
    ToolDesk desk;
    desk.Tools.SetEditMode(false);
    desk.Click({200, 150}, ShiftKey);
    EXPECT_EQ(desk.Zooms, std::vector<int>{150});
    EXPECT_EQ(desk.View.Horizontal().Value, 67); // 200 - 400 / 2 / 1.5, and so on
    EXPECT_EQ(desk.View.Vertical().Value, 50);
    desk.Click({200, 150}, ControlKey);
    desk.Click({200, 150}, Both);
    desk.Click({200, 150}, ShiftKey + AltKey);
    EXPECT_EQ(desk.Zooms, (std::vector<int>{150, 100}));
    for (const auto& [last, keys] : {std::pair{1600, ShiftKey}, {25, ControlKey}}) {
        desk.ZoomTo(last);
        const ScrollBar before = desk.View.Horizontal();
        desk.Click({10, 10}, keys);
        EXPECT_EQ(desk.Zooms.back(), last) << "the end of the list";
        EXPECT_EQ(desk.View.Horizontal(), before);
    }
}

// --- Popup, activity, keys, status

TEST(MouseToolsPopup, TakesTheNextMouseEvent)
{
    ToolDesk desk;
    FillDesk(desk);
    desk.Box.SetKind(ShapeRole::Aperture, ShapeKind::Ellipse);
    desk.Tools.Press(MouseButton::Right, 130, 100, AltKey);
    ASSERT_TRUE(desk.Popup);
    EXPECT_TRUE(desk.Popup->ClearAperture);
    EXPECT_FALSE(desk.Popup->DeleteCenter);
    EXPECT_EQ(desk.Popup->AddApertureCaption, "Add Elliptical Aperture");
    EXPECT_TRUE(desk.Box.PopupActive);
    EXPECT_EQ(desk.Tools.Selected(), ImageObject());

    desk.Hover(10, 20);
    EXPECT_EQ(desk.Position, "") << "moves rest";
    desk.Down(50, 50);
    EXPECT_FALSE(desk.Box.PopupActive);
    EXPECT_TRUE(desk.Tools.Clicks().empty()) << "the press only ends the menu";
    desk.Box.PopupActive = true;
    desk.Up();
    EXPECT_FALSE(desk.Box.PopupActive);
    EXPECT_EQ(desk.Document.Fringes.TotalNumTicks(), 1);

    desk.Tools.SetEditMode(false);
    desk.Popup.reset();
    desk.Tools.Press(MouseButton::Right, 350, 30, 0);
    EXPECT_TRUE(desk.Popup && desk.Popup->DeleteCenter) << "in the hand tool, too";
    desk.Tools.DeleteHoverCenter();
    EXPECT_EQ(desk.NumTicks(5), 0);
}

TEST(MouseToolsPopup, AReleaseEndsADragAllTheSame)
{
    ToolDesk desk;
    FillDesk(desk);
    desk.Down(130, 100);
    desk.Tools.Press(MouseButton::Right, 10, 10, 0);
    desk.Up();
    EXPECT_EQ(desk.Tools.Selected(), ImageObject());

    desk.Tools.SetEditMode(false);
    desk.Down(200, 150);
    desk.Tools.Press(MouseButton::Right, 10, 10, 0);
    desk.Up();
    desk.Hover(100, 100);
    EXPECT_EQ(desk.Scrolls, 0);
}

TEST(MouseToolsActivity, OnlyTheActiveInterferogramActs)
{
    const auto behind = [](ToolDesk& desk) { desk.Active = false; };
    const auto otherView = [](ToolDesk& desk) { desk.Document.ActiveView = ViewType::Zernikes; };
    for (void (*rest)(ToolDesk&) : {+behind, +otherView}) {
        ToolDesk desk;
        FillDesk(desk);
        rest(desk);
        desk.Click({50, 50});
        desk.Down(130, 100);
        desk.Drag(140, 100);
        desk.Tools.Press(MouseButton::Right, 130, 100, 0);
        EXPECT_EQ(desk.Document.Fringes.TotalNumTicks(), 1);
        EXPECT_EQ(desk.Tools.Selected(), ImageObject());
        EXPECT_EQ(desk.Position, "");
        EXPECT_FALSE(desk.Popup);
    }
    ToolDesk desk;
    FillDesk(desk);
    desk.Down(130, 100);
    desk.Active = false;
    desk.Up();
    EXPECT_EQ(desk.Tools.Selected(), ImageObject()) << "a release always ends a drag";
}

TEST(MouseToolsKeys, ChangePointerAndHintWithTheMouseStill)
{
    ToolDesk desk;
    FillDesk(desk);
    desk.Hover(130, 100);
    EXPECT_EQ(desk.Pointer, PointerShape::MoveShape);
    desk.Tools.KeysChanged(ShiftKey);
    EXPECT_EQ(desk.Pointer, PointerShape::ResizeShape);
    EXPECT_EQ(desk.Hint, "Drag mouse to resize aperture.");
    desk.Tools.KeysChanged(ControlKey);
    EXPECT_EQ(desk.Pointer, PointerShape::ResizeShape) << "kept";
    EXPECT_EQ(desk.Hint, "Drag mouse to resize aperture.");
    desk.Tools.KeysChanged(Both);
    EXPECT_EQ(desk.Pointer, PointerShape::MoveShapeOrtho);
    desk.Pointer.reset();
    desk.Tools.KeysChanged(Both);
    EXPECT_FALSE(desk.Pointer) << "only changes count";
    desk.Hover(10, 10);
    EXPECT_EQ(desk.Pointer, PointerShape::Default);
    EXPECT_EQ(desk.Hint, "Click to add a fringe center.");
}

TEST(MouseToolsKeys, SpaceStepsThroughTheOrders)
{
    ToolDesk desk;
    desk.Box.SetOrder(5);
    for (const int shift : {0, ShiftKey, ControlKey, Both, AltKey})
        desk.Tools.SpaceKey(shift);
    EXPECT_EQ(desk.Orders, (std::vector<int>{6, 4}));
}

TEST(MouseToolsStatus, ShowsPositionAndIntensity)
{
    ToolDesk desk;
    const TemporaryFolder folder;
    WritePicture(VerticalFringes(300, 200, 8), folder / "a.bmp");
    ASSERT_TRUE(desk.Document.LoadFileIntoDataBuffer(folder / "a.bmp", true));
    desk.Hover(12.9, 34.9);
    EXPECT_EQ(desk.Position, "(12 ,34)");
    EXPECT_EQ(desk.Intensity, "i: " + std::to_string(desk.Document.GetIntensity(12, 34)));
    desk.Hover(320.5, 10);
    EXPECT_EQ(desk.Position, "(320 ,10)");
    EXPECT_EQ(desk.Intensity, "i:");
}

} // namespace
} // namespace morvane
