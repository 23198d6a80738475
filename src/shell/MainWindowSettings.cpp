#include "shell/MainWindowSettings.h"

namespace morvane {
namespace {

constexpr const char* RecentSection = "Recent File List";

std::vector<SettingRow> PlaceRows(MainWindowSettings& Of, double Width, double Height)
{
    return {
        {"MainLeft", &Of.Left, 0, Width},
        {"MainTop", &Of.Top, 0, Height},
        {"MainWidth", &Of.Width, 0, Width},
        {"MainHeight", &Of.Height, 0, Height},
    };
}

std::vector<SettingRow> BoxRows(MainWindowSettings& Of)
{
    return {
        {"Average Box Visible", &Of.AverageBox},
        {"Analyze Box Visible", &Of.AnalyzeBox},
        {"Toolbox Visible", &Of.Toolbox},
        {"Analyze Grid Box Visible", &Of.AnalyzeGridBox},
        {"Toolbar Visible", &Of.Toolbar},
        {"Status Bar Visible", &Of.StatusBar},
        {"Math Box Visible", &Of.MathBox},
        {"Ref Zernike Visible", &Of.RefZernike},
    };
}

std::string NameOfRecent(int Number)
{
    return "File" + std::to_string(Number);
}

} // namespace

MainWindowSettings ReadMainWindow(SettingsStore& From, const ScreenMeasures& Screen)
{
    MainWindowSettings read;
    ReadRows(From, MainSection,
        PlaceRows(
            read, double(Screen.Width) * TwipsPerPixel, double(Screen.Height) * TwipsPerPixel));
    read.State = static_cast<WindowState>(From.GetSettingLong(MainSection, "MainState", 0, 2, 0));
    ReadRows(From, MainSection, BoxRows(read));
    return read;
}

void WriteMainWindow(SettingsStore& Into, const MainWindowSettings& Written)
{
    MainWindowSettings copy = Written; // the rows point to what can be changed
    if (copy.State == WindowState::Normal)
        WriteRows(Into, MainSection, PlaceRows(copy, 0, 0));
    Into.SaveSettingLong(MainSection, "MainState", static_cast<int>(copy.State));
}

void WriteBoxes(SettingsStore& Into, const MainWindowSettings& Written)
{
    MainWindowSettings copy = Written;
    WriteRows(Into, MainSection, BoxRows(copy));
}

RecentFiles LoadRecentFiles(SettingsStore& From)
{
    std::vector<std::string> paths;
    for (int n = 1; n <= RecentFiles::MaxFiles; ++n) {
        std::string path = From.GetSettingString(RecentSection, NameOfRecent(n), "");
        if (path.empty())
            break;
        std::erase(paths, path); // two programs may each have put it in
        paths.push_back(std::move(path));
    }
    RecentFiles recent;
    recent.SetPaths(std::move(paths));
    return recent;
}

// A list that has become shorter ends where it does, and does not bring back what was removed.
void SaveRecentFiles(SettingsStore& Into, const RecentFiles& Written)
{
    const int count = static_cast<int>(Written.Paths().size());
    for (int n = 1; n <= RecentFiles::MaxFiles; ++n)
        if (n <= count)
            Into.SaveSettingString(RecentSection, NameOfRecent(n), Written.Paths()[n - 1]);
        else
            Into.DeleteSetting(RecentSection, NameOfRecent(n));
}

} // namespace morvane
