// The exact outline of an aperture or obstruction, in image pixels, y down. Whether a position is
// inside is decided by the figure's own equation, not by the cells of a mask.
#pragma once
#include <vector>

#include "geometry/clsShape.h"
#include "platform/Point.h"

namespace morvane {

struct Outline {
    ShapeKind Kind = ShapeKind::None;
    Point Center{0, 0}, Radii{0, 0}; // of a circle, each axis its own; of an ellipse, half axes
    double Angle = 0; // of an ellipse: radians from +x to the axis of Radii.X,
                      // counter-clockwise as seen
    std::vector<Point> Corners; // of a polygon

    bool Contains(Point At) const;

    // The points from which clsShape::Save makes the figure: four on a circle's outline, the ends
    // of an ellipse's longer axis and one end of the other, a polygon's corners.
    std::vector<Point> DefiningPoints() const;
    clsShape Shape(ShapeRole Role) const;
};

Outline CircleOutline(Point Center, Point Radii);
Outline EllipseOutline(Point Center, Point Radii, double Angle);
Outline PolygonOutline(std::vector<Point> Corners);

} // namespace morvane
