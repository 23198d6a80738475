// The masks of shapes by their bare definitions, cell for cell and triangle for triangle: slow, and
// the measure of the fast fills, which must set the same cells.
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "geometry/PolygonFill.h"
#include "geometry/clsMask.h"

namespace morvane::plain {

struct Mask {
    int Width, Height;
    std::vector<std::uint8_t> Cells = std::vector<std::uint8_t>(Width * Height);

    std::uint8_t& At(int row, int column) { return Cells[row * Width + column]; }
};

inline void FillCircle(Mask& mask, Point center, Point radii, std::uint8_t value)
{
    for (int row = 0; row < mask.Height; ++row)
        for (int column = 0; column < mask.Width; ++column) {
            const double u = (column - center.X) / radii.X, v = (row - center.Y) / radii.Y;
            if (u * u + v * v <= 1)
                mask.At(row, column) = value;
        }
}

inline void FillEllipse(Mask& mask, const TiltedEllipse& e, std::uint8_t value)
{
    const double a2 = e.RadiusX * e.RadiusX, b2 = e.RadiusY * e.RadiusY;
    for (int row = 0; row < mask.Height; ++row)
        for (int column = 0; column < mask.Width; ++column) {
            const double dx = column - e.Center.X, dy = row - e.Center.Y;
            double bearing = dy <= 0 ? Pi / 2 : -Pi / 2;
            if (dx != 0)
                bearing = -std::atan(dy / dx);
            const double cosine = std::cos(bearing - e.Angle), sine = std::sin(bearing - e.Angle);
            const double squared = a2 * b2 / (b2 * (cosine * cosine) + a2 * (sine * sine));
            if (std::sqrt(dx * dx + dy * dy) <= std::sqrt(squared))
                mask.At(row, column) = value;
        }
}

struct Corner {
    double Row, Column;
};

inline void FillTriangle(Mask& mask, Corner p0, Corner p1, Corner p2, std::uint8_t value)
{
    if (p1.Row < p0.Row)
        std::swap(p0, p1);
    if (p2.Row < p1.Row)
        std::swap(p1, p2);
    if (p1.Row < p0.Row)
        std::swap(p0, p1);
    const auto [r0, c0] = p0;
    const auto [r1, c1] = p1;
    const auto [r2, c2] = p2;
    const auto fill = [&](double row, double a, double b) {
        const int r = static_cast<int>(std::clamp(row, 0.0, mask.Height - 1.0));
        a = std::clamp(std::nearbyint(a), 0.0, mask.Width - 1.0);
        b = std::clamp(std::nearbyint(b), 0.0, mask.Width - 1.0);
        for (int column = static_cast<int>(std::min(a, b)); column < std::max(a, b); ++column)
            mask.At(r, column) = value;
    };
    if (r0 != r1 && r0 != r2) {
        const double s1 = (c0 - c1) / (r0 - r1), s2 = (c0 - c2) / (r0 - r2);
        for (double r = r0; r < r1; ++r)
            fill(r, (r - r0) * s1 + c0, (r - r0) * s2 + c0);
    }
    if (r2 != r1 && r2 != r0) {
        const double s1 = (c2 - c0) / (r2 - r0), s2 = (c2 - c1) / (r2 - r1);
        for (double r = r1; r <= r2; ++r)
            fill(r, c2 - (r2 - r) * s1, c2 - (r2 - r) * s2);
    }
}

inline void FillPolygon(Mask& mask, const std::vector<Point>& points, std::uint8_t value)
{
    std::vector<Corner> corners;
    const auto whole = [](double x) {
        return std::isnan(x) ? 0
                             : std::nearbyint(std::clamp(x, -MaxCornerDistance, MaxCornerDistance));
    };
    for (const Point& p : points)
        corners.push_back({whole(p.Y), whole(p.X)});
    for (std::size_t i = 0; i < corners.size(); ++i)
        for (std::size_t j = i + 1; j < corners.size(); ++j)
            for (std::size_t k = j + 1; k < corners.size(); ++k)
                FillTriangle(mask, corners[i], corners[j], corners[k], value);
}

// One walk along cells that lie step apart; count goes on from the walk before.
inline void TrimWalk(Mask& mask, int start, int step, int length, int rim, int& count)
{
    for (int n = 0, cell = start; n < length; ++n, cell += step) {
        if (mask.Cells[cell] == 0)
            continue;
        if (count >= rim)
            return;
        mask.Cells[cell] = 255;
        ++count;
    }
}

inline void Trim(Mask& mask, int rim)
{
    const int w = mask.Width, h = mask.Height;
    int count = 0;
    for (int row = 0; row < h; ++row) {
        TrimWalk(mask, row * w, 1, w, rim, count);
        TrimWalk(mask, row * w + w - 1, -1, w, rim, count = 0);
    }
    for (int column = 0; column < w; ++column) {
        TrimWalk(mask, column, w, h, rim, count = 0);
        TrimWalk(mask, (h - 1) * w + column, -w, h, rim, count = 0);
    }
    for (std::uint8_t& cell : mask.Cells)
        if (cell > 254)
            cell = 0;
}

} // namespace morvane::plain
