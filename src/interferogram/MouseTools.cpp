#include "interferogram/MouseTools.h"

#include <cmath>
#include <utility>

#include "platform/Numbers.h"

namespace morvane {
namespace {

ObjectPart PartOf(const ShapeHit& hit)
{
    return static_cast<ObjectPart>(hit.Part);
}

} // namespace

MouseTools::MouseTools(clsDocument& Of, ImageViewport& Through, ToolBox& Shared, ToolsHost& Host)
    : m_document(Of), m_viewport(Through), m_box(Shared), m_host(Host)
{
}

void MouseTools::SetEditMode(bool Edit)
{
    m_editMode = Edit;
    EndPan();
    EndDrag();
    ChangeMouseIcon(0);
}

bool MouseTools::IsLive() const
{
    return m_host.IsActive() && m_document.ActiveView == ViewType::Interferogram;
}

ToolSituation MouseTools::Situation() const
{
    return {m_editMode, m_target, m_drawShapeType, m_hover, m_selected.Type != ObjectType::None};
}

void MouseTools::ChangeMouseIcon(int Shift)
{
    if (const auto pointer = PointerFor(Situation(), Shift))
        m_host.ShowPointer(*pointer);
    ChangeStatusBar(Shift);
}

void MouseTools::ChangeStatusBar(int Shift)
{
    if (const auto hint = HintFor(Situation(), Shift))
        m_host.ShowHint(*hint);
}

clsShape& MouseTools::ShapeOf(ObjectType Type)
{
    return Type == ObjectType::Aperture ? m_document.Aperture : m_document.Obstruction;
}

const clsShape& MouseTools::ShapeOf(ObjectType Type) const
{
    return Type == ObjectType::Aperture ? m_document.Aperture : m_document.Obstruction;
}

bool MouseTools::FindObject(Point At)
{
    const std::optional<ImageObject> found = ObjectAt(At);
    if (found)
        m_hover = *found;
    return found.has_value();
}

// In the order of priority.
std::optional<ImageObject> MouseTools::ObjectAt(Point At) const
{
    if (const auto hit = m_document.Fringes.Find(At))
        return ImageObject{ObjectType::FringeCenter, ObjectPart::Vertex, NoFringe, hit->Order,
            hit->Tick, hit->Index};
    for (const ObjectType type : {ObjectType::Aperture, ObjectType::Obstruction})
        if (const ShapeHit hit = ShapeOf(type).Find(At); hit.Part != ShapePart::None)
            return ImageObject{.Type = type, .Part = PartOf(hit), .Vertex = hit.Vertex};
    const GridHit hit = m_document.Grid.Find(At);
    if (hit.Part == GridPart::None)
        return std::nullopt;
    const ObjectPart part =
        hit.Part == GridPart::Border ? ObjectPart::GridEdge : ObjectPart::GridCorner;
    return ImageObject{.Type = ObjectType::Grid, .Part = part, .Vertex = hit.Corner};
}

void MouseTools::Press(MouseButton Button, double ClientX, double ClientY, int Shift)
{
    if (m_box.PopupActive) {
        m_box.PopupActive = false;
        return;
    }
    EndPan();
    EndDrag(); // one whose release went elsewhere
    if (!IsLive())
        return;
    const Point at = m_viewport.ToImage(ClientX, ClientY);
    if (Button == MouseButton::Right)
        ShowMenu(at);
    else if (m_editMode)
        PressToEdit(at, Shift);
    else
        PressWithHand(ClientX, ClientY, Shift);
}

void MouseTools::ShowMenu(Point At)
{
    const bool found = FindObject(At);
    m_box.PopupActive = true;
    m_host.ShowPopup(PopupFor(found ? m_hover.Type : ObjectType::None,
        m_box.KindOf(ShapeRole::Aperture), m_box.KindOf(ShapeRole::Obstruction)));
}

void MouseTools::PressWithHand(double ClientX, double ClientY, int Shift)
{
    if (Shift == 0)
        m_pan = {m_viewport.Horizontal().Value, m_viewport.Vertical().Value, RoundToLong(ClientX),
            RoundToLong(ClientY)};
    else if (Shift == ShiftKey)
        ZoomAt(ClientX, ClientY, ZoomStep::In);
    else if (Shift == ControlKey)
        ZoomAt(ClientX, ClientY, ZoomStep::Out);
}

void MouseTools::ZoomAt(double ClientX, double ClientY, ZoomStep Step)
{
    const std::optional<int> level = NextZoom(m_viewport.ZoomPercent(), Step);
    if (!level)
        return;
    m_viewport.CenterOn(m_viewport.ToImage(ClientX, ClientY), *level);
    m_host.ZoomTo(*level);
}

void MouseTools::PressToEdit(Point At, int Shift)
{
    const bool found = FindObject(At);
    m_dragStart = m_lastPoint = At;
    m_dragShift = Shift;
    switch (PressActionFor(found ? m_hover : ImageObject{}, Shift, m_target)) {
    case PressAction::None:
        break;
    case PressAction::AddClick:
        AddClick(At);
        break;
    case PressAction::Move:
        SelectObject(0);
        break;
    case PressAction::MoveOrtho:
    case PressAction::Resize:
    case PressAction::Rotate:
        SelectObject(Shift);
        break;
    case PressAction::SelectOrder:
        m_host.SelectOrder(m_hover.Order);
        break;
    case PressAction::DeleteCenter:
        DeleteHoverCenter();
        break;
    }
}

void MouseTools::Move(double ClientX, double ClientY, bool LeftDown, int Shift)
{
    if (!LeftDown) { // its release went elsewhere
        EndPan();
        EndDrag();
    }
    if (!IsLive() || m_box.PopupActive)
        return;
    KeysChanged(Shift);
    const Point at = m_viewport.ToImage(ClientX, ClientY);
    const int column = RoundToLong(std::floor(at.X)), row = RoundToLong(std::floor(at.Y));
    const int intensity = m_document.GetIntensity(column, row);
    m_host.ShowPosition("(" + std::to_string(column) + " ," + std::to_string(row) + ")",
        intensity < 0 ? "i:" : "i: " + std::to_string(intensity));
    if (!m_editMode) {
        Pan(ClientX, ClientY);
        return;
    }
    if (m_selected.Type == ObjectType::None)
        Hover(at, Shift);
    if (!LeftDown)
        return;
    Drag(at, KeysOfDrag(Shift));
}

void MouseTools::Pan(double ClientX, double ClientY)
{
    if (!m_pan)
        return;
    const double scale = m_viewport.InvZoom();
    const ScrollBar before[] = {m_viewport.Horizontal(), m_viewport.Vertical()};
    m_viewport.ScrollTo(RoundToLong((m_pan->X - ClientX) * scale + m_pan->Horizontal),
        RoundToLong((m_pan->Y - ClientY) * scale + m_pan->Vertical));
    if (before[0] != m_viewport.Horizontal() || before[1] != m_viewport.Vertical())
        m_host.Scrolled();
}

void MouseTools::Hover(Point At, int Shift)
{
    if (FindObject(At)) {
        ChangeMouseIcon(Shift);
    } else if (m_hover.Type != ObjectType::None) {
        m_hover = {};
        ChangeMouseIcon(Shift);
    }
}

void MouseTools::Release(MouseButton Button, int Shift)
{
    if (Button != MouseButton::Left)
        return;
    EndPan();
    const bool wasDragging = EndDrag();
    const bool endsPopup = std::exchange(m_box.PopupActive, false);
    if (wasDragging || endsPopup || !m_editMode || !IsLive() || Shift != 0)
        return;
    ClosePolygon();
    if (m_numClicks >= m_clicksNeeded)
        FinishDrawing();
}

void MouseTools::KeysChanged(int Shift)
{
    if (Shift == m_lastShift)
        return;
    m_lastShift = Shift;
    ChangeMouseIcon(Shift);
}

void MouseTools::SpaceKey(int Shift)
{
    if (Shift == 0)
        m_host.SelectOrder(m_box.CurrentOrder() + 1);
    else if (Shift == ShiftKey)
        m_host.SelectOrder(m_box.CurrentOrder() - 1);
}

void MouseTools::Forget()
{
    ClearSelectedObject();
    if (m_hover.Type == ObjectType::None)
        return;
    m_hover = {};
    ChangeMouseIcon(m_lastShift);
}

void MouseTools::ShapeChanged()
{
    const bool wasMarked = m_document.HasUnsavedChanges();
    m_document.InvalidateMask();
    if (!wasMarked)
        m_host.MarkChanges();
}

void MouseTools::NoteChange()
{
    const bool wasMarked = m_document.HasUnsavedChanges();
    m_document.Modified = true;
    if (!wasMarked)
        m_host.MarkChanges();
}

} // namespace morvane
