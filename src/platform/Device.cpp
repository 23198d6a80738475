#include "platform/Device.h"

#include <algorithm>
#include <cmath>

#include "platform/Numbers.h"

namespace morvane {

void Device::DrawCrosses(std::span<const DevicePoint> Centers, int Arm)
{
    constexpr int farOff = 1 << 30; // keeps the arms of a cross far outside within the integers
    for (const DevicePoint& center : Centers) {
        const int x = std::clamp(center.X, -farOff, farOff);
        const int y = std::clamp(center.Y, -farOff, farOff);
        DrawPolyline(std::array{DevicePoint{x - Arm, y}, DevicePoint{x + Arm + 1, y}});
        DrawPolyline(std::array{DevicePoint{x, y - Arm}, DevicePoint{x, y + Arm + 1}});
    }
}

clsClipScope::clsClipScope(Device& On, const DeviceRect& To)
    : m_device(On), m_before(On.CurrentClip())
{
    m_device.SetClip({std::max(To.Left, m_before.Left), std::max(To.Top, m_before.Top),
        std::min(To.Right, m_before.Right), std::min(To.Bottom, m_before.Bottom)});
}

double DiagonalRatio(DeviceSize Of, DeviceSize To)
{
    const double of = std::hypot(Of.Width, Of.Height), to = std::hypot(To.Width, To.Height);
    return of > 0 && to > 0 ? std::max(1.0, of / to) : 1.0;
}

DeviceRect TextBox(DevicePoint At, DeviceSize Extent, TextAlign Align, TextRotation Rotation)
{
    const auto [width, height] = Extent;
    const int left = Align.Across == TextAcross::Left ? 0
        : Align.Across == TextAcross::Right           ? -width
                                                      : -(width / 2);
    const int top = Align.Down == TextDown::Top ? 0 : -height;
    const int right = left + width, bottom = top + height;
    switch (Rotation) {
    case TextRotation::Horizontal:
        return {At.X + left, At.Y + top, At.X + right, At.Y + bottom};
    case TextRotation::Down:
        return {At.X - bottom, At.Y + left, At.X - top, At.Y + right};
    case TextRotation::Up:
        return {At.X + top, At.Y - right, At.X + bottom, At.Y - left};
    case TextRotation::UpsideDown:
        return {At.X - right, At.Y - bottom, At.X - left, At.Y - top};
    }
    return {};
}

DevicePoint ImageMapping::ToDevice(double X, double Y) const
{
    return {RoundToLong((X - OffsetX) * Zoom), RoundToLong((Y - OffsetY) * Zoom)};
}

} // namespace morvane
