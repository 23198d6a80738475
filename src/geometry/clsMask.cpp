#include "geometry/clsMask.h"

#include <algorithm>
#include <array>
#include <new>

#include "geometry/PolygonFill.h"
#include "geometry/clsShape.h"

namespace morvane {

bool clsMask::CreateMask(int Width, int Height)
{
    m_hasMask = MaskValid = m_trimmed = false;
    m_width = m_height = 0;
    m_cells = {};
    m_rowSpans = {};
    const bool isEmpty = Width < 1 || Height < 1;
    try {
        m_cells.resize(isEmpty ? 1 : static_cast<std::size_t>(Width) * Height);
        m_rowSpans.resize(isEmpty ? 0 : Height);
    } catch (const std::bad_alloc&) {
        m_cells = {};
        return false;
    }
    if (!isEmpty) {
        m_width = Width;
        m_height = Height;
    }
    m_hasMask = true;
    return true;
}

void clsMask::ClearMask()
{
    std::fill(m_cells.begin(), m_cells.end(), MaskOutside);
    m_trimmed = false;
}

void clsMask::UpdateApertureMask(const clsShape& Aperture, bool Doubled)
{
    Rasterise(Aperture, Doubled, MaskInside);
}

void clsMask::UpdateObstructionMask(const clsShape& Obstruction, bool Doubled)
{
    Rasterise(Obstruction, Doubled, MaskObstruction);
}

void clsMask::Rasterise(const clsShape& Shape, bool Doubled, std::uint8_t Value)
{
    if (!m_hasMask || Doubled != HalfSize)
        return;
    const double factor = Doubled ? 2 : 1;
    const auto scaled = [factor](Point p) { return Point{p.X * factor, p.Y * factor}; };
    const MaskCells cells{m_cells, m_width, m_height};
    const Point center = scaled(Shape.GetCenter()), radii = scaled(Shape.GetRadii());

    switch (Shape.GetShapeType()) {
    case ShapeKind::None:
        break;
    case ShapeKind::Circle:
        FillCircle(cells, center, radii, Value);
        break;
    case ShapeKind::Ellipse:
        FillEllipse(cells, {center, radii.X, radii.Y, Shape.GetAngle()}, Value);
        break;
    case ShapeKind::Polygon: {
        std::array<Point, MaxVertices> corners;
        const auto end = std::ranges::transform(Shape.Vertices(), corners.begin(), scaled).out;
        FillPolygon(cells, {corners.begin(), end}, Value, m_rowSpans);
        break;
    }
    }
}

namespace {

constexpr std::uint8_t Trimmed = 255; // a cell that is taken off, until all walks are done

// A cell met on a walk over the mask, with what is left of the rim: takes it off if it is not 0.
// False once the rim is complete.
bool trimCell(std::uint8_t& cell, int& left)
{
    if (cell == MaskOutside)
        return true;
    if (left <= 0)
        return false;
    cell = Trimmed;
    --left;
    return true;
}

// The walk to the right goes on with what the walk to the left has left of the row above, so in
// most rows only the right side loses cells here. This is wanted.
void trimRows(const MaskCells& mask, int rim)
{
    int left = rim;
    for (int row = 0; row < mask.Height; ++row) {
        const auto cells = mask.Row(row);
        for (auto cell = cells.begin(); cell != cells.end() && trimCell(*cell, left); ++cell) { }
        left = rim;
        for (auto cell = cells.rbegin(); cell != cells.rend() && trimCell(*cell, left); ++cell) { }
    }
}

// Walks down, or up, all columns of a strip side by side: columns one after the other would touch
// a new cache line with each cell.
constexpr int StripWidth = 64;

void trimStrip(const MaskCells& mask, ColumnSpan strip, int firstRow, int step, int rim)
{
    std::array<int, StripWidth> left;
    left.fill(rim);
    std::array<bool, StripWidth> isDone{};
    int open = strip.End - strip.First;
    for (int row = firstRow; row >= 0 && row < mask.Height && open > 0; row += step) {
        const auto cells = mask.Row(row).subspan(strip.First, strip.End - strip.First);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (!isDone[i] && !trimCell(cells[i], left[i])) {
                isDone[i] = true;
                --open;
            }
        }
    }
}

void trimColumns(const MaskCells& mask, int rim)
{
    for (int first = 0; first < mask.Width; first += StripWidth) {
        const ColumnSpan strip{first, std::min(first + StripWidth, mask.Width)};
        trimStrip(mask, strip, 0, 1, rim);
        trimStrip(mask, strip, mask.Height - 1, -1, rim);
    }
}

} // namespace

void clsMask::TrimMask(int Rim)
{
    if (!m_hasMask)
        return;
    const MaskCells cells{m_cells, m_width, m_height};
    trimRows(cells, Rim);
    trimColumns(cells, Rim);
    std::replace(m_cells.begin(), m_cells.end(), Trimmed, MaskOutside);
    m_trimmed = true;
}

} // namespace morvane
