#include "interferogram/MouseTools.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "analysis/ModMathLib.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

constexpr std::size_t ClicksOfGrid = 2;
constexpr std::size_t FewestCorners = 3; // of a polygon
constexpr double ClosingDistance = 3.0; // image pixels, in each axis

std::size_t ClicksOf(ShapeKind kind)
{
    switch (kind) {
    case ShapeKind::Circle:
        return 4;
    case ShapeKind::Ellipse:
        return 3;
    case ShapeKind::Polygon:
    case ShapeKind::None:
        break;
    }
    return MaxClicks;
}

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

void MouseTools::AddClick(Point At)
{
    if (m_numClicks == m_clicks.size())
        return;
    m_clicks[m_numClicks++] = At;
    m_host.DrawClickMark(At);
}

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

// False if nothing was being dragged.
bool MouseTools::EndDrag()
{
    if (m_selected.Type == ObjectType::None)
        return false;
    ClearSelectedObject();
    m_host.Repaint();
    return true;
}

void MouseTools::ClosePolygon()
{
    if (m_drawShapeType != ShapeKind::Polygon || m_numClicks <= FewestCorners)
        return;
    const Point first = m_clicks[0], last = m_clicks[m_numClicks - 1];
    if (std::abs(first.X - last.X) <= ClosingDistance
        && std::abs(first.Y - last.Y) <= ClosingDistance)
        m_clicksNeeded = --m_numClicks;
}

void MouseTools::FinishDrawing()
{
    switch (m_target) {
    case DrawTarget::Aperture:
        m_document.Aperture.Save(m_drawShapeType, Clicks());
        ShapeChanged();
        break;
    case DrawTarget::Obstruction:
        m_document.Obstruction.Save(m_drawShapeType, Clicks());
        ShapeChanged();
        break;
    case DrawTarget::FringeCenters:
        SaveFringe(m_box.CurrentOrder());
        break;
    case DrawTarget::Grid:
        SetGridBounds(m_clicks[0], m_clicks[1]);
        break;
    }
    StopDrawingObject();
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

void MouseTools::StartShape(ShapeRole Role, ShapeKind Kind)
{
    const bool isAperture = Role == ShapeRole::Aperture;
    StartDrawing(isAperture ? DrawTarget::Aperture : DrawTarget::Obstruction, Kind, ClicksOf(Kind));
    (isAperture ? m_document.Aperture : m_document.Obstruction).Delete();
    ShapeChanged();
    m_host.Repaint();
}

// The bounds of before stay until the second corner is there.
void MouseTools::StartGrid()
{
    StartDrawing(DrawTarget::Grid, ShapeKind::Polygon, ClicksOfGrid);
    m_host.ShowPointer(PointerShape::AddShape); // until it is over something
    m_host.Repaint();
}

void MouseTools::StartDrawing(DrawTarget Target, ShapeKind Kind, std::size_t ClicksNeeded)
{
    m_editMode = true;
    Forget();
    m_numClicks = 0;
    m_target = Target;
    m_drawShapeType = Kind;
    m_clicksNeeded = ClicksNeeded;
    m_box.SetControls(Controls());
    ChangeMouseIcon(0);
}

void MouseTools::ClearShape(ShapeRole Role)
{
    Forget();
    EndDrawing();
    (Role == ShapeRole::Aperture ? m_document.Aperture : m_document.Obstruction).Delete();
    ShapeChanged();
    m_host.Repaint();
}

void MouseTools::StopDrawingObject()
{
    if (m_target == DrawTarget::FringeCenters)
        return;
    EndDrawing();
    m_host.Repaint();
}

void MouseTools::EndDrawing()
{
    m_target = DrawTarget::FringeCenters;
    m_drawShapeType = ShapeKind::None;
    m_clicksNeeded = 1;
    m_numClicks = 0;
    m_box.SetControls(Controls());
    ChangeMouseIcon(0);
}

ToolControls MouseTools::Controls() const
{
    const bool aperture = m_target == DrawTarget::Aperture;
    const bool obstruction = m_target == DrawTarget::Obstruction;
    if (!aperture && !obstruction)
        return {};
    return {.Enable = false, .ApertureClear = aperture, .ObstructionClear = obstruction};
}

void MouseTools::SaveFringe(int Order)
{
    // The clicks of a figure are its own, whatever happens to the orders meanwhile.
    if (m_numClicks == 0 || m_target != DrawTarget::FringeCenters)
        return;
    const int before = m_document.Fringes.TotalNumTicks();
    int index = m_document.Fringes.GetFringeIndex(Order);
    if (index == NoFringe)
        m_document.Fringes.InsertOrder(Order, Clicks());
    else
        m_document.Fringes.AddCenters(Order, Clicks(), index);
    m_numClicks = 0;
    FringesChanged();
    if (m_document.Fringes.TotalNumTicks() == before) // refused: their marks must not stay
        m_host.Repaint();
}

bool MouseTools::InsertFringe(int Order)
{
    const clsFringes& fringes = m_document.Fringes;
    for (int index = 1; index <= fringes.NumFringes(); ++index) {
        const int order = fringes.GetFringeOrder(index);
        if (order != NoFringe && order >= Order && order >= MaxFringes)
            return false;
    }
    m_document.Fringes.Renumber(Order, false);
    FringesChanged();
    return true;
}

void MouseTools::DeleteFringe(int Order)
{
    Forget();
    m_document.Fringes.DeleteOrder(Order);
    FringesChanged();
}

void MouseTools::RenumberFringe(int NewOrder, int OldOrder)
{
    if (NewOrder == OldOrder)
        return;
    Forget();
    clsFringes& fringes = m_document.Fringes;
    int into = fringes.GetFringeIndex(NewOrder), from = fringes.GetFringeIndex(OldOrder);
    if (into == NoFringe) {
        fringes.SetOrder(NewOrder, from);
    } else if (fringes.CombineOrders(NewOrder, OldOrder, into, from)) {
        fringes.Defrag(NoFringe);
        fringes.Renumber(OldOrder, true);
    }
    FringesChanged();
    m_host.Repaint();
}

void MouseTools::DeleteHoverCenter()
{
    if (m_hover.Type != ObjectType::FringeCenter)
        return;
    m_document.Fringes.DeleteCenter(m_hover.Order, m_hover.Tick, m_hover.Index);
    Forget();
    FringesChanged();
    m_host.Repaint();
}

void MouseTools::Forget()
{
    ClearSelectedObject();
    if (m_hover.Type == ObjectType::None)
        return;
    m_hover = {};
    ChangeMouseIcon(m_lastShift);
}

void MouseTools::Reset()
{
    Forget();
    m_numClicks = 0;
    StopDrawingObject();
}

void MouseTools::FringesChanged()
{
    m_document.AnalysisValid = false;
    NoteChange();
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
