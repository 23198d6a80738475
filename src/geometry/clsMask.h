// A byte per image pixel that says where the wavefront exists: the fit accepts only ticks on it,
// every figure and map samples it, and the tracer walks on it. Row by row from the top,
// cell = row * Width + column.
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "geometry/ShapeFill.h"

namespace morvane {

class clsShape;

inline constexpr std::uint8_t MaskOutside = 0, MaskInside = 1, MaskObstruction = 2;

// A mask as others read it.
struct MaskView {
    std::span<const std::uint8_t> Cells;
    int Width = 0, Height = 0;

    bool IsInside(int Column, int Row) const
    {
        return Column >= 0 && Column < Width && Row >= 0 && Row < Height
            && Cells[static_cast<std::size_t>(Row) * Width + Column] == MaskInside;
    }
};

class clsMask {
public:
    bool HasMask() const { return m_hasMask; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    MaskView View() const { return {m_cells, m_width, m_height}; }

    // The mask is twice the image in both axes, for the tracer.
    bool HalfSize = false;
    // The shapes have been rasterised into the buffer.
    bool MaskValid = false;
    bool MaskTrimmed() const { return m_trimmed; }

    // Makes a buffer of zeros, neither valid nor trimmed; a size below 1 makes one cell with sizes
    // 0. HalfSize is the caller's to set. False, and no mask is left, if memory cannot be had.
    bool CreateMask(int Width, int Height);
    // All cells to 0; not trimmed any more.
    void ClearMask();

    // Write their value into each cell inside the shape, and leave the others: aperture first,
    // obstruction second. Doubled is the shape at twice its scale. Nothing happens unless a mask
    // exists and Doubled equals HalfSize. A polygon counts as the convex hull of its corners, less
    // the last column of each row; ShapeFill.h and PolygonFill.h have the rules.
    void UpdateApertureMask(const clsShape& Aperture, bool Doubled);
    void UpdateObstructionMask(const clsShape& Obstruction, bool Doubled);

    // Takes a rim of Rim cells off whatever is not 0, so that the poor data at the edge of the
    // aperture stays out of the analysis. Cannot be undone but by ClearMask.
    void TrimMask(int Rim);

private:
    void Rasterise(const clsShape& Shape, bool Doubled, std::uint8_t Value);

    std::vector<std::uint8_t> m_cells;
    std::vector<ColumnSpan> m_rowSpans; // working store of the polygon fill, one a row
    int m_width = 0, m_height = 0;
    bool m_hasMask = false, m_trimmed = false;
};

} // namespace morvane
