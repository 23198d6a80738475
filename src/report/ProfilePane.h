// The line profile of a report.
#pragma once
#include "document/DocumentWindows.h"

namespace morvane {

// Screen is the size of the one that the lengths of ticks are meant for.
void DrawProfilePane(
    Device& On, const DeviceRect& Box, const ProfileData& Shown, DeviceSize Screen);

} // namespace morvane
