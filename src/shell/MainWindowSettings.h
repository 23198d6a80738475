// What the main window keeps in the settings: its place, the boxes and bars that are shown, and the
// files opened last.
#pragma once
#include "shell/PreferenceTable.h"
#include "shell/RecentFiles.h"

namespace morvane {

inline constexpr int TwipsPerPixel = 15; // the main window's place is kept in twips

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

struct MainWindowSettings {
    int Left = 0, Top = 0, Width = 8500, Height = 6500; // twips
    WindowState State = WindowState::Normal;
    bool AverageBox = false, AnalyzeBox = true, AnalyzeGridBox = false, Toolbox = true;
    bool Toolbar = true, StatusBar = true, MathBox = false, RefZernike = false;
};

MainWindowSettings ReadMainWindow(SettingsStore& From, const ScreenMeasures& Screen);
// The place is that of a normal window; in another state the one kept before stays.
void WriteMainWindow(SettingsStore& Into, const MainWindowSettings& Written);
void WriteBoxes(SettingsStore& Into, const MainWindowSettings& Written);

RecentFiles LoadRecentFiles(const SettingsStore& From);
void SaveRecentFiles(SettingsStore& Into, const RecentFiles& Written);

} // namespace morvane
