// What the line profile's chart shows, on the screen and on paper: one trace of the wavefront over
// the pupil, its scale, titles and labels.
#pragma once
#include "document/DocumentWindows.h"
#include "views/clsLineProfile.h"

namespace morvane {

// In place of what was there. False, and the plot stays empty, without points or memory for them.
bool LoadProfile(clsLineProfile& Into, const ProfileData& From);

} // namespace morvane
