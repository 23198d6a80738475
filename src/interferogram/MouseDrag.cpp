// What a drag does to the object under the mouse.
#include "analysis/ModMathLib.h"
#include "interferogram/MouseTools.h"
#include "platform/Numbers.h"

namespace morvane {

void MouseTools::SelectObject(int Shift)
{
    m_selected = m_hover;
    m_dragShift = Shift;
    m_resizeAxis = ResizeAxis::Undecided;
    SaveObject();
    m_host.Repaint();
}

void MouseTools::SaveObject()
{
    m_saved = {};
    if (m_selected.IsShape()) {
        const clsShape& shape = ShapeOf(m_selected.Type);
        m_saved.Center = shape.GetCenter();
        m_saved.Vertex = shape.GetVertex(m_selected.Vertex);
        if (m_selected.Part == ObjectPart::CircleOutline)
            m_saved.Round = {m_saved.Center, shape.GetRadii(), 0};
        if (m_selected.Part == ObjectPart::EllipseOutline)
            m_saved.Round = {m_saved.Center, shape.GetRadii(), shape.GetAngle()};
    } else if (m_selected.Type == ObjectType::FringeCenter) {
        m_saved.Center = m_saved.Vertex =
            m_document.Fringes.GetCenter(m_selected.Order, m_selected.Tick, m_selected.Index);
    } else if (m_selected.Type == ObjectType::Grid) {
        m_saved.Center = m_document.Grid.GetCenter();
        m_saved.Vertex = m_document.Grid.GetVertex((m_selected.Vertex + 2) % NoCorner);
    }
}

// The keys that count for this step. Where other keys than before mean something to the object, a
// new phase of the drag begins at the last position.
int MouseTools::KeysOfDrag(int Shift)
{
    if (Shift == m_dragShift)
        return Shift;
    const bool isPlainMove = Shift == 0 || Shift == ShiftKey + ControlKey;
    const bool isAction = isPlainMove || Shift == ShiftKey || Shift == ControlKey;
    if (!isPlainMove) {
        if (m_selected.Type == ObjectType::None)
            return Shift;
        if (m_selected.Type == ObjectType::FringeCenter
            || (Shift == ShiftKey && !CanResize(m_selected.Part))
            || (Shift == ControlKey && !CanRotate(m_selected.Part)))
            return m_dragShift;
        if (!isAction)
            return Shift;
    }
    m_resizeAxis = ResizeAxis::Undecided;
    SaveObject();
    m_dragShift = Shift;
    m_dragStart = m_lastPoint;
    return Shift;
}

void MouseTools::Drag(Point At, int Shift)
{
    if (m_selected.Type == ObjectType::None)
        return;
    switch (Shift) {
    case 0:
        MoveObject(At, false);
        break;
    case ShiftKey + ControlKey:
        MoveObject(At, true);
        break;
    case ShiftKey:
        ResizeObject(At);
        break;
    case ControlKey:
        RotateObject(At);
        break;
    default:
        break;
    }
    m_lastPoint = At;
}

// Off the screen, changed, and on it again.
template <typename Change>
void MouseTools::ChangeSelected(Change Apply)
{
    m_host.XorSelected();
    Apply();
    m_host.XorSelected();
}

void MouseTools::MoveObject(Point At, bool Orthogonal)
{
    const bool byVertex = m_selected.Part == ObjectPart::Vertex;
    const Point to =
        MovedPoint(byVertex ? m_saved.Vertex : m_saved.Center, m_dragStart, At, Orthogonal);
    ChangeSelected([&] {
        if (m_selected.Type == ObjectType::FringeCenter) {
            MoveCenter(to);
        } else if (m_selected.Type == ObjectType::Grid) {
            m_document.Grid.SetCenter(to);
            NoteChange();
        } else {
            clsShape& shape = ShapeOf(m_selected.Type);
            if (byVertex)
                shape.SetVertex(to, m_selected.Vertex);
            else
                shape.SetCenter(to);
            ShapeChanged();
        }
    });
}

// One that is dragged off the picture is deleted.
void MouseTools::MoveCenter(Point To)
{
    const RasterSize image = m_document.GetImageSize();
    const bool isInside =
        To.X >= 0 && To.X <= image.Width - 1.0 && To.Y >= 0 && To.Y <= image.Height - 1.0;
    if (isInside) {
        m_document.Fringes.SetCenter(m_selected.Order, m_selected.Tick, To, m_selected.Index);
    } else {
        m_document.Fringes.DeleteCenter(m_selected.Order, m_selected.Tick, m_selected.Index);
        ClearSelectedObject();
    }
    FringesChanged();
}

void MouseTools::ResizeObject(Point At)
{
    if (m_selected.Type == ObjectType::Grid) {
        ChangeSelected([&] { SetGridBounds(At, m_saved.Vertex); });
        return;
    }
    if (!m_selected.IsShape())
        return;
    clsShape& shape = ShapeOf(m_selected.Type);
    ChangeSelected([&] {
        if (m_selected.Part == ObjectPart::Vertex) {
            // A polygon of no size could never be made larger again.
            if (At != m_saved.Center)
                shape.Resize({VectorLength(At, m_saved.Center), NoPoint}, m_selected.Vertex);
        } else {
            const RoundFigure to = m_selected.Part == ObjectPart::CircleOutline
                ? ResizedCircle(m_saved.Round, m_dragStart, At, m_resizeAxis)
                : ResizedEllipse(m_saved.Round, m_dragStart, At, m_resizeAxis);
            if (to.Radii.X == 0 || to.Radii.Y == 0)
                return; // nobody could take hold of it again
            shape.Resize(to.Radii, NoFringe);
            shape.SetCenter(to.Center);
        }
        ShapeChanged();
    });
}

void MouseTools::RotateObject(Point At)
{
    if (!m_selected.IsShape())
        return;
    const double step = TurnBetween(m_lastPoint, At, m_dragStart, m_saved.Center);
    ChangeSelected([&] {
        ShapeOf(m_selected.Type).Rotate(step);
        ShapeChanged();
    });
}

// False if nothing was being dragged.
bool MouseTools::EndDrag()
{
    if (m_selected.Type == ObjectType::None)
        return false;
    ClearSelectedObject();
    m_host.Repaint();
    return true;
}

// Bounds without a whole row of cells would be those of a grid that nobody sees: the old ones stay.
void MouseTools::SetGridBounds(Point Corner, Point Opposite)
{
    clsGrid tried = m_document.Grid;
    tried.SetBounds(RoundToLong(Corner.X), RoundToLong(Corner.Y), RoundToLong(Opposite.X),
        RoundToLong(Opposite.Y));
    if (!tried.IsDefined(GridIsCalibrated + GridHasBounds))
        return;
    m_document.Grid = tried;
    NoteChange();
}

} // namespace morvane
