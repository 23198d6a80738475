// The marks at the points of a trace.
#pragma once
#include <span>

#include "views/clsLineProfile.h"

namespace morvane {

void DrawMarkers(Device& On, const ProfileTrace& Of, std::span<const DevicePoint> Centers);

} // namespace morvane
