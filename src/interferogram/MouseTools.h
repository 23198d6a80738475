// The machine behind the mouse on one interferogram. It receives client positions, buttons and
// keys, decides by what lies under the mouse, changes document and viewport, and tells its host
// what to show. Each window has one; what all share is in the ToolBox.
//
// The edit tool draws figures by clicks, places fringe centers, and drags what is under the mouse;
// the hand tool pans and zooms. A drag changes its object between two drawings in exclusive or, so
// that nothing else is drawn anew.
#pragma once
#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "document/clsDocument.h"
#include "interferogram/DragGeometry.h"
#include "interferogram/ImageViewport.h"
#include "interferogram/ToolBox.h"
#include "interferogram/ToolTables.h"

namespace morvane {

inline constexpr int MaxClicks = MaxVertices; // that a figure can take

// What the tools ask of the window that they work in, and of the session around it.
class ToolsHost {
public:
    virtual ~ToolsHost() = default;

    // Whether the document is the active one.
    virtual bool IsActive() const = 0;
    // The picture with all that is over it.
    virtual void Repaint() = 0;
    // The selected object in exclusive or.
    virtual void XorSelected() = 0;
    virtual void DrawClickMark(Point Image) = 0;
    virtual void ShowPointer(PointerShape Shape) = 0;
    virtual void ShowHint(std::string_view Hint) = 0;
    virtual void ShowPosition(const std::string& Position, const std::string& Intensity) = 0;
    // The viewport has been scrolled.
    virtual void Scrolled() = 0;
    // Takes a level, for which the viewport is centered already.
    virtual void ZoomTo(int Percent) = 0;
    virtual void ShowPopup(const FringePopup& Menu) = 0;
    virtual void SelectOrder(int Order) = 0;
    // The document has unsaved changes now.
    virtual void MarkChanges() = 0;
};

enum class MouseButton { Left, Right };

class MouseTools {
public:
    MouseTools(clsDocument& Of, ImageViewport& Through, ToolBox& Shared, ToolsHost& Host);

    bool EditMode() const { return m_editMode; }
    // The pointer follows.
    void SetEditMode(bool Edit);

    // --- Events. Client positions in device pixels, Shift the bits of the keys held down.
    void Press(MouseButton Button, double ClientX, double ClientY, int Shift);
    void Move(double ClientX, double ClientY, bool LeftDown, int Shift);
    void Release(MouseButton Button, int Shift);
    void KeysChanged(int Shift);
    // The space bar has been released.
    void SpaceKey(int Shift);
    // One level with the client position in the middle; nothing at the end of the list.
    void ZoomAt(double ClientX, double ClientY, ZoomStep Step);

    // --- Commands of the tool box
    // Clicks define a figure from now on; the old one is deleted.
    void StartShape(ShapeRole Role, ShapeKind Kind);
    void StartGrid();
    // Ends a drawing and deletes the figure.
    void ClearShape(ShapeRole Role);
    // Back to placing fringe centers; nothing if that is going on.
    void StopDrawingObject();
    // All clicks so far become centers of the order.
    void SaveFringe(int Order);
    // Opens the number for a new fringe. False, and nothing changed, if the last order would leave
    // the range.
    bool InsertFringe(int Order);
    void DeleteFringe(int Order);
    void RenumberFringe(int NewOrder, int OldOrder);
    // Of the object last found under the mouse.
    void DeleteHoverCenter();
    // What lies on the picture has been replaced: there is nothing to drag any more.
    void Forget();
    // Another interferogram is shown: a drawing and its clicks are given up too.
    void Reset();
    // The picture has been scrolled or zoomed by other means than the hand tool.
    void EndPan() { m_pan.reset(); }

    // Pointer and hint for the keys held down.
    void ChangeMouseIcon(int Shift);
    void ChangeStatusBar(int Shift);

    const ImageObject& Selected() const { return m_selected; }
    DrawTarget Target() const { return m_target; }
    // Of the tool box, while this is the interferogram in front.
    ToolControls Controls() const;
    // Of a figure that is not finished.
    std::span<const Point> Clicks() const { return std::span(m_clicks).first(m_numClicks); }

private:
    // Of the object at DragStart; what it does not have is NoPoint.
    struct SavedObject {
        Point Center, Vertex;
        RoundFigure Round;
    };

    bool IsLive() const;
    ToolSituation Situation() const;
    clsShape& ShapeOf(ObjectType Type);
    const clsShape& ShapeOf(ObjectType Type) const;
    bool FindObject(Point At);
    std::optional<ImageObject> ObjectAt(Point At) const;

    void PressWithHand(double ClientX, double ClientY, int Shift);
    void PressToEdit(Point At, int Shift);
    void ShowMenu(Point At);
    void AddClick(Point At);
    void SelectObject(int Shift);
    void SaveObject();
    void ClearSelectedObject() { m_selected = {}; }

    void Pan(double ClientX, double ClientY);
    void Hover(Point At, int Shift);
    int KeysOfDrag(int Shift);
    void Drag(Point At, int Shift);
    void MoveObject(Point At, bool Orthogonal);
    void MoveCenter(Point To);
    void ResizeObject(Point At);
    void RotateObject(Point At);
    template <typename Change>
    void ChangeSelected(Change Apply);
    bool EndDrag();

    void StartDrawing(DrawTarget Target, ShapeKind Kind, std::size_t ClicksNeeded);
    void EndDrawing();
    void ClosePolygon();
    void FinishDrawing();
    void SetGridBounds(Point Corner, Point Opposite);
    void FringesChanged();
    void ShapeChanged();
    void NoteChange();

    clsDocument& m_document;
    ImageViewport& m_viewport;
    ToolBox& m_box;
    ToolsHost& m_host;

    bool m_editMode = true;
    DrawTarget m_target = DrawTarget::FringeCenters;
    ShapeKind m_drawShapeType = ShapeKind::None;
    std::size_t m_clicksNeeded = 1, m_numClicks = 0;
    std::array<Point, MaxClicks> m_clicks;
    ImageObject m_hover; // last found
    ImageObject m_selected; // being dragged
    int m_dragShift = 0; // keys that govern the drag
    int m_lastShift = 0; // keys last seen
    Point m_dragStart{0, 0}, m_lastPoint{0, 0};
    SavedObject m_saved;
    ResizeAxis m_resizeAxis = ResizeAxis::Undecided;
    struct PanStart {
        int Horizontal, Vertical; // scroll values
        int X, Y; // client
    };
    std::optional<PanStart> m_pan;
};

} // namespace morvane
