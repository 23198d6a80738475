// The preferences in the settings: which value is kept under which name of section
// "CurrentVersion", and in which range. Defaults are the values of fresh Preferences.
#pragma once
#include <ctime>
#include <string>
#include <variant>
#include <vector>

#include "analysis/Zernike.h"
#include "document/Preferences.h"
#include "shell/SettingsStore.h"

namespace morvane {

inline constexpr const char* MainSection = "CurrentVersion";

// A value where it lies. Colours are kept as a number, red in the lowest byte, blue in the highest.
using SettingMember = std::variant<bool*, int*, double*, std::string*, FringeDensity*, Color*>;

struct SettingRow {
    std::string Name;
    SettingMember Member;
    double Min = 0, Max = 0; // of numbers
};

// Reads what has a value in the store into the rows' members; the others keep theirs.
void ReadRows(SettingsStore& From, const char* Section, const std::vector<SettingRow>& Rows);
void WriteRows(SettingsStore& Into, const char* Section, const std::vector<SettingRow>& Rows);

// The screen that windows are placed on, in pixels.
struct ScreenMeasures {
    int Width, Height;
    int FrameStep; // the frame of a window that can be sized
    int CaptionStep; // that and its caption
};

// Each view a step further right and down, so that all captions can be seen.
PerView<WindowPlace> DefaultPlaces(const ScreenMeasures& On);

// Today is what a stored date becomes: only whether there is one counts, so that new documents
// carry the day of their test.
Preferences ReadPreferences(
    SettingsStore& From, const ScreenMeasures& Screen, const std::string& Today);
// All but what SaveViewSettings writes. The shared reference coefficients go with them.
void WritePreferences(
    SettingsStore& Into, const Preferences& Written, const ZernikeSet& SharedReference);
// What new documents are to tell, as one choice of the user's.
void ChooseDefaultUserData(SettingsStore& Into, const Preferences& Written);
// Which output views are shown, and where.
void SaveViewSettings(SettingsStore& Into, const Preferences& Written);

ZernikeSet ReadSharedReference(SettingsStore& From);

// As "Mar 7, 2026", in English everywhere.
std::string DateText(const std::tm& Day);
std::string TodayText();

} // namespace morvane
