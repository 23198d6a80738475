#include "platform/Device.h"

#include "platform/Numbers.h"

namespace morvane {

DevicePoint ImageMapping::ToDevice(double X, double Y) const
{
    return {RoundToLong((X - OffsetX) * Zoom), RoundToLong((Y - OffsetY) * Zoom)};
}

} // namespace morvane
