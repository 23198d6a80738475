#include "geometry/FringeTracer.h"

#include <algorithm>
#include <cstdlib>

namespace morvane {

namespace {

// Tells valleys from noise along a row: a valley is confirmed by brighter samples behind it, and
// the next one is sought only after a ridge that is confirmed by darker ones.
class ValleyDetector {
public:
    explicit ValleyDetector(int Column) : m_lowColumn(Column) { }

    // Whether this sample confirms the valley at LowColumn.
    bool Take(int column, int level)
    {
        if (m_seeksRidge) {
            TakeTowardsRidge(column, level);
            return false;
        }
        if (level < m_low) {
            m_low = level;
            m_lowColumn = column;
            m_count = 0;
        } else if (level > m_low + Threshold && ++m_count == Confirmations) {
            *this = ValleyDetector(m_lowColumn);
            m_seeksRidge = true;
            return true;
        }
        return false;
    }

    int LowColumn() const { return m_lowColumn; }

private:
    static constexpr int Threshold = 5; // grey levels
    static constexpr int Confirmations = 6; // samples beyond Threshold

    void TakeTowardsRidge(int column, int level)
    {
        if (level > m_high) {
            m_high = level;
            m_count = 0;
        } else if (m_high > level + Threshold && ++m_count == Confirmations) {
            *this = ValleyDetector(column);
        }
    }

    bool m_seeksRidge = false;
    int m_low = 255, m_lowColumn;
    int m_high = 0;
    int m_count = 0; // samples beyond Threshold since the last extreme
};

} // namespace

FringeTracer::FringeTracer(
    clsFringes& Fringes, const ValleyField& Field, const TraceParameters& Parameters)
    : m_fringes(Fringes), m_field(Field), m_parameters(Parameters),
      m_ticks(Field.Width(), Field.Height())
{
}

bool FringeTracer::ScanRows()
{
    for (int row = m_parameters.ScanRowStep; row < m_field.Height();
         row += m_parameters.ScanRowStep)
        if (!ScanRow(row))
            return false;
    return true;
}

// Columns that are not inside, as behind an obstruction, are passed over. The very first one inside
// only starts the search: its level does not count.
bool FringeTracer::ScanRow(int row)
{
    const auto runs = m_field.InsideOf(row);
    if (runs.empty())
        return true;
    const int start = runs.front().First;
    const auto levels = m_field.LevelsOf(row);
    ValleyDetector detector(start);
    for (const ColumnSpan& run : runs)
        for (int column = std::max(run.First, start + 1); column < run.End; ++column)
            if (detector.Take(column, levels[column])
                && !TraceValley({m_field.FlatCenter({detector.LowColumn(), row}), row}))
                return false;
    return true;
}

// Keeps the fringe if it is long enough. False if there is no room for another one.
bool FringeTracer::TraceValley(PixelPosition seed)
{
    if (!TraceFringe(seed))
        return false;
    const int numTicks = NumTicks();
    if (numTicks >= m_parameters.MinTicks) {
        ++m_order;
    } else {
        m_fringes.DeleteOrder(m_order, m_slot);
        m_ticks.RemoveLast(numTicks);
    }
    return true;
}

// Upward the spacing counts from the picture's origin, so that already the first step is far enough
// (next to the origin it may not be), and a trace in a known valley meets its fringe there.
bool FringeTracer::TraceFringe(PixelPosition seed)
{
    m_slot = m_fringes.AddOrder(m_order);
    if (m_slot == NoFringe)
        return false;
    AddTick(seed);
    Follow(seed, -1, {0, 0});
    Follow(seed, 1, seed);
    return true;
}

void FringeTracer::Follow(PixelPosition from, int rowStep, PixelPosition lastTick)
{
    PixelPosition at = from;
    for (at.Row += rowStep; m_field.IsClear(at); at.Row += rowStep) {
        at.Column = m_field.ValleyCenter(at);
        if (NumTicks() == MaxTicks)
            return;
        if (!IsFarEnough(at, lastTick))
            continue;
        lastTick = at;
        if (m_ticks.HasOther(at, m_order, m_parameters.OtherFringeTol))
            return;
        if (!m_ticks.HasOwn(at, m_order, m_parameters.SameFringeTol))
            AddTick(at);
    }
}

bool FringeTracer::IsFarEnough(PixelPosition at, PixelPosition lastTick) const
{
    const std::int64_t rows = std::abs(at.Row - lastTick.Row);
    const std::int64_t columns = std::abs(at.Column - lastTick.Column);
    return rows >= m_parameters.TickRowStep
        && rows * rows + columns * columns >= m_parameters.TickDistSq;
}

void FringeTracer::AddTick(PixelPosition at)
{
    m_fringes.AddCenter(
        m_order, {static_cast<double>(at.Column), static_cast<double>(at.Row)}, m_slot);
    m_ticks.Add(at, m_order);
}

} // namespace morvane
