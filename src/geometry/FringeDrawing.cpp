// How the fringe store is drawn.
#include <algorithm>
#include <array>
#include <cstdlib>

#include "geometry/clsFringes.h"

namespace morvane {

namespace {

Color OrderColor(int order, const TickStyle& style)
{
    static constexpr Color byOrder[]{Cyan, Magenta, Yellow};
    return order == style.CurrentOrder ? White : byOrder[std::abs(order % 3)];
}

// An upright cross, right and lower ends included.
void DrawTick(Device& on, const ImageMapping& map, const TickStyle& style, Point tick)
{
    constexpr int farOff = 1 << 30; // keeps the arms of a tick far outside within the integers
    const DevicePoint center = map.ToDevice(tick.X, tick.Y);
    const int x = std::clamp(center.X, -farOff, farOff);
    const int y = std::clamp(center.Y, -farOff, farOff);
    const int arm = style.TickSize;
    on.DrawPolyline(std::array{DevicePoint{x - arm, y}, DevicePoint{x + arm + 1, y}});
    on.DrawPolyline(std::array{DevicePoint{x, y - arm}, DevicePoint{x, y + arm + 1}});
}

} // namespace

void clsFringes::DrawAll(Device& On, const ImageMapping& Map, const TickStyle& Style) const
{
    DrawSlots(On, Map, Style, NoFringe, NoFringe);
}

void clsFringes::DrawAllExceptOne(
    Device& On, const ImageMapping& Map, const TickStyle& Style, int Index, int Tick) const
{
    TickStyle thin = Style;
    thin.PenWidth = 1;
    DrawSlots(On, Map, thin, Index, Tick);
}

void clsFringes::DrawSlots(Device& On, const ImageMapping& Map, const TickStyle& Style,
    int ExceptIndex, int ExceptTick) const
{
    const clsRasterOpScope operation(On, Style.Op);
    const bool monochrome = On.BitsPerPixel() == 1;
    for (int index = 1; index <= m_numFringes; ++index) {
        const Color ink = monochrome ? White : OrderColor(m_orders[index], Style);
        const clsPenScope pen(On, {ink, Style.PenWidth});
        const std::span<const Point> ticks = Ticks(index);
        for (std::size_t i = 0; i < ticks.size(); ++i)
            if (index != ExceptIndex || static_cast<int>(i) + 1 != ExceptTick)
                DrawTick(On, Map, Style, ticks[i]);
    }
}

void clsFringes::DrawOrder(
    Device& On, const ImageMapping& Map, const TickStyle& Style, int Order, int Index) const
{
    if (!FindSlot(Order, Index))
        return;
    const clsRasterOpScope operation(On, Style.Op);
    const clsPenScope pen(On, {OrderColor(m_orders[Index], Style), 1});
    for (const Point& tick : Ticks(Index))
        DrawTick(On, Map, Style, tick);
}

void clsFringes::DrawCenter(Device& On, const ImageMapping& Map, const TickStyle& Style, int Order,
    int Tick, int Index) const
{
    // A tick beyond those in use may be drawn, so that one just deleted can be taken off again.
    if (!FindSlot(Order, Index) || Tick < 1 || Tick > MaxTicks)
        return;
    const clsRasterOpScope operation(On, Style.Op);
    const clsPenScope pen(On, {OrderColor(m_orders[Index], Style), 1});
    DrawTick(On, Map, Style, m_ticks[TickPlace(Index, Tick)]);
}

} // namespace morvane
