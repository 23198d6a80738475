// Figures that are drawn by clicks.
#include <cmath>

#include "interferogram/MouseTools.h"

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

} // namespace

void MouseTools::AddClick(Point At)
{
    if (m_numClicks == m_clicks.size())
        return;
    m_clicks[m_numClicks++] = At;
    m_host.DrawClickMark(At);
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

void MouseTools::Reset()
{
    Forget();
    m_numClicks = 0;
    StopDrawingObject();
}

} // namespace morvane
