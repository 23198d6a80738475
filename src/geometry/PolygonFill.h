// Marks the cells of a mask inside a polygon, which counts as the convex hull of its corners: a
// re-entrant corner is filled too.
#pragma once
#include <cstdint>
#include <span>

#include "geometry/ShapeFill.h"
#include "platform/Point.h"

namespace morvane {

// Corners farther than this from the origin, in either axis, are moved to it, and what is no number
// counts as 0: a fill takes a step for each row that an edge crosses, in the mask or not.
inline constexpr double MaxCornerDistance = 262144;

// The union of the triangles of all triples of Corners, rounded to whole cells. In a triangle, each
// row from the top corner (if it lies above the others) to above the middle one, and each row from
// the middle corner to the bottom one (if it lies below the others), is filled between its two
// edges, the last column excluded. Rows and columns are held inside the mask, so that what lies
// above the mask falls onto its first row. At most MaxVertices corners count. RowSpans is working
// store, one element a row, its content of no meaning before and after.
void FillPolygon(const MaskCells& Mask, std::span<const Point> Corners, std::uint8_t Value,
    std::span<ColumnSpan> RowSpans);

} // namespace morvane
