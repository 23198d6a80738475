// The screens of the desktop, in logical pixels.
#pragma once
#include "shell/PreferenceTable.h"

class QRect;

namespace morvane {

// The whole desktop, and the frame of the windows inside the main window.
ScreenMeasures Screens();

// Whether enough of a window's upper edge lies on a screen to move it by.
bool IsReachable(const QRect& Window);

} // namespace morvane
