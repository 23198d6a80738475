// What the tracer walks on: a smoothed picture and the inside of the mask of the same size, in the
// frame where fringes run along y. A valley is a dark stretch across a row; its center is where a
// tick goes. All positions handed in lie in the picture.
#pragma once
#include "geometry/InsideRuns.h"
#include "geometry/StripRaster.h"

namespace morvane {

class ValleyField {
public:
    // Both must outlive the field.
    ValleyField(const StripRaster& Picture, const InsideRuns& Inside);

    int Width() const { return m_picture.Width(); }
    int Height() const { return m_picture.Height(); }

    StripRaster::RowView LevelsOf(int Row) const { return m_picture.Row(Row); }
    std::span<const ColumnSpan> InsideOf(int Row) const { return m_inside.Row(Row); }

    // Whether At is inside and keeps two pixels clear of the picture's border, of the aperture's
    // edge and of an obstruction.
    bool IsClear(PixelPosition At) const;

    // Middle of the pixels around At, along the row, that are at most one grey level brighter than
    // it: a valley's floor may be flat. Halves go to even. At is inside.
    int FlatCenter(PixelPosition At) const;

    // Column of the center of the valley at whose slope, or in which, At lies. At is inside.
    int ValleyCenter(PixelPosition At) const;

private:
    const StripRaster& m_picture;
    const InsideRuns& m_inside;
};

} // namespace morvane
