// How the fringe store is drawn.
#include <cstdlib>

#include "geometry/clsFringes.h"

namespace morvane {

namespace {

Color OrderColor(int order, const TickStyle& style)
{
    static constexpr Color byOrder[]{Cyan, Magenta, Yellow};
    return order == style.CurrentOrder ? White : byOrder[std::abs(order % 3)];
}

// The part of the image whose ticks may show on a device: most of a large picture's do not, and are
// passed over before any of them is drawn.
class TickWindow {
public:
    TickWindow(const DeviceRect& bounds, const ImageMapping& map, const TickStyle& style)
    {
        const double around = style.TickSize + style.PenWidth + 2.0;
        m_left = (bounds.Left - around) / map.Zoom + map.OffsetX;
        m_right = (bounds.Right + around) / map.Zoom + map.OffsetX;
        m_top = (bounds.Top - around) / map.Zoom + map.OffsetY;
        m_bottom = (bounds.Bottom + around) / map.Zoom + map.OffsetY;
    }
    bool MayShow(Point tick) const
    {
        return tick.X >= m_left && tick.X <= m_right && tick.Y >= m_top && tick.Y <= m_bottom;
    }

private:
    double m_left, m_right, m_top, m_bottom; // image pixels
};

void DrawTick(Device& on, const ImageMapping& map, const TickStyle& style, Point tick)
{
    on.DrawCrosses(std::array{map.ToDevice(tick.X, tick.Y)}, style.TickSize);
}

// Draws ticks by the batch, so that a device may be quick with them.
class TickBatch {
public:
    TickBatch(Device& on, const ImageMapping& map, int arm) : m_on(on), m_map(map), m_arm(arm) { }
    void Add(Point tick)
    {
        m_centers[m_count++] = m_map.ToDevice(tick.X, tick.Y);
        if (m_count == m_centers.size())
            Draw();
    }
    void Draw()
    {
        m_on.DrawCrosses(std::span(m_centers).first(m_count), m_arm);
        m_count = 0;
    }

private:
    Device& m_on;
    const ImageMapping& m_map;
    const int m_arm;
    std::array<DevicePoint, 256> m_centers;
    std::size_t m_count = 0;
};

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
    const TickWindow window(On.Bounds(), Map, Style);
    TickBatch batch(On, Map, Style.TickSize);
    for (int index = 1; index <= m_numFringes; ++index) {
        const Color ink = monochrome ? White : OrderColor(m_orders[index], Style);
        const clsPenScope pen(On, {ink, Style.PenWidth});
        const std::span<const Point> ticks = Ticks(index);
        for (std::size_t i = 0; i < ticks.size(); ++i)
            if (window.MayShow(ticks[i])
                && (index != ExceptIndex || static_cast<int>(i) + 1 != ExceptTick))
                batch.Add(ticks[i]);
        batch.Draw();
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
