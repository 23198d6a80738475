#include "geometry/clsShape.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

#include "analysis/ModMathLib.h"

namespace morvane {

namespace {

constexpr double HitTolerance = 3.0; // image pixels, whatever the zoom

bool IsFinite(Point point)
{
    return std::isfinite(point.X) && std::isfinite(point.Y);
}

} // namespace

void clsShape::Copy(const clsShape& Source)
{
    m_type = Source.m_type;
    if (m_type == ShapeKind::Polygon) {
        m_numVertices = Source.m_numVertices;
        m_vertices = Source.m_vertices;
        m_center = PolygonCentroid(Vertices());
    } else {
        m_center = Source.m_center;
        m_radii = Source.m_radii;
        m_angle = Source.m_angle;
    }
}

void clsShape::Save(ShapeKind Type, std::span<const Point> Points)
{
    m_type = Type;
    m_center = m_radii = {0, 0};
    m_angle = 0;
    if (Type == ShapeKind::Circle)
        SaveCircle(Points);
    else if (Type == ShapeKind::Ellipse)
        SaveEllipse(Points);
    else if (Type == ShapeKind::Polygon)
        SavePolygon(Points);
}

void clsShape::SaveCircle(std::span<const Point> Points)
{
    m_type = ShapeKind::None;
    if (Points.empty())
        return;
    const auto [left, right] = std::ranges::minmax(Points, {}, &Point::X);
    const auto [top, bottom] = std::ranges::minmax(Points, {}, &Point::Y);
    const Point extent{right.X - left.X, bottom.Y - top.Y};
    if (!(extent.X > 0 && extent.Y > 0 && IsFinite(extent)))
        return;
    m_type = ShapeKind::Circle;
    m_center = {std::midpoint(left.X, right.X), std::midpoint(top.Y, bottom.Y)};
    m_radii = {extent.X / 2, extent.Y / 2};
}

void clsShape::SaveEllipse(std::span<const Point> Points)
{
    m_type = ShapeKind::None;
    if (Points.size() < 3)
        return;
    const auto ellipse = EllipseFrom3Points(Points[0], Points[1], Points[2]);
    if (!ellipse || !IsFinite(ellipse->Center) || !IsFinite({ellipse->RadiusX, ellipse->RadiusY}))
        return;
    // A third point on an end of the axis leaves nothing but rounding.
    constexpr double leastRatio = 1e-6;
    if (!(ellipse->RadiusY > leastRatio * ellipse->RadiusX))
        return;
    m_type = ShapeKind::Ellipse;
    m_center = ellipse->Center;
    m_radii = {ellipse->RadiusX, ellipse->RadiusY};
    m_angle = ellipse->Angle;
}

void clsShape::SavePolygon(std::span<const Point> Points)
{
    if (Points.size() < 3 || Points.size() > MaxVertices
        || !std::ranges::all_of(Points, IsFinite)) {
        m_type = ShapeKind::None;
        return;
    }
    m_numVertices = static_cast<int>(Points.size());
    std::ranges::copy(Points, m_vertices.begin());
    m_center = PolygonCentroid(Vertices());
}

void clsShape::SetShapeType(ShapeKind Type)
{
    if (Type < ShapeKind::None || Type > ShapeKind::Polygon)
        return;
    m_type = Type;
    m_center = m_radii = {0, 0};
    m_angle = 0;
    m_numVertices = 0;
}

void clsShape::SetCenter(Point Center)
{
    if (m_type == ShapeKind::Polygon) {
        if (!HasCenter())
            return;
        const Point step{Center.X - m_center.X, Center.Y - m_center.Y};
        for (Point& vertex : Corners())
            vertex = {vertex.X + step.X, vertex.Y + step.Y};
    }
    m_center = Center;
}

int clsShape::GetVertices() const
{
    return m_type == ShapeKind::Polygon ? m_numVertices : 0;
}

std::span<Point> clsShape::Corners()
{
    return std::span(m_vertices).first(static_cast<std::size_t>(m_numVertices));
}

std::span<const Point> clsShape::Vertices() const
{
    return std::span(m_vertices).first(static_cast<std::size_t>(GetVertices()));
}

Point clsShape::GetVertex(int Index) const
{
    return HasVertex(Index) ? m_vertices[static_cast<std::size_t>(Index - 1)] : Point();
}

void clsShape::SetVertex(Point At, int Index)
{
    if (!HasVertex(Index))
        return;
    m_vertices[static_cast<std::size_t>(Index - 1)] = At;
    m_center = PolygonCentroid(Vertices());
}

ShapeHit clsShape::Find(Point At) const
{
    switch (m_type) {
    case ShapeKind::None:
        break;
    case ShapeKind::Circle:
        return {IsOnRoundOutline(At) ? ShapePart::CircleOutline : ShapePart::None};
    case ShapeKind::Ellipse:
        return {IsOnRoundOutline(At) ? ShapePart::EllipseOutline : ShapePart::None};
    case ShapeKind::Polygon:
        return FindVertexOrEdge(At);
    }
    return {};
}

ShapeHit clsShape::FindVertexOrEdge(Point At) const
{
    const std::span<const Point> vertices = Vertices();
    for (std::size_t i = 0; i < vertices.size(); ++i)
        if (std::abs(At.X - vertices[i].X) <= HitTolerance
            && std::abs(At.Y - vertices[i].Y) <= HitTolerance)
            return {ShapePart::Vertex, static_cast<int>(i) + 1};
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const Point start = vertices[i];
        const Point end = vertices[(i + 1) % vertices.size()];
        const Point edge{end.X - start.X, end.Y - start.Y};
        const double lengthSquared = edge.Y * edge.Y + edge.X * edge.X;
        if (lengthSquared == 0)
            return {};
        const Point offset{At.X - start.X, At.Y - start.Y};
        // Not held between 0 and 1: an edge can be taken hold of along its extension, too.
        const double t = (edge.Y * offset.Y + edge.X * offset.X) / lengthSquared;
        const double dx = offset.X - edge.X * t;
        const double dy = offset.Y - edge.Y * t;
        if (dy * dy + dx * dx <= HitTolerance * HitTolerance)
            return {ShapePart::Edge, static_cast<int>(i) + 1};
    }
    return {};
}

bool clsShape::IsOnRoundOutline(Point At) const
{
    const double dx = At.X - m_center.X;
    const double dy = At.Y - m_center.Y;
    if (m_radii.X == 0 || m_radii.Y == 0)
        return dx == 0 && dy == 0;
    const double upright = dy <= 0 ? Pi / 2 : -Pi / 2;
    const double bearing = dx == 0 ? upright : -std::atan(dy / dx);
    const double fromAxis = bearing - (m_type == ShapeKind::Ellipse ? m_angle : 0.0);
    const double sine = m_radii.X * std::sin(fromAxis);
    const double cosine = m_radii.Y * std::cos(fromAxis);
    const double product = m_radii.X * m_radii.Y;
    const double outline = std::sqrt(product * product / (cosine * cosine + sine * sine));
    return std::abs(std::sqrt(dx * dx + dy * dy) - outline) <= HitTolerance;
}

void clsShape::Resize(Point Radii, int Vertex)
{
    if (m_type == ShapeKind::Polygon) {
        ResizePolygon(Radii.X, Vertex);
        return;
    }
    if (m_type == ShapeKind::None)
        return;
    if (Radii.X != NoPoint)
        m_radii.X = Radii.X;
    if (Radii.Y != NoPoint)
        m_radii.Y = Radii.Y;
}

void clsShape::ResizePolygon(double Distance, int Vertex)
{
    if (Distance == NoPoint || !HasVertex(Vertex) || !HasCenter())
        return;
    const double before = VectorLength(GetVertex(Vertex), m_center);
    if (before == 0)
        return;
    const double ratio = Distance / before;
    for (Point& vertex : Corners())
        vertex = {m_center.X + (vertex.X - m_center.X) * ratio,
            m_center.Y + (vertex.Y - m_center.Y) * ratio};
}

void clsShape::Rotate(double Delta)
{
    if (m_type == ShapeKind::Ellipse) {
        m_angle += Delta;
        if (std::abs(m_angle) > Pi / 2)
            m_angle += m_angle <= 0 ? Pi : -Pi;
    }
    if (m_type != ShapeKind::Polygon || !HasCenter())
        return;
    const double cosine = std::cos(Delta);
    const double sine = std::sin(Delta);
    for (Point& vertex : Corners()) {
        const double dx = vertex.X - m_center.X;
        const double dy = vertex.Y - m_center.Y;
        vertex = {m_center.X + dx * cosine + dy * sine, m_center.Y - dx * sine + dy * cosine};
    }
}

} // namespace morvane
