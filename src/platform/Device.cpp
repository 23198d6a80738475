#include "platform/Device.h"

#include <algorithm>

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

DevicePoint ImageMapping::ToDevice(double X, double Y) const
{
    return {RoundToLong((X - OffsetX) * Zoom), RoundToLong((Y - OffsetY) * Zoom)};
}

} // namespace morvane
