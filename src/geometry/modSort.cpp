#include "geometry/modSort.h"

#include <array>
#include <limits>
#include <optional>
#include <utility>

#include "platform/Numbers.h"

namespace morvane {

namespace {

// Where a fringe begins and ends, in whole pixels, and whether an obstruction cut it there.
struct Extent {
    static constexpr int None = std::numeric_limits<int>::max();

    int MinX = None; // None as well once the fringe has its number
    int MinY = None, MaxY = -1;
    int TopX = 0, BottomX = 0;
    bool BrokenBelow = false, BrokenAbove = false;

    bool IsBroken() const { return BrokenBelow || BrokenAbove; }
    void Mend() { BrokenBelow = BrokenAbove = false; }
};

Extent extentOf(std::span<const Point> ticks)
{
    Extent e;
    for (const Point& tick : ticks) {
        const int x = RoundToLong(tick.X), y = RoundToLong(tick.Y);
        e.MinX = std::min(e.MinX, x);
        if (y < e.MinY) {
            e.MinY = y;
            e.TopX = x;
        }
        if (y > e.MaxY) {
            e.MaxY = y;
            e.BottomX = x;
        }
    }
    return e;
}

// The mask in the frame of the tracer.
class TurnedMask {
public:
    TurnedMask(const MaskView& Mask, Orientation Turn)
        : m_mask(Mask), m_isTransposed(Turn == Orientation::Transposed)
    {
    }

    int Width() const { return m_isTransposed ? m_mask.Height : m_mask.Width; }
    int Height() const { return m_isTransposed ? m_mask.Width : m_mask.Height; }

    std::uint8_t At(int column, int row) const
    {
        if (m_isTransposed)
            std::swap(column, row);
        return m_mask.Cells[static_cast<std::size_t>(row) * m_mask.Width + column];
    }

private:
    const MaskView& m_mask;
    bool m_isTransposed;
};

int lowestInside(const TurnedMask& mask, int column)
{
    int row = mask.Height() - 1;
    while (row >= 0 && mask.At(column, row) != MaskInside)
        --row;
    return row;
}

int highestInside(const TurnedMask& mask, int column)
{
    int row = 0;
    while (row < mask.Height() && mask.At(column, row) != MaskInside)
        ++row;
    return row;
}

// In the columns up to window before and window - 1 behind column, and in these rows.
bool hasObstruction(const TurnedMask& mask, int column, int window, int firstRow, int lastRow)
{
    for (int row = std::max(firstRow, 0); row <= std::min(lastRow, mask.Height() - 1); ++row)
        for (int x = std::max(column - window, 0); x < std::min(column + window, mask.Width()); ++x)
            if (mask.At(x, row) == MaskObstruction)
                return true;
    return false;
}

// A fringe is broken where it ends well short of the aperture's edge, with the obstruction near.
// The window at the top is two rows longer than the one at the bottom; this is wanted.
void findBreaks(Extent& e, const TurnedMask& mask, const TraceParameters& parameters)
{
    const int gap = parameters.EdgeGap, window = parameters.ObstructionWindow;
    e.BrokenBelow = e.MaxY + gap < lowestInside(mask, e.BottomX)
        && hasObstruction(mask, e.BottomX, window, e.MaxY - window, e.MaxY + window - 1);
    e.BrokenAbove = e.MinY - gap > highestInside(mask, e.TopX)
        && hasObstruction(mask, e.TopX, window, e.MinY - window, e.MinY + window + 1);
}

class Sorter {
public:
    Sorter(clsFringes& Fringes, const TurnedMask& Mask, const TraceParameters& Parameters)
        : m_fringes(Fringes)
    {
        for (int slot = 1; slot <= m_fringes.NumFringes(); ++slot) {
            m_extents[slot] = extentOf(m_fringes.Ticks(slot));
            if (!m_fringes.Ticks(slot).empty())
                findBreaks(m_extents[slot], Mask, Parameters);
        }
    }

    void Run()
    {
        const auto any = [](const Extent&) { return true; };
        int order = 1;
        while (const auto slot = Leftmost(any)) {
            m_extents[*slot].MinX = Extent::None;
            m_fringes.SetOrder(order, *slot);
            if (m_extents[*slot].IsBroken())
                JoinOtherHalf(*slot);
            ++order;
        }
        if (m_hasJoined)
            m_fringes.Defrag(NoFringe);
    }

private:
    // Among the slots without a number that are wanted; the lowest of equals.
    template <typename Predicate>
    std::optional<int> Leftmost(Predicate isWanted) const
    {
        std::optional<int> best;
        int minX = Extent::None;
        for (int slot = 1; slot <= m_fringes.NumFringes(); ++slot) {
            if (m_extents[slot].MinX < minX && isWanted(m_extents[slot])) {
                minX = m_extents[slot].MinX;
                best = slot;
            }
        }
        return best;
    }

    void JoinOtherHalf(int slot)
    {
        const bool isUpper = m_extents[slot].BrokenBelow;
        const auto other = Leftmost(
            [isUpper](const Extent& e) { return isUpper ? e.BrokenAbove : e.BrokenBelow; });
        if (!other)
            return;
        int first = slot, second = *other;
        if (!m_fringes.CombineOrders(0, 0, first, second))
            return;
        m_hasJoined = true;
        m_extents[slot].Mend();
        m_extents[*other].Mend();
        m_extents[*other].MinX = Extent::None;
    }

    clsFringes& m_fringes;
    std::array<Extent, MaxFringes + 1> m_extents; // from 1, as the slots
    bool m_hasJoined = false;
};

} // namespace

void SortOrders(
    clsFringes& Fringes, const MaskView& Mask, Orientation Turn, const TraceParameters& Parameters)
{
    Sorter(Fringes, TurnedMask(Mask, Turn), Parameters).Run();
}

} // namespace morvane
