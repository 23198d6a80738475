// The grid's place and calibration, kept in the settings for the next optic of the kind. The
// criteria of usability do not travel.
#pragma once
#include "document/clsGrid.h"
#include "shell/SettingsStore.h"

namespace morvane {

void RegistrySaveCalibration(const clsGrid& From, SettingsStore& Store);
// What the settings lack takes its default: 100 mm wide, cells of 10 mm, no bounds. A size of 0
// pixels is no bounds either.
void RegistryLoadCalibration(clsGrid& Into, SettingsStore& Store);

} // namespace morvane
