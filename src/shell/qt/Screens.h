// The screens of the desktop, in logical pixels where nothing else is told.
#pragma once
#include "platform/Device.h"
#include "shell/PreferenceTable.h"

class QRect;
class QScreen;

namespace morvane {

// The whole desktop, and the frame of the windows inside the main window.
ScreenMeasures Screens();

// In pixels of the screen itself; where there is none to see, that of a usual one.
DeviceSize PhysicalSizeOf(const QScreen& Of);

// Whether enough of a window's upper edge lies on a screen to move it by.
bool IsReachable(const QRect& Window);

} // namespace morvane
