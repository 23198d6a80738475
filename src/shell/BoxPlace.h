// Where a window that stands by itself was left on the screen, kept in the settings for the next
// run. In the unit of the windows.
#pragma once
#include "shell/PreferenceTable.h"

namespace morvane {

struct BoxPlace {
    int Left = 0, Top = 0;
};

// The keys of a place: "<Prefix>Left" and "<Prefix>Top" of a section.
struct PlaceKey {
    const char* Section;
    const char* Prefix = "";
};
inline constexpr PlaceKey AnalyzePlace{"Analyze"};
inline constexpr PlaceKey ToolBoxPlace{"Toolbox"};
inline constexpr PlaceKey InputPlace{MainSection, "InputDlg"};
inline constexpr PlaceKey PageSetupPlace{MainSection, "PageSetup"};
inline constexpr PlaceKey UserDataPlace{MainSection, "UserData"};

struct PlaceLimits {
    static constexpr int Farthest = 32767; // either side of the screen's corner
    BoxPlace Min{-Farthest, -Farthest}, Max{Farthest, Farthest};
};

// Default if none is kept; one beyond the limits is moved to them.
BoxPlace ReadPlace(SettingsStore& From, const PlaceKey& Key, const BoxPlace& Default = {},
    const PlaceLimits& Within = {});
void WritePlace(SettingsStore& Into, const PlaceKey& Key, const BoxPlace& Written);

} // namespace morvane
