#include "views/ProfileMarkers.h"

#include <array>

#include "platform/Numbers.h"

namespace morvane {
namespace {

// Device units from the centre to the sides; those to the right and down are one less for an even
// size.
struct MarkerReach {
    int Size;
    int Before() const { return Size / 2; }
    int After() const { return Size % 2 == 0 ? Size / 2 - 1 : Size / 2; }
    DeviceRect BoxAt(DevicePoint center) const
    {
        return {center.X - Before(), center.Y - Before(), center.X + After() + 1,
            center.Y + After() + 1};
    }
};

void DrawSquare(Device& on, const DeviceRect& box)
{
    const int right = box.Right - 1, bottom = box.Bottom - 1;
    on.DrawPolygon(std::array{DevicePoint{box.Left, box.Top}, DevicePoint{right, box.Top},
        DevicePoint{right, bottom}, DevicePoint{box.Left, bottom}});
}

void DrawTriangle(Device& on, DevicePoint center, MarkerReach reach)
{
    const int below = center.Y + RoundToLong(0.3 * reach.Size);
    on.DrawPolygon(std::array{DevicePoint{center.X, center.Y - RoundToLong(0.6 * reach.Size)},
        DevicePoint{center.X + reach.After(), below},
        DevicePoint{center.X - reach.Before(), below}});
}

void DrawDiamond(Device& on, DevicePoint center, MarkerReach reach)
{
    const auto [x, y] = center;
    on.DrawPolygon(std::array{DevicePoint{x, y + reach.After()}, DevicePoint{x + reach.After(), y},
        DevicePoint{x, y - reach.Before()}, DevicePoint{x - reach.Before(), y}});
}

void DrawPlus(Device& on, DevicePoint center, MarkerReach reach)
{
    const auto [x, y] = center;
    if (on.CurrentBrush())
        on.FillRectangle(reach.BoxAt(center), *on.CurrentBrush());
    on.DrawPolyline(
        std::array{DevicePoint{x - reach.Before(), y}, DevicePoint{x + reach.After() + 1, y}});
    on.DrawPolyline(
        std::array{DevicePoint{x, y - reach.Before()}, DevicePoint{x, y + reach.After() + 1}});
}

} // namespace

void DrawMarkers(Device& On, const ProfileTrace& Of, std::span<const DevicePoint> Centers)
{
    const clsPenScope pen(On, {Of.MarkerLineColor});
    const clsBrushScope brush(
        On, Of.MarkerFilled ? std::optional(Of.MarkerFillColor) : std::nullopt);
    const MarkerReach reach{Of.MarkerSize};
    for (const DevicePoint& center : Centers)
        switch (Of.Marker) {
        case MarkerType::Square:
            DrawSquare(On, reach.BoxAt(center));
            break;
        case MarkerType::Circle:
            On.DrawEllipse(reach.BoxAt(center));
            break;
        case MarkerType::Triangle:
            DrawTriangle(On, center, reach);
            break;
        case MarkerType::Diamond:
            DrawDiamond(On, center, reach);
            break;
        case MarkerType::Plus:
            DrawPlus(On, center, reach);
            break;
        case MarkerType::Pixel:
            On.FillRectangle({center.X, center.Y, center.X + 1, center.Y + 1}, Of.MarkerLineColor);
            break;
        case MarkerType::None:
            return;
        }
}

} // namespace morvane
