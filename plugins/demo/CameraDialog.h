// The properties dialog of the simulated camera.
#pragma once
#include "SimulatedCamera.h"

namespace morvane::demo {

// Modal; Settings change only if the user accepts.
void EditSettings(CameraSettings& Settings);

} // namespace morvane::demo
