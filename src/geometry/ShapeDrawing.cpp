// How a shape's outline is drawn.
#include <algorithm>
#include <array>
#include <cmath>

#include "geometry/clsShape.h"
#include "platform/Numbers.h"

namespace morvane {

void clsShape::Draw(Device& On, const ImageMapping& Map, RasterOp Op) const
{
    const clsRasterOpScope operation(On, Op);
    const clsPenScope pen(On, {White, 1});
    if (m_type == ShapeKind::Circle && m_radii.X != 0 && m_radii.Y != 0) {
        const double x = m_center.X - Map.OffsetX;
        const double y = m_center.Y - Map.OffsetY;
        On.DrawEllipse({RoundToLong((x - m_radii.X) * Map.Zoom),
            RoundToLong((y - m_radii.Y) * Map.Zoom), RoundToLong((x + m_radii.X) * Map.Zoom + 1),
            RoundToLong((y + m_radii.Y) * Map.Zoom + 1)});
    }
    if (m_type == ShapeKind::Ellipse)
        DrawTilted(On, Map);
    if (m_type == ShapeKind::Polygon)
        DrawPolygon(On, Map);
}

void clsShape::DrawTilted(Device& On, const ImageMapping& Map) const
{
    constexpr int fewest = 20, most = 200;
    constexpr double fullTurn = 6.28318530717958;
    const double size = std::sqrt(Map.Zoom) * std::max(m_radii.X, m_radii.Y);
    const int segments = std::clamp(RoundToLong(size * 0.25), fewest, most);
    const double cosA = std::cos(m_angle), sinA = std::sin(m_angle);
    std::array<DevicePoint, most + 1> outline;
    for (int i = 0; i <= segments; ++i) {
        const double t = i * (fullTurn / segments);
        const double along = m_radii.X * std::cos(t), across = m_radii.Y * std::sin(t);
        outline[static_cast<std::size_t>(i)] = Map.ToDevice(
            m_center.X + along * cosA + across * sinA, m_center.Y - along * sinA + across * cosA);
    }
    On.DrawPolyline(std::span(outline).first(static_cast<std::size_t>(segments) + 1));
}

void clsShape::DrawPolygon(Device& On, const ImageMapping& Map) const
{
    if (m_numVertices == 0)
        return;
    std::array<DevicePoint, MaxVertices + 1> outline; // from the last vertex around to it again
    auto next = outline.begin() + 1;
    for (const Point& vertex : Vertices())
        *next++ = Map.ToDevice(vertex.X, vertex.Y);
    outline.front() = *(next - 1);
    On.DrawPolyline({outline.begin(), next});
}

} // namespace morvane
