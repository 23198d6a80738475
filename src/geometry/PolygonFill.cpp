#include "geometry/PolygonFill.h"

#include <algorithm>
#include <array>
#include <limits>

#include "geometry/clsShape.h"
#include "platform/Numbers.h"

namespace morvane {

namespace {

struct Corner {
    int Column, Row;
};

Corner wholeCell(Point at)
{
    const auto whole = [](double x) {
        return RoundToLong(std::clamp(x, -MaxCornerDistance, MaxCornerDistance));
    };
    return {whole(at.X), whole(at.Y)};
}

// Fills spans that may reach beyond the mask, and remembers a run of filled columns for each row,
// so that the many spans of a polygon that lie within each other cost next to nothing.
class SpanFiller {
public:
    SpanFiller(const MaskCells& Mask, std::span<ColumnSpan> RowSpans, std::uint8_t Value)
        : m_mask(Mask), m_filled(RowSpans), m_value(Value)
    {
        std::fill(m_filled.begin(), m_filled.end(), ColumnSpan{});
    }

    void Fill(int row, ColumnSpan columns)
    {
        row = std::clamp(row, 0, m_mask.Height - 1);
        columns.First = std::clamp(columns.First, 0, m_mask.Width - 1);
        columns.End = std::clamp(columns.End, 0, m_mask.Width - 1);
        ColumnSpan& filled = m_filled[row];
        if (columns.First >= filled.First && columns.End <= filled.End)
            return;
        if (columns.End < filled.First || columns.First > filled.End) {
            m_mask.Fill(row, columns, m_value);
            if (columns.End - columns.First > filled.End - filled.First)
                filled = columns;
            return;
        }
        m_mask.Fill(row, {columns.First, filled.First}, m_value);
        m_mask.Fill(row, {filled.End, columns.End}, m_value);
        filled = {std::min(columns.First, filled.First), std::max(columns.End, filled.End)};
    }

private:
    const MaskCells& m_mask;
    std::span<ColumnSpan> m_filled;
    std::uint8_t m_value;
};

enum class FanSide { Below = 1, Above = -1 };

// All edges that leave one corner downward, or all that leave it upward. Any two of them span a
// triangle; in a row that several cross, the spans of all pairs make up the one between the two
// outermost edges.
class Fan {
public:
    // An edge is crossed by the rows down to, but not including, the row of its other end; upward
    // that row is included.
    Fan(std::span<const Corner> Corners, Corner Apex, FanSide Side) : m_apex(Apex), m_side(Side)
    {
        for (const Corner& other : Corners) {
            const int rows = (other.Row - Apex.Row) * static_cast<int>(Side);
            if (rows > 0)
                m_edges[m_count++] = {Side == FanSide::Below ? rows - 1 : rows,
                    static_cast<double>(other.Column - Apex.Column) / rows};
        }
        std::sort(m_edges.begin(), m_edges.begin() + m_count,
            [](const Edge& a, const Edge& b) { return a.Reach > b.Reach; });
    }

    // From the far end to the apex, taking in the edges as they begin.
    void Fill(SpanFiller& filler) const
    {
        double low = std::numeric_limits<double>::infinity(), high = -low;
        int taken = 0;
        for (int rows = m_count > 0 ? m_edges[0].Reach : 0; rows > 0; --rows) {
            for (; taken < m_count && m_edges[taken].Reach >= rows; ++taken) {
                low = std::min(low, m_edges[taken].Slope);
                high = std::max(high, m_edges[taken].Slope);
            }
            filler.Fill(m_apex.Row + rows * static_cast<int>(m_side),
                {RoundToLong(rows * low + m_apex.Column),
                    RoundToLong(rows * high + m_apex.Column)});
        }
    }

private:
    struct Edge {
        int Reach; // rows from the apex to the last one crossed
        double Slope; // columns per row away from the apex
    };

    Corner m_apex;
    FanSide m_side;
    std::array<Edge, MaxVertices> m_edges;
    int m_count = 0;
};

} // namespace

void FillPolygon(const MaskCells& Mask, std::span<const Point> Corners, std::uint8_t Value,
    std::span<ColumnSpan> RowSpans)
{
    if (Mask.Width < 1 || Mask.Height < 1)
        return;
    std::array<Corner, MaxVertices> corners;
    const auto given = Corners.first(std::min<std::size_t>(Corners.size(), corners.size()));
    std::transform(given.begin(), given.end(), corners.begin(), wholeCell);
    const std::span<const Corner> used(corners.data(), given.size());

    SpanFiller filler(Mask, RowSpans, Value);
    for (const Corner& apex : used) {
        Fan(used, apex, FanSide::Below).Fill(filler);
        Fan(used, apex, FanSide::Above).Fill(filler);
    }
}

} // namespace morvane
