#include "geometry/TickIndex.h"

#include <algorithm>
#include <cmath>

namespace morvane {

TickIndex::TickIndex(int Width, int Height)
    : m_columns(Width / SquareSide + 1), m_rows(Height / SquareSide + 1),
      m_newest(static_cast<std::size_t>(m_columns) * m_rows, None)
{
}

std::size_t TickIndex::Square(PixelPosition at) const
{
    return static_cast<std::size_t>(at.Row / SquareSide) * m_columns + at.Column / SquareSide;
}

void TickIndex::Add(PixelPosition At, int Order)
{
    int& newest = m_newest[Square(At)];
    m_ticks.push_back({At, Order, newest});
    newest = static_cast<int>(m_ticks.size()) - 1;
}

void TickIndex::RemoveLast(int Count)
{
    for (; Count > 0; --Count) {
        m_newest[Square(m_ticks.back().At)] = m_ticks.back().Next;
        m_ticks.pop_back();
    }
}

template <typename Predicate>
bool TickIndex::HasNear(PixelPosition at, double tolerance, Predicate counts) const
{
    const int reach = static_cast<int>(std::ceil(tolerance));
    const int left = std::max(at.Column - reach, 0) / SquareSide;
    const int right = std::min((at.Column + reach) / SquareSide, m_columns - 1);
    const int top = std::max(at.Row - reach, 0) / SquareSide;
    const int bottom = std::min((at.Row + reach) / SquareSide, m_rows - 1);
    const auto isHit = [&](const Tick& tick) {
        return std::abs(tick.At.Column - at.Column) <= tolerance
            && std::abs(tick.At.Row - at.Row) <= tolerance && counts(tick);
    };
    for (int row = top; row <= bottom; ++row)
        for (int column = left; column <= right; ++column)
            for (int i = m_newest[static_cast<std::size_t>(row) * m_columns + column]; i != None;
                 i = m_ticks[i].Next)
                if (isHit(m_ticks[i]))
                    return true;
    return false;
}

bool TickIndex::HasOther(PixelPosition At, int Order, double Tolerance) const
{
    return HasNear(At, Tolerance, [Order](const Tick& tick) { return tick.Order != Order; });
}

bool TickIndex::HasOwn(PixelPosition At, int Order, double Tolerance) const
{
    return HasNear(At, Tolerance, [Order](const Tick& tick) { return tick.Order == Order; });
}

} // namespace morvane
