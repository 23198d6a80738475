#include "geometry/clsFringes.h"

#include <algorithm>
#include <cmath>

namespace morvane {

namespace {

constexpr double HitTolerance = 3.0; // image pixels, whatever the zoom

bool IsNear(Point tick, Point at, double tolerance)
{
    return std::abs(tick.X - at.X) <= tolerance && std::abs(tick.Y - at.Y) <= tolerance;
}

bool IsOrder(int order)
{
    return order >= 1 && order <= MaxFringes;
}

} // namespace

clsFringes::clsFringes() : m_ticks(std::size_t{MaxFringes} * MaxTicks, Point{0, 0})
{
    m_orders.fill(NoFringe);
    m_numTicks.fill(0);
}

std::size_t clsFringes::TickPlace(int Index, int Tick)
{
    return static_cast<std::size_t>((Index - 1) * MaxTicks + Tick - 1);
}

bool clsFringes::FindSlot(int Order, int& Index) const
{
    if (Index == NoFringe)
        Index = GetFringeIndex(Order);
    return IsSlot(Index);
}

std::span<Point> clsFringes::UsedTicks(int Index)
{
    return {&m_ticks[TickPlace(Index, 1)], static_cast<std::size_t>(m_numTicks[Index])};
}

std::span<const Point> clsFringes::Ticks(int Index) const
{
    if (!IsSlot(Index))
        return {};
    return {&m_ticks[TickPlace(Index, 1)], static_cast<std::size_t>(m_numTicks[Index])};
}

int clsFringes::TotalNumTicks() const
{
    int total = 0;
    for (int index = 1; index <= m_numFringes; ++index)
        total += m_numTicks[index];
    return total;
}

int clsFringes::GetNumTicks(int Order, int& Index) const
{
    return FindSlot(Order, Index) ? m_numTicks[Index] : NoFringe;
}

int clsFringes::GetFringeIndex(int Order) const
{
    if (Order == NoFringe) // would find a free slot
        return NoFringe;
    for (int index = 1; index <= m_numFringes; ++index)
        if (m_orders[index] == Order)
            return index;
    return NoFringe;
}

int clsFringes::GetFringeOrder(int Index) const
{
    return IsSlot(Index) ? m_orders[Index] : NoFringe;
}

int clsFringes::FindFreeSlot() const
{
    for (int index = 1; index <= MaxFringes; ++index)
        if (m_orders[index] == NoFringe)
            return index;
    return NoFringe;
}

int clsFringes::AddOrder(int Order)
{
    if (!IsOrder(Order) || m_numFringes == MaxFringes)
        return NoFringe;
    const int index = FindFreeSlot();
    if (index == NoFringe)
        return NoFringe;
    m_orders[index] = Order;
    m_numTicks[index] = 0;
    ++m_numFringes;
    return index;
}

int clsFringes::InsertOrder(int Order, std::span<const Point> Centers)
{
    if (Centers.size() > MaxTicks)
        return NoFringe;
    int index = AddOrder(Order);
    if (index != NoFringe)
        AddCenters(Order, Centers, index);
    return index;
}

void clsFringes::SetOrder(int Order, int Index)
{
    if (IsOrder(Order) && IsSlot(Index))
        m_orders[Index] = Order;
}

void clsFringes::DeleteOrder(int Order, int Index)
{
    if (m_numFringes == 0 || !FindSlot(Order, Index))
        return;
    ClearFringe(Index);
    CloseGap(Index);
    --m_numFringes;
    Renumber(Order, true);
}

void clsFringes::DeleteAll()
{
    for (int index = 1; index <= MaxFringes; ++index)
        ClearFringe(index);
    m_numFringes = 0;
}

bool clsFringes::CombineOrders(int Order1, int Order2, int& Index1, int& Index2)
{
    if (!FindSlot(Order1, Index1) || !FindSlot(Order2, Index2) || Index1 == Index2)
        return false;
    if (m_numTicks[Index1] + m_numTicks[Index2] > MaxTicks)
        return false;
    AddCenters(Order1, Ticks(Index2), Index1);
    ClearFringe(Index2);
    return true;
}

void clsFringes::CopyFringe(int To, int From)
{
    if (!IsSlot(To) || !IsSlot(From))
        return;
    std::ranges::copy(Ticks(From), &m_ticks[TickPlace(To, 1)]);
    m_numTicks[To] = m_numTicks[From];
    m_orders[To] = m_orders[From];
}

void clsFringes::ClearFringe(int Index)
{
    std::ranges::fill(UsedTicks(Index), Point{0, 0});
    m_numTicks[Index] = 0;
    m_orders[Index] = NoFringe;
}

void clsFringes::Defrag(int Index)
{
    if (Index == NoFringe)
        CloseAllGaps();
    else if (IsSlot(Index))
        CloseGap(Index);
}

void clsFringes::CloseGap(int Index)
{
    if (Index >= m_numFringes)
        return;
    for (int index = Index; index < m_numFringes; ++index)
        CopyFringe(index, index + 1);
    m_orders[m_numFringes] = NoFringe;
}

void clsFringes::CloseAllGaps()
{
    int last = MaxFringes;
    while (last >= 1 && m_orders[last] == NoFringe)
        --last;
    if (last < 2)
        return;
    for (int to = 1; to <= last; ++to) {
        if (m_orders[to] != NoFringe)
            continue;
        int from = to + 1;
        while (from <= last && m_orders[from] == NoFringe)
            ++from;
        if (from > last) {
            // Wanted also after several gaps: the slots that came free stay counted.
            ClearFringe(last);
            m_numFringes = last - 1;
            return;
        }
        CopyFringe(to, from);
        ClearFringe(from);
    }
    m_numFringes = last;
}

void clsFringes::Renumber(int Order, bool Down)
{
    for (int index = 1; index <= m_numFringes; ++index) {
        int& order = m_orders[index];
        if (order == NoFringe)
            continue;
        if (Down && order > Order)
            --order;
        else if (!Down && order >= Order)
            ++order;
    }
}

void clsFringes::AddCenter(int Order, Point At, int& Index)
{
    AddCenters(Order, {&At, 1}, Index);
}

void clsFringes::AddCenters(int Order, std::span<const Point> Centers, int& Index)
{
    if (!FindSlot(Order, Index))
        return;
    int& count = m_numTicks[Index];
    if (Centers.size() > static_cast<std::size_t>(MaxTicks - count))
        return;
    std::ranges::copy(Centers, m_ticks.begin() + (Index - 1) * MaxTicks + count);
    count += static_cast<int>(Centers.size());
}

Point clsFringes::GetCenter(int Order, int Tick, int& Index) const
{
    if (!FindSlot(Order, Index) || !HasTick(Index, Tick))
        return {NoPoint, NoPoint};
    return m_ticks[TickPlace(Index, Tick)];
}

void clsFringes::SetCenter(int Order, int Tick, Point At, int& Index)
{
    if (FindSlot(Order, Index) && HasTick(Index, Tick))
        m_ticks[TickPlace(Index, Tick)] = At;
}

void clsFringes::DeleteCenter(int Order, int Tick, int& Index)
{
    if (!FindSlot(Order, Index) || !HasTick(Index, Tick))
        return;
    const std::span<Point> ticks = UsedTicks(Index);
    std::ranges::copy(ticks.subspan(static_cast<std::size_t>(Tick)), ticks.begin() + Tick - 1);
    --m_numTicks[Index];
}

void clsFringes::TransposeAll()
{
    for (int index = 1; index <= m_numFringes; ++index)
        for (Point& tick : UsedTicks(index))
            std::swap(tick.X, tick.Y);
}

void clsFringes::HalfFringeData()
{
    for (int index = 1; index <= m_numFringes; ++index)
        for (Point& tick : UsedTicks(index))
            tick = {tick.X * 0.5, tick.Y * 0.5};
}

std::optional<FringeHit> clsFringes::Find(Point At) const
{
    for (int index = 1; index <= m_numFringes; ++index) {
        const std::span<const Point> ticks = Ticks(index);
        const auto hit = std::ranges::find_if(
            ticks, [At](Point tick) { return IsNear(tick, At, HitTolerance); });
        if (hit != ticks.end())
            return FringeHit{m_orders[index], static_cast<int>(hit - ticks.begin()) + 1, index};
    }
    return std::nullopt;
}

bool clsFringes::FindInOtherFringe(Point At, int Order, double Tolerance, bool OtherThanOrder) const
{
    for (int index = 1; index <= m_numFringes; ++index)
        if ((m_orders[index] != Order) == OtherThanOrder
            && std::ranges::any_of(
                Ticks(index), [=](Point tick) { return IsNear(tick, At, Tolerance); }))
            return true;
    return false;
}

} // namespace morvane
