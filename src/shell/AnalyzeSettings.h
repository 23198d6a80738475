// Section "Analyze" of the settings: the options of the analysis window and its reference files.
#pragma once
#include "shell/AnalyzeBox.h"
#include "shell/SettingsStore.h"

namespace morvane {

void ReadAnalyzeBox(SettingsStore& From, AnalyzeBox& Into);
void WriteAnalyzeBox(SettingsStore& Into, const AnalyzeBox& Written);

} // namespace morvane
