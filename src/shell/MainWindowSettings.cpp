#include "shell/MainWindowSettings.h"

namespace morvane {
namespace {

constexpr const char* RecentSection = "Recent File List";
constexpr const char* RecentPrefix = "File";

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

RecentFiles LoadRecentFiles(const SettingsStore& From)
{
    RecentFiles recent;
    recent.SetPaths(From.GetSettingList(RecentSection, RecentPrefix));
    return recent;
}

void SaveRecentFiles(SettingsStore& Into, const RecentFiles& Written)
{
    Into.SaveSettingList(
        RecentSection, RecentPrefix, Written.Paths(), ListOrder::NewFirst, RecentFiles::MaxFiles);
}

} // namespace morvane
