// The outlines kept in the settings for the next picture of the same test: one aperture and one
// obstruction for the whole installation.
#pragma once
#include "geometry/clsShape.h"
#include "shell/SettingsStore.h"

namespace morvane {

// Which of the two, as the keys of the settings begin.
inline constexpr const char* SavedAperture = "Aperture";
inline constexpr const char* SavedObstruction = "Obstruction";

// False, and the shape stays as it is, if none is kept.
bool LoadSavedShape(SettingsStore& From, const std::string& Which, clsShape& Into);
void SaveShape(SettingsStore& Into, const std::string& Which, const clsShape& Saved);

} // namespace morvane
