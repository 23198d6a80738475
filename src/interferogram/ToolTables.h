// What the mouse would do at the place where it is, by mode, keys and the object under it: pointer,
// hint, the action of a press, and the popup menu. Pure tables; MouseTools acts on them.
#pragma once
#include <optional>
#include <string>

#include "geometry/clsFringes.h"
#include "geometry/clsShape.h"

namespace morvane {

// Bits of the keys held down. Anything with Alt in it means no action at all.
inline constexpr int ShiftKey = 1, ControlKey = 2, AltKey = 4;

enum class ObjectType { None = 0, Aperture = 1, Obstruction = 2, FringeCenter = 3, Grid = 4 };

// Of an object under the mouse. A fringe center always counts as a vertex.
enum class ObjectPart {
    None = 0,
    CircleOutline = 1,
    EllipseOutline = 2,
    PolygonEdge = 3,
    Vertex = 4,
    GridEdge = 5,
    GridCorner = 6
};

struct ImageObject {
    ObjectType Type = ObjectType::None;
    ObjectPart Part = ObjectPart::None;
    int Vertex = NoFringe; // corner of a polygon or grid
    int Order = NoFringe, Tick = NoFringe, Index = NoFringe; // of a fringe center

    bool IsShape() const { return Type == ObjectType::Aperture || Type == ObjectType::Obstruction; }
    friend bool operator==(const ImageObject&, const ImageObject&) = default;
};

// What plain clicks define.
enum class DrawTarget { Aperture = 1, Obstruction = 2, FringeCenters = 3, Grid = 4 };

enum class PointerShape {
    Default,
    AddShape,
    SelectFringe,
    ClearFringe,
    MoveShape,
    MoveShapeOrtho,
    ResizeShape,
    RotateShape,
    Hand,
    ZoomIn,
    ZoomOut
};

struct ToolSituation {
    bool EditMode = true; // else the hand tool
    DrawTarget Target = DrawTarget::FringeCenters;
    ShapeKind DrawShapeType = ShapeKind::None;
    ImageObject Hover;
    bool IsDragging = false; // something is selected
};

// The pointer; none leaves the one that is there.
std::optional<PointerShape> PointerFor(const ToolSituation& Of, int Shift);
// The hint in the status bar; none leaves the one that is there.
std::optional<std::string> HintFor(const ToolSituation& Of, int Shift);

// Whether a drag with Shift, or with Ctrl, does more with the part than move it.
bool CanResize(ObjectPart Part);
bool CanRotate(ObjectPart Part);

enum class PressAction {
    None,
    AddClick,
    Move, // also for keys that mean nothing to the part under the mouse
    MoveOrtho,
    Resize,
    Rotate,
    SelectOrder,
    DeleteCenter
};
// Of the left button in the edit tool; Hit is the object under the mouse, or none.
PressAction PressActionFor(const ImageObject& Hit, int Shift, DrawTarget Target);

// The right button's menu: captions that change, and which items are off. The rest stays on.
struct FringePopup {
    bool DeleteCenter = false;
    bool AddAperture = true, ClearAperture = false;
    bool AddObstruction = true, ClearObstruction = false;
    std::string AddApertureCaption, AddObstructionCaption;
};
FringePopup PopupFor(ObjectType Hit, ShapeKind Aperture, ShapeKind Obstruction);

} // namespace morvane
