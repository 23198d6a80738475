// Section "Analyze" of the settings: the options of the analysis window, its reference files and
// its place.
#pragma once
#include "shell/AnalyzeBox.h"
#include "shell/SettingsStore.h"

namespace morvane {

// Reference files that are gone drop out of the list.
void ReadAnalyzeBox(SettingsStore& From, AnalyzeBox& Into);
void WriteAnalyzeBox(SettingsStore& Into, const AnalyzeBox& Written);

// Of the upper left corner of a box, in the unit of its window.
struct BoxPlace {
    int Left = 0, Top = 0;
};
BoxPlace ReadAnalyzePlace(SettingsStore& From);
void WriteAnalyzePlace(SettingsStore& Into, const BoxPlace& Written);

} // namespace morvane
