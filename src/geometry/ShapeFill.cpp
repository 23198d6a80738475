#include "geometry/ShapeFill.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "platform/Numbers.h"

namespace morvane {

namespace {

// The first of the numbers from first to end - 1 for which isPast holds, and end if there is none.
// Once it holds, it must hold for all that follow.
template <typename Predicate>
int firstPast(int first, int end, Predicate isPast)
{
    while (first < end) {
        const int middle = first + (end - first) / 2;
        if (isPast(middle))
            end = middle;
        else
            first = middle + 1;
    }
    return end;
}

} // namespace

// Along a row the left side of the condition grows with the distance from the center, rounding
// included, so the inside cells are one run around the column nearest to it.
void FillCircle(const MaskCells& Mask, Point Center, Point Radii, std::uint8_t Value)
{
    if (Mask.Width < 1)
        return;
    const int nearest = std::clamp(RoundToLong(Center.X), 0, Mask.Width - 1);
    for (int row = 0; row < Mask.Height; ++row) {
        const double v = (row - Center.Y) / Radii.Y;
        const auto isInside = [&](int column) {
            const double u = (column - Center.X) / Radii.X;
            return u * u + v * v <= 1;
        };
        if (!isInside(nearest))
            continue;
        const int first = firstPast(0, nearest, isInside);
        const int end = firstPast(nearest + 1, Mask.Width, std::not_fn(isInside));
        Mask.Fill(row, {first, end}, Value);
    }
}

namespace {

bool isInEllipse(const TiltedEllipse& e, int column, int row)
{
    const double dx = column - e.Center.X, dy = row - e.Center.Y;
    const double bearing = dx != 0 ? -std::atan(dy / dx) : dy <= 0 ? Pi / 2 : -Pi / 2;
    const double c = std::cos(bearing - e.Angle), s = std::sin(bearing - e.Angle);
    const double a2 = e.RadiusX * e.RadiusX, b2 = e.RadiusY * e.RadiusY;
    const double radius = std::sqrt(a2 * b2 / (b2 * (c * c) + a2 * (s * s)));
    return std::sqrt(dx * dx + dy * dy) <= radius;
}

// Rows of an ellipse by its quadratic form, without the trigonometry per cell of isInEllipse. The
// two agree but for cells within Margin of the outline, as a part of its radius: in these the
// rounding of the angles, amplified by the ratio of the axes, may decide.
class EllipseRows {
public:
    static constexpr double Margin = 1e-6;

    EllipseRows(const TiltedEllipse& Ellipse, int Width) : m_center(Ellipse.Center), m_width(Width)
    {
        const double a = std::abs(Ellipse.RadiusX), b = std::abs(Ellipse.RadiusY);
        const double major = std::max(a, b);
        const double least = std::max(major * Margin, LeastRadius);
        m_isTame = std::max({major, std::abs(m_center.X), std::abs(m_center.Y)}) <= MaxLength
            && std::abs(Ellipse.Angle) <= MaxAngle;
        m_isThin = std::min(a, b) < least;

        const double wideA = std::max(a, least), wideB = std::max(b, least);
        const double c = std::cos(Ellipse.Angle), s = std::sin(Ellipse.Angle);
        m_xx = c / wideA * (c / wideA) + s / wideB * (s / wideB);
        m_shear = s * c * (1 / (wideA * wideA) - 1 / (wideB * wideB)) / m_xx;
        m_shrink = 1 / (wideA * wideB * m_xx);
    }

    // No cell outside these columns is inside the ellipse.
    ColumnSpan Outer(int row) const
    {
        if (!m_isTame)
            return {0, m_width};
        const auto [left, right] = Chord(row, 1 + Margin);
        return {Column(std::floor(left)), Column(std::ceil(right) + 1)};
    }

    // All cells in these columns are.
    ColumnSpan Inner(int row) const
    {
        if (!m_isTame || m_isThin)
            return {};
        const auto [left, right] = Chord(row, 1 - Margin);
        return {Column(std::ceil(left) + 1), Column(std::floor(right))};
    }

private:
    // Beyond these the form and the cells' formula are not comparable any more; a radius below
    // LeastRadius holds no cell but one at the very center.
    static constexpr double MaxLength = 1e9, MaxAngle = 100, LeastRadius = 1e-3;

    struct Ends {
        double Left, Right;
    };

    // Where the row cuts the ellipse enlarged by factor; the right end lies before the left one if
    // it doesn't.
    Ends Chord(int row, double factor) const
    {
        const double dy = row - m_center.Y;
        const double squared = factor * factor / m_xx - (dy * m_shrink) * (dy * m_shrink);
        if (squared < 0)
            return {1, -1};
        const double middle = m_center.X + dy * m_shear, half = std::sqrt(squared);
        return {middle - half, middle + half};
    }

    int Column(double x) const { return static_cast<int>(std::clamp<double>(x, 0, m_width)); }

    Point m_center;
    int m_width;
    bool m_isTame, m_isThin;
    // The form is m_xx * (dx - dy * m_shear)^2 + m_xx * (dy * m_shrink)^2.
    double m_xx, m_shear, m_shrink;
};

bool isFinite(const TiltedEllipse& e)
{
    return std::isfinite(e.Center.X) && std::isfinite(e.Center.Y) && std::isfinite(e.RadiusX)
        && std::isfinite(e.RadiusY) && std::isfinite(e.Angle);
}

} // namespace

void FillEllipse(const MaskCells& Mask, const TiltedEllipse& Ellipse, std::uint8_t Value)
{
    if (!isFinite(Ellipse))
        return;
    const EllipseRows rows(Ellipse, Mask.Width);
    for (int row = 0; row < Mask.Height; ++row) {
        const ColumnSpan outer = rows.Outer(row), inner = rows.Inner(row);
        const auto cells = Mask.Row(row);
        const auto fillWhereInside = [&](int first, int end) {
            for (int column = first; column < end; ++column)
                if (isInEllipse(Ellipse, column, row))
                    cells[column] = Value;
        };
        if (inner.First >= inner.End) {
            fillWhereInside(outer.First, outer.End);
            continue;
        }
        fillWhereInside(outer.First, inner.First);
        Mask.Fill(row, inner, Value);
        fillWhereInside(inner.End, outer.End);
    }
}

} // namespace morvane
