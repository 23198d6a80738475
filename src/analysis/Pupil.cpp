#include "analysis/Pupil.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "analysis/ModMathLib.h"
#include "platform/Numbers.h"

namespace morvane {

namespace {

// A radius of 0, one that is not a number, or one too small or large for its reciprocal cannot
// scale a pupil.
bool isUsable(double radius)
{
    const double scale = 1 / radius;
    return std::isfinite(radius) && std::isfinite(scale) && scale != 0;
}

// Infinite if a vertex lies nowhere.
double largestSquaredDistance(Point from, std::span<const Point> to)
{
    double largest = 0;
    for (const Point& p : to) {
        const double dx = p.X - from.X, dy = p.Y - from.Y;
        const double squared = dx * dx + dy * dy;
        if (!std::isfinite(squared))
            return std::numeric_limits<double>::infinity();
        largest = std::max(largest, squared);
    }
    return largest;
}

// The smallest circle through three of the vertices that holds them all, the first of several.
// Circles through two vertices are not considered.
std::optional<Circle> enclosingCircle(std::span<const Point> vertices)
{
    std::optional<Circle> best;
    double smallest = 1e308;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        for (std::size_t j = i + 1; j < vertices.size(); ++j) {
            for (std::size_t k = j + 1; k < vertices.size(); ++k) {
                const auto circle = CircleFrom3Points(vertices[i], vertices[j], vertices[k]);
                if (!circle)
                    continue;
                const double squared = largestSquaredDistance(circle->Center, vertices);
                if (squared < smallest) {
                    smallest = squared;
                    best = Circle{circle->Center, std::sqrt(squared)};
                }
            }
        }
    }
    return best;
}

} // namespace

int Pupil::Column(double X) const
{
    return RoundToLong(X / ScaleX + CenterX);
}

int Pupil::Row(double Y) const
{
    return RoundToLong(Y / ScaleY + CenterY);
}

int Pupil::TrimRim() const
{
    return IsDefined() ? RoundToLong((1 / ScaleY + 1 / ScaleX) * 0.5 * 0.03) : 0;
}

void Pupil::SetScalefactors(clsShape& Aperture)
{
    ApertureType = Aperture.GetShapeType();
    Point center = Aperture.GetCenter(), radii = Aperture.GetRadii();
    if (ApertureType == ShapeKind::Ellipse) {
        radii.X = radii.Y = std::max(radii.X, radii.Y);
    } else if (ApertureType == ShapeKind::Polygon) {
        const auto circle = enclosingCircle(Aperture.Vertices());
        if (!circle || !isUsable(circle->Radius))
            return;
        center = circle->Center;
        radii = {circle->Radius, circle->Radius};
        Aperture.SetRadii(radii);
    } else if (ApertureType != ShapeKind::Circle) {
        return;
    }
    if (!isUsable(radii.X) || !isUsable(radii.Y))
        return;
    CenterX = center.X;
    CenterY = center.Y;
    ScaleX = 1 / radii.X;
    ScaleY = 1 / radii.Y;
}

} // namespace morvane
