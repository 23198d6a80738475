#include "interferogram/ToolTables.h"

#include <array>

namespace morvane {
namespace {

constexpr int NumShifts = 4; // no keys, Shift, Ctrl, both

bool IsDrawingShape(DrawTarget target)
{
    return target == DrawTarget::Aperture || target == DrawTarget::Obstruction;
}

using enum PointerShape;
using Pointers = std::array<std::optional<PointerShape>, NumShifts>;
constexpr std::optional<PointerShape> Keep = std::nullopt;

Pointers PointersOver(const ToolSituation& of)
{
    if (!of.EditMode)
        return {Hand, ZoomIn, ZoomOut, Keep};
    if (of.Hover.Type == ObjectType::FringeCenter) {
        if (of.IsDragging)
            return {Default, Keep, Keep, MoveShapeOrtho};
        return {Default, SelectFringe, ClearFringe, MoveShapeOrtho};
    }
    switch (of.Hover.Part) {
    case ObjectPart::None:
        break;
    case ObjectPart::CircleOutline:
        return {MoveShape, ResizeShape, Keep, MoveShapeOrtho};
    case ObjectPart::EllipseOutline:
    case ObjectPart::Vertex:
        return {MoveShape, ResizeShape, RotateShape, MoveShapeOrtho};
    case ObjectPart::PolygonEdge:
        return {MoveShape, Keep, RotateShape, MoveShapeOrtho};
    case ObjectPart::GridEdge:
        return {MoveShape, MoveShape, MoveShape, MoveShapeOrtho};
    case ObjectPart::GridCorner:
        return {MoveShape, ResizeShape, MoveShape, MoveShapeOrtho};
    }
    const PointerShape free = IsDrawingShape(of.Target) ? AddShape : Default;
    return {free, free, free, free};
}

// An empty hint leaves the one that is there.
using Hints = std::array<std::string, NumShifts>;

std::string HintOfDrawing(const ToolSituation& of)
{
    if (of.Target == DrawTarget::FringeCenters)
        return "Click to add a fringe center.";
    if (of.Target == DrawTarget::Grid)
        return "Click 2 points to define the grid.";
    switch (of.DrawShapeType) {
    case ShapeKind::Circle:
        return "Click 4 points to define a circle.";
    case ShapeKind::Ellipse:
        return "Click 3 points to define an ellipse.";
    case ShapeKind::Polygon:
        return "Click points to define a polygon. Click near first point too finish.";
    case ShapeKind::None:
        break;
    }
    return {};
}

std::string OrthogonalHint(const std::string& moved)
{
    return "Drag mouse to move " + moved + " up and down or left and right only.";
}

Hints HintsOverShape(const std::string& name, ObjectPart part)
{
    const std::string moved = part == ObjectPart::Vertex ? name + " vertex" : name;
    const std::string resize = "Drag mouse to resize " + name + ".";
    const std::string rotate = "Drag mouse to rotate " + name + ".";
    return {"Drag mouse to move " + moved + ".", part == ObjectPart::PolygonEdge ? "" : resize,
        part == ObjectPart::CircleOutline ? "" : rotate, OrthogonalHint(moved)};
}

Hints HintsOverGrid(ObjectPart part)
{
    const std::string move = "Drag mouse to move grid.";
    if (part == ObjectPart::GridCorner)
        return {move, "Drag mouse to resize grid.", "", ""};
    return {move, "", "", OrthogonalHint("grid")};
}

Hints HintsOverCenter(bool isDragging)
{
    Hints hints{
        "Drag mouse to move fringe center. Use Shift and Ctrl keys for additional commands.", "",
        "", OrthogonalHint("fringe center")};
    if (!isDragging) {
        hints[ShiftKey] = "Click to select fringe order.";
        hints[ControlKey] = "Click to clear fringe order.";
    }
    return hints;
}

Hints HintsOver(const ToolSituation& of)
{
    if (!of.EditMode)
        return {"Drag mouse to pan image. Use Shift and Ctrl keys to zoom in and out.",
            "Click to zoom in, centered on mouse position.",
            "Click to zoom out, centered on mouse position.", ""};
    switch (of.Hover.Type) {
    case ObjectType::FringeCenter:
        return HintsOverCenter(of.IsDragging);
    case ObjectType::Aperture:
        return HintsOverShape("aperture", of.Hover.Part);
    case ObjectType::Obstruction:
        return HintsOverShape("obstruction", of.Hover.Part);
    case ObjectType::Grid:
        return HintsOverGrid(of.Hover.Part);
    case ObjectType::None:
        break;
    }
    const std::string drawing = HintOfDrawing(of);
    return {drawing, drawing, drawing, drawing};
}

const char* AdjectiveOf(ShapeKind kind)
{
    switch (kind) {
    case ShapeKind::Ellipse:
        return "Elliptical ";
    case ShapeKind::Polygon:
        return "Polygonal ";
    case ShapeKind::None:
    case ShapeKind::Circle:
        break;
    }
    return "Circular ";
}

} // namespace

std::optional<PointerShape> PointerFor(const ToolSituation& Of, int Shift)
{
    if (Shift < 0 || Shift >= NumShifts)
        return Keep;
    return PointersOver(Of)[static_cast<std::size_t>(Shift)];
}

std::optional<std::string> HintFor(const ToolSituation& Of, int Shift)
{
    if (Shift < 0 || Shift >= NumShifts)
        return std::nullopt;
    const std::string hint = HintsOver(Of)[static_cast<std::size_t>(Shift)];
    return hint.empty() ? std::nullopt : std::optional(hint);
}

bool CanResize(ObjectPart Part)
{
    return Part != ObjectPart::PolygonEdge && Part != ObjectPart::GridEdge;
}

bool CanRotate(ObjectPart Part)
{
    return Part != ObjectPart::CircleOutline && Part != ObjectPart::GridEdge
        && Part != ObjectPart::GridCorner;
}

PressAction PressActionFor(const ImageObject& Hit, int Shift, DrawTarget Target)
{
    if (Hit.Type == ObjectType::None)
        return Shift == 0 ? PressAction::AddClick : PressAction::None;
    const bool isCenter = Hit.Type == ObjectType::FringeCenter;
    switch (Shift) {
    case 0:
        return PressAction::Move;
    case ShiftKey:
        if (isCenter)
            return PressAction::SelectOrder;
        return CanResize(Hit.Part) ? PressAction::Resize : PressAction::Move;
    case ControlKey:
        if (isCenter)
            return Target == DrawTarget::FringeCenters ? PressAction::DeleteCenter
                                                       : PressAction::None;
        return CanRotate(Hit.Part) ? PressAction::Rotate : PressAction::Move;
    case ShiftKey + ControlKey:
        return PressAction::MoveOrtho;
    default:
        return PressAction::None;
    }
}

FringePopup PopupFor(ObjectType Hit, ShapeKind Aperture, ShapeKind Obstruction)
{
    const bool onAperture = Hit == ObjectType::Aperture;
    const bool onObstruction = Hit == ObjectType::Obstruction;
    return {.DeleteCenter = Hit == ObjectType::FringeCenter,
        .AddAperture = !onAperture,
        .ClearAperture = onAperture,
        .AddObstruction = !onObstruction,
        .ClearObstruction = onObstruction,
        .AddApertureCaption = std::string("Add ") + AdjectiveOf(Aperture) + "Aperture",
        .AddObstructionCaption = std::string("Add ") + AdjectiveOf(Obstruction) + "Obstruction"};
}

} // namespace morvane
