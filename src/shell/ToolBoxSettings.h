// Section "Toolbox" of the settings: the kinds of figures and the fringe order. SavedShapes keeps
// the saved figures there too.
#pragma once
#include "interferogram/ToolBox.h"
#include "shell/SettingsStore.h"

namespace morvane {

void ReadToolBox(SettingsStore& From, ToolBox& Into);
// The order as its box shows it.
void WriteToolBox(SettingsStore& Into, const ToolBox& Written);

} // namespace morvane
