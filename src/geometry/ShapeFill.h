// Marks the cells of a mask inside a round outline; PolygonFill.h has the other kind. Cell centers
// are the integer positions (column, row), outlines are in cells. Cells outside the figure keep
// their value. Where a formula has no number for its result, as with a radius of 0, the cell is
// outside.
#pragma once
#include <algorithm>
#include <cstdint>
#include <span>

#include "analysis/ModMathLib.h"
#include "platform/Point.h"

namespace morvane {

// Columns First to End - 1.
struct ColumnSpan {
    int First = 0, End = 0;
};

// A mask being written: row by row from the top, without padding.
struct MaskCells {
    std::span<std::uint8_t> Cells;
    int Width = 0, Height = 0;

    std::span<std::uint8_t> Row(int Index) const
    {
        return Cells.subspan(static_cast<std::size_t>(Index) * Width, Width);
    }

    // Nothing if End is not beyond First.
    void Fill(int Index, ColumnSpan Columns, std::uint8_t Value) const
    {
        const auto row = Row(Index);
        if (Columns.First < Columns.End)
            std::fill(row.begin() + Columns.First, row.begin() + Columns.End, Value);
    }
};

// Inside: ((column - center.x) / radii.x)^2 + ((row - center.y) / radii.y)^2 <= 1.
void FillCircle(const MaskCells& Mask, Point Center, Point Radii, std::uint8_t Value);

// Inside: the distance from the center is at most the outline's radius in that direction.
void FillEllipse(const MaskCells& Mask, const TiltedEllipse& Ellipse, std::uint8_t Value);

} // namespace morvane
