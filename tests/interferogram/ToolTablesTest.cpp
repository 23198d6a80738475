#include "interferogram/ToolTables.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

using enum PointerShape;
using enum ObjectType;

constexpr int NumShifts = 4;
constexpr std::optional<PointerShape> Keep;

ToolSituation Over(ObjectType type, int part)
{
    ToolSituation situation;
    situation.Hover.Type = type;
    situation.Hover.Part = static_cast<ObjectPart>(part);
    return situation;
}

ToolSituation Drawing(DrawTarget target, ShapeKind kind)
{
    ToolSituation situation;
    situation.Target = target;
    situation.DrawShapeType = kind;
    return situation;
}

ToolSituation WithHand(ToolSituation situation)
{
    situation.EditMode = false;
    return situation;
}

ToolSituation Dragging(ToolSituation situation)
{
    situation.IsDragging = true;
    return situation;
}

TEST(ToolTables, Pointers)
{
    const auto circle = Drawing(DrawTarget::Aperture, ShapeKind::Circle);
    const struct {
        const char* Name;
        ToolSituation Of;
        std::optional<PointerShape> Expected[NumShifts];
    } rows[] = {
        {"hand", WithHand({}), {Hand, ZoomIn, ZoomOut, Keep}},
        {"hand over the grid", WithHand(Over(Grid, 5)), {Hand, ZoomIn, ZoomOut, Keep}},
        {"aperture", circle, {AddShape, AddShape, AddShape, AddShape}},
        {"obstruction", Drawing(DrawTarget::Obstruction, ShapeKind::Polygon),
            {AddShape, AddShape, AddShape, AddShape}},
        {"centers", {}, {Default, Default, Default, Default}},
        {"grid drawn", Drawing(DrawTarget::Grid, ShapeKind::Polygon),
            {Default, Default, Default, Default}},
        {"center", Over(FringeCenter, 4), {Default, SelectFringe, ClearFringe, MoveShapeOrtho}},
        {"center dragged", Dragging(Over(FringeCenter, 4)), {Default, Keep, Keep, MoveShapeOrtho}},
        {"grid edge", Over(Grid, 5), {MoveShape, MoveShape, MoveShape, MoveShapeOrtho}},
        {"grid corner", Over(Grid, 6), {MoveShape, ResizeShape, MoveShape, MoveShapeOrtho}},
        {"circle", Over(Aperture, 1), {MoveShape, ResizeShape, Keep, MoveShapeOrtho}},
        {"ellipse", Over(Obstruction, 2), {MoveShape, ResizeShape, RotateShape, MoveShapeOrtho}},
        {"polygon edge", Over(Aperture, 3), {MoveShape, Keep, RotateShape, MoveShapeOrtho}},
        {"vertex", Over(Obstruction, 4), {MoveShape, ResizeShape, RotateShape, MoveShapeOrtho}},
    };
    for (const auto& row : rows) {
        for (int shift = 0; shift < NumShifts; ++shift) {
            EXPECT_EQ(PointerFor(row.Of, shift), row.Expected[shift]) << row.Name << ' ' << shift;
            EXPECT_EQ(PointerFor(row.Of, shift + AltKey), Keep) << row.Name << " Alt " << shift;
        }
    }
}

TEST(ToolTables, Hints)
{
    const char* const circle = "Click 4 points to define a circle.";
    const char* const ellipse = "Click 3 points to define an ellipse.";
    const char* const polygon =
        "Click points to define a polygon. Click near first point too finish.";
    const char* const grid = "Click 2 points to define the grid.";
    const char* const center = "Click to add a fringe center.";
    const char* const onCenter =
        "Drag mouse to move fringe center. Use Shift and Ctrl keys for additional commands.";
    const char* const orthoCenter =
        "Drag mouse to move fringe center up and down or left and right only.";
    // "": the panel keeps what it has. NAME stands for aperture and obstruction.
    const struct {
        const char* Name;
        ToolSituation Of;
        const char* Expected[NumShifts];
    } rows[] = {
        {"hand", WithHand(Over(Aperture, 1)),
            {"Drag mouse to pan image. Use Shift and Ctrl keys to zoom in and out.",
                "Click to zoom in, centered on mouse position.",
                "Click to zoom out, centered on mouse position.", ""}},
        {"circle", Drawing(DrawTarget::Aperture, ShapeKind::Circle),
            {circle, circle, circle, circle}},
        {"ellipse", Drawing(DrawTarget::Obstruction, ShapeKind::Ellipse),
            {ellipse, ellipse, ellipse, ellipse}},
        {"polygon", Drawing(DrawTarget::Aperture, ShapeKind::Polygon),
            {polygon, polygon, polygon, polygon}},
        {"grid", Drawing(DrawTarget::Grid, ShapeKind::Polygon), {grid, grid, grid, grid}},
        {"centers", {}, {center, center, center, center}},
        {"center", Over(FringeCenter, 4),
            {onCenter, "Click to select fringe order.", "Click to clear fringe order.",
                orthoCenter}},
        {"center dragged", Dragging(Over(FringeCenter, 4)), {onCenter, "", "", orthoCenter}},
        {"grid edge", Over(Grid, 5),
            {"Drag mouse to move grid.", "", "",
                "Drag mouse to move grid up and down or left and right only."}},
        {"grid corner", Over(Grid, 6),
            {"Drag mouse to move grid.", "Drag mouse to resize grid.", "", ""}},
        {"outline of a circle", Over(Aperture, 1),
            {"Drag mouse to move NAME.", "Drag mouse to resize NAME.", "",
                "Drag mouse to move NAME up and down or left and right only."}},
        {"outline of an ellipse", Over(Aperture, 2),
            {"Drag mouse to move NAME.", "Drag mouse to resize NAME.", "Drag mouse to rotate NAME.",
                "Drag mouse to move NAME up and down or left and right only."}},
        {"edge", Over(Aperture, 3),
            {"Drag mouse to move NAME.", "", "Drag mouse to rotate NAME.",
                "Drag mouse to move NAME up and down or left and right only."}},
        {"vertex", Over(Aperture, 4),
            {"Drag mouse to move NAME vertex.", "Drag mouse to resize NAME.",
                "Drag mouse to rotate NAME.",
                "Drag mouse to move NAME vertex up and down or left and right only."}},
    };
    const auto named = [](std::string text, const char* name) {
        if (const auto at = text.find("NAME"); at != text.npos)
            text.replace(at, 4, name);
        return text;
    };
    for (const auto& row : rows) {
        ToolSituation obstructed = row.Of;
        if (obstructed.Hover.Type == Aperture)
            obstructed.Hover.Type = Obstruction;
        for (int shift = 0; shift < NumShifts; ++shift) {
            const char* const expected = row.Expected[shift];
            EXPECT_EQ(HintFor(row.Of, shift).value_or(""), named(expected, "aperture"))
                << row.Name << ' ' << shift;
            EXPECT_EQ(HintFor(obstructed, shift).value_or(""), named(expected, "obstruction"))
                << row.Name << ' ' << shift;
            EXPECT_EQ(HintFor(row.Of, shift + AltKey), std::nullopt) << row.Name << " Alt";
        }
    }
}

TEST(ToolTables, Press)
{
    using enum PressAction;
    const struct {
        const char* Name;
        ObjectType Type;
        int Part;
        PressAction Expected[NumShifts];
    } rows[] = {
        {"nothing", ObjectType::None, 0,
            {AddClick, PressAction::None, PressAction::None, PressAction::None}},
        {"circle", Aperture, 1, {Move, Resize, Move, MoveOrtho}},
        {"ellipse", Obstruction, 2, {Move, Resize, Rotate, MoveOrtho}},
        {"polygon edge", Aperture, 3, {Move, Move, Rotate, MoveOrtho}},
        {"vertex", Obstruction, 4, {Move, Resize, Rotate, MoveOrtho}},
        {"grid edge", Grid, 5, {Move, Move, Move, MoveOrtho}},
        {"grid corner", Grid, 6, {Move, Resize, Move, MoveOrtho}},
        {"center", FringeCenter, 4, {Move, SelectOrder, DeleteCenter, MoveOrtho}},
    };
    for (const auto& row : rows) {
        const ImageObject hit = Over(row.Type, row.Part).Hover;
        for (int shift = 0; shift < NumShifts; ++shift) {
            EXPECT_EQ(PressActionFor(hit, shift, DrawTarget::FringeCenters), row.Expected[shift])
                << row.Name << ' ' << shift;
            EXPECT_EQ(
                PressActionFor(hit, shift + AltKey, DrawTarget::FringeCenters), PressAction::None)
                << row.Name << " Alt " << shift;
        }
    }
    const ImageObject center = Over(FringeCenter, 4).Hover;
    for (const auto target : {DrawTarget::Aperture, DrawTarget::Obstruction, DrawTarget::Grid})
        EXPECT_EQ(PressActionFor(center, ControlKey, target), PressAction::None);
}

TEST(ToolTables, Popup)
{
    const struct {
        ObjectType Hit;
        bool DeleteCenter, AddAperture, ClearAperture, AddObstruction, ClearObstruction;
    } rows[] = {
        {ObjectType::None, false, true, false, true, false},
        {Aperture, false, false, true, true, false},
        {Obstruction, false, true, false, false, true},
        {FringeCenter, true, true, false, true, false},
        {Grid, false, true, false, true, false},
    };
    for (const auto& row : rows) {
        const FringePopup menu = PopupFor(row.Hit, ShapeKind::Circle, ShapeKind::Circle);
        SCOPED_TRACE(static_cast<int>(row.Hit));
        EXPECT_EQ(menu.DeleteCenter, row.DeleteCenter);
        EXPECT_EQ(menu.AddAperture, row.AddAperture);
        EXPECT_EQ(menu.ClearAperture, row.ClearAperture);
        EXPECT_EQ(menu.AddObstruction, row.AddObstruction);
        EXPECT_EQ(menu.ClearObstruction, row.ClearObstruction);
    }
    const auto captions = [](ShapeKind aperture, ShapeKind obstruction) {
        const FringePopup menu = PopupFor(ObjectType::None, aperture, obstruction);
        return menu.AddApertureCaption + ", " + menu.AddObstructionCaption;
    };
    using enum ShapeKind;
    EXPECT_EQ(captions(Circle, Ellipse), "Add Circular Aperture, Add Elliptical Obstruction");
    EXPECT_EQ(captions(Ellipse, Polygon), "Add Elliptical Aperture, Add Polygonal Obstruction");
    EXPECT_EQ(captions(Polygon, Circle), "Add Polygonal Aperture, Add Circular Obstruction");
}

} // namespace
} // namespace morvane
