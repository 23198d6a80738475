// Where a mask is inside, row by row as runs of columns. Shapes leave few runs in a row, so that
// those of a large mask take little memory, and a walk along a row knows how far it may go without
// a look at each cell.
#pragma once
#include <span>
#include <vector>

#include "geometry/StripRaster.h"
#include "geometry/clsMask.h"

namespace morvane {

class InsideRuns {
public:
    // Of the mask as it is, or with rows and columns exchanged. Throws std::bad_alloc.
    InsideRuns(const MaskView& Mask, Orientation Turn);

    // From left to right, with a gap between any two.
    std::span<const ColumnSpan> Row(int Index) const { return m_rows[Index]; }

    // The run that holds a place in the mask; an empty one if it is not inside.
    ColumnSpan RunAt(PixelPosition Place) const
    {
        for (const ColumnSpan& run : m_rows[Place.Row])
            if (Place.Column < run.End)
                return Place.Column < run.First ? ColumnSpan{} : run;
        return {};
    }

    bool Contains(PixelPosition Place) const { return RunAt(Place).End != 0; }

private:
    void FindInRows(const MaskView& mask);
    void FindInColumns(const MaskView& mask);
    void BeginOrEnd(int row, int column);

    std::vector<std::vector<ColumnSpan>> m_rows;
};

} // namespace morvane
