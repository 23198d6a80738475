#include "geometry/ValleyField.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr int FlatTolerance = 1; // grey levels
constexpr int SearchReach = 19; // pixels each way
constexpr int RisesToStop = 3; // brighter pixels that end a search

// The farthest column of a search: SearchReach pixels on, and not out of the run.
int searchLimit(int column, int step, ColumnSpan run)
{
    return std::clamp(column + step * SearchReach, run.First, run.End - 1);
}

// The last column that is dark enough.
int flatEnd(StripRaster::RowView levels, int column, int step, ColumnSpan run, int highest)
{
    const int limit = searchLimit(column, step, run);
    while (column != limit && levels[column + step] <= highest)
        column += step;
    return column;
}

int flatCenter(StripRaster::RowView levels, int column, ColumnSpan run)
{
    const int highest = levels[column] + FlatTolerance;
    const int sum =
        flatEnd(levels, column, -1, run, highest) + flatEnd(levels, column, 1, run, highest);
    const int half = sum / 2;
    return half + (sum & half & 1);
}

// Walks on as long as it may still get darker: equal levels tell nothing, brighter ones count.
int darkestColumn(StripRaster::RowView levels, int column, int step, ColumnSpan run)
{
    const int limit = searchLimit(column, step, run);
    int best = levels[column], bestColumn = column;
    for (int rises = 0; column != limit && rises < RisesToStop;) {
        column += step;
        const int level = levels[column];
        if (level < best) {
            best = level;
            bestColumn = column;
            rises = 0;
        } else if (level > best) {
            ++rises;
        }
    }
    return bestColumn;
}

} // namespace

ValleyField::ValleyField(const StripRaster& Picture, const InsideRuns& Inside)
    : m_picture(Picture), m_inside(Inside)
{
}

bool ValleyField::IsClear(PixelPosition At) const
{
    constexpr int Gap = 2;
    const auto [column, row] = At;
    return column >= Gap && column < Width() - Gap && row >= Gap && row < Height() - Gap
        && m_inside.Contains(At) && m_inside.Contains({column - Gap, row})
        && m_inside.Contains({column + Gap, row}) && m_inside.Contains({column, row - Gap})
        && m_inside.Contains({column, row + Gap});
}

int ValleyField::FlatCenter(PixelPosition At) const
{
    return flatCenter(m_picture.Row(At.Row), At.Column, m_inside.RunAt(At));
}

int ValleyField::ValleyCenter(PixelPosition At) const
{
    const auto levels = m_picture.Row(At.Row);
    const ColumnSpan run = m_inside.RunAt(At);
    const int leftward = darkestColumn(levels, At.Column, -1, run);
    return flatCenter(levels, darkestColumn(levels, leftward, 1, run), run);
}

} // namespace morvane
