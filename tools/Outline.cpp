#include "tools/Outline.h"

#include <cmath>
#include <utility>

#include "analysis/ModMathLib.h"

namespace morvane {
namespace {

// Even-odd rule: a ray to the right crosses the boundary an odd number of times.
bool polygonContains(const std::vector<Point>& corners, Point at)
{
    bool inside = false;
    for (std::size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
        const Point p = corners[i], q = corners[j];
        if ((p.Y > at.Y) != (q.Y > at.Y) && at.X < (q.X - p.X) * (at.Y - p.Y) / (q.Y - p.Y) + p.X)
            inside = !inside;
    }
    return inside;
}

} // namespace

Outline CircleOutline(Point Center, Point Radii)
{
    return {ShapeKind::Circle, Center, Radii, 0, {}};
}

Outline EllipseOutline(Point Center, Point Radii, double Angle)
{
    return {ShapeKind::Ellipse, Center, Radii, Angle, {}};
}

Outline PolygonOutline(std::vector<Point> Corners)
{
    return {ShapeKind::Polygon, {0, 0}, {0, 0}, 0, std::move(Corners)};
}

bool Outline::Contains(Point At) const
{
    if (Kind == ShapeKind::None)
        return false;
    if (Kind == ShapeKind::Polygon)
        return polygonContains(Corners, At);
    const double dx = At.X - Center.X, dy = At.Y - Center.Y;
    const double u = (dx * std::cos(Angle) - dy * std::sin(Angle)) / Radii.X;
    const double v = (dx * std::sin(Angle) + dy * std::cos(Angle)) / Radii.Y;
    return u * u + v * v <= 1;
}

std::vector<Point> Outline::DefiningPoints() const
{
    if (Kind == ShapeKind::Circle)
        return {{Center.X - Radii.X, Center.Y}, {Center.X, Center.Y - Radii.Y},
            {Center.X + Radii.X, Center.Y}, {Center.X, Center.Y + Radii.Y}};
    if (Kind != ShapeKind::Ellipse)
        return Corners;
    const bool firstIsLonger = Radii.X >= Radii.Y;
    const double longer = firstIsLonger ? Radii.X : Radii.Y;
    const double shorter = firstIsLonger ? Radii.Y : Radii.X;
    const double tilt = firstIsLonger ? Angle : Angle + Pi / 2;
    const double c = std::cos(tilt), s = std::sin(tilt);
    return {{Center.X + longer * c, Center.Y - longer * s},
        {Center.X - longer * c, Center.Y + longer * s},
        {Center.X + shorter * s, Center.Y + shorter * c}};
}

clsShape Outline::Shape(ShapeRole Role) const
{
    clsShape shape(Role);
    if (Kind != ShapeKind::None)
        shape.Save(Kind, DefiningPoints());
    return shape;
}

} // namespace morvane
