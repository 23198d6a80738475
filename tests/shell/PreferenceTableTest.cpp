#include "shell/PreferenceTable.h"

#include <gtest/gtest.h>

#include "TemporaryFolder.h"
#include "shell/MainWindowSettings.h"

namespace morvane {
namespace {

constexpr ScreenMeasures screen{.Width = 1920, .Height = 1080, .FrameStep = 4, .CaptionStep = 23};
const std::string today = "Mar 7, 2026";

// All that the main window writes at its end, in its order.
void WriteAll(SettingsStore& Into, const MainWindowSettings& Window, const Preferences& Prefs,
    const ZernikeSet& Reference)
{
    WriteMainWindow(Into, Window);
    SaveViewSettings(Into, Prefs);
    WriteBoxes(Into, Window);
    WritePreferences(Into, Prefs, Reference);
}

class PreferenceTableStore : public ::testing::Test {
protected:
    SettingsStore OpenWith(const std::string& Text) const
    {
        WriteWholeFile(path, Text);
        return SettingsStore(path);
    }

    // The file after a run of a program that finds Text and in which the user changes nothing.
    SettingsValues AfterRun(const std::string& Text) const
    {
        SettingsStore store = OpenWith(Text);
        const MainWindowSettings window = ReadMainWindow(store, screen);
        const Preferences preferences = ReadPreferences(store, screen, today);
        WriteAll(store, window, preferences, ReadSharedReference(store));
        EXPECT_TRUE(store.Save());
        return ReadSettingsText(FileText());
    }

    std::string FileText() const
    {
        std::vector<std::uint8_t> bytes;
        ReadWholeFile(path, SettingsStore::MaxFileBytes, bytes);
        return {bytes.begin(), bytes.end()};
    }

    TemporaryFolder folder;
    std::string path = folder / "settings.ini";
};

TEST_F(PreferenceTableStore, AnEmptyStoreGivesEveryDefaultInOrder)
{
    AfterRun("");
    std::string references;
    for (int n = 1; n <= 36; ++n)
        references += "Custom Ref Zernike " + std::to_string(n) + " = 0\n";
    const std::string expected =
        "[CurrentVersion]\n"
        "MainLeft = 0\nMainTop = 0\nMainWidth = 8500\nMainHeight = 6500\nMainState = 0\n"
        "Surface Visible = 1\nContour Visible = 1\nLineProfile Visible = 0\nSFringe Visible = 0\n"
        "Aberrations Visible = 1\nZernikes Visible = 0\nGrid Results Visible = 0\n"
        "SurfacePlotLeft = 4\nSurfacePlotTop = 23\nSurfacePlotWidth = 500\nSurfacePlotHeight = "
        "250\n"
        "ContourPlotLeft = 8\nContourPlotTop = 46\nContourPlotWidth = 300\nContourPlotHeight = "
        "300\n"
        "LineProfileLeft = 12\nLineProfileTop = 69\nLineProfileWidth = 300\n"
        "LineProfileHeight = 200\n"
        "SFringeLeft = 16\nSFringeTop = 92\nSFringeWidth = 300\nSFringeHeight = 300\n"
        "AberrationsLeft = 20\nAberrationsTop = 115\nAberrationsWidth = 350\n"
        "AberrationsHeight = 310\n"
        "ZernikesLeft = 24\nZernikesTop = 138\nZernikesWidth = 290\nZernikesHeight = 370\n"
        "GridResultsLeft = 24\nGridResultsTop = 138\nGridResultsWidth = 290\n"
        "GridResultsHeight = 370\n"
        "Average Box Visible = 0\nAnalyze Box Visible = 1\nToolbox Visible = 1\n"
        "Analyze Grid Box Visible = 0\nToolbar Visible = 1\nStatus Bar Visible = 1\n"
        "Math Box Visible = 0\nRef Zernike Visible = 0\n"
        "Open File Filter = 2\nOpen File Dir =\nSave File Filter = 2\nSave File Dir =\n"
        "Page Orientation = 1\nShow RMS = 1\nShow PV = 1\nShow Strehl = 1\nShow Tilt = 0\n"
        "Show Defocus = 0\nShow Astigmatism = 1\nShow Coma = 1\nShow Spherical = 1\n"
        "Show Scale = 0\nShow Wavelength = 1\nShow DataPts = 0\nShow Description = 1\n"
        "Show Date = 1\nShow Operator = 1\nShow Comments = 1\nDraw Page Grid = 1\n"
        "Number of Panes = 3\nPane 1 = 6\nPane 2 = 1\nPane 3 = 5\nPane 4 = 0\nPane 5 = 0\n"
        "Pane 6 = 0\n"
        "Grab into new window = 1\nGrab Aspect Ratio = 1\nManual Aspect Ratio = 1\n"
        "Hog Windows = 1\nAuto Stretch = 1\nAuto Load Aperture = 1\nAuto Load Obstruction = 1\n"
        "Surface Levels = 10\nSurface Grid Size = 30\nFill Polygons = 1\nDraw Mesh With Fill = 1\n"
        "Surface Theta = 60\nSurface Phi = 30\nLine Angle = 0\nLine Size = 100\n"
        "SFringe Size = 150\nLimit Scale = 1\nRed Display = 1\nAuto Trace Fringe Density = 3\n"
        "ScreenText Font = Courier New\nScreenText Size = 10\nScreenText Color = 0\n"
        "ScreenText Bold = 0\nScreenText Italic = 0\nScreenText Underline = 0\n"
        "PrinterText Font = Courier New\nPrinterText Size = 10\nPrinterText Color = 0\n"
        "PrinterText Bold = 0\nPrinterText Italic = 0\nPrinterText Underline = 0\n"
        + references
        + "SetAsDefault = 0\nDescription =\nDate =\nOperator =\nComments =\nFrame Grabber = None\n";
    const std::string text = FileText();
    EXPECT_EQ(text.substr(text.find("[CurrentVersion]")), expected);
}

TEST_F(PreferenceTableStore, NumbersOutOfRangeGoBackClamped)
{
    struct Range {
        std::string Name;
        int Min, Max;
    };
    std::vector<Range> ranges{{"Open File Filter", 1, 3}, {"Save File Filter", 1, 2},
        {"Page Orientation", 1, 2}, {"Number of Panes", 1, 6}, {"Pane 1", 0, 9}, {"Pane 6", 0, 9},
        {"Grab Aspect Ratio", 0, 100}, {"Manual Aspect Ratio", 0, 100}, {"Surface Levels", 1, 100},
        {"Surface Grid Size", 10, 400}, {"Surface Theta", 0, 359}, {"Surface Phi", 0, 90},
        {"Line Angle", 0, 359}, {"Line Size", 20, 1000}, {"SFringe Size", 10, 400},
        {"Auto Trace Fringe Density", 1, 4}, {"ScreenText Size", 1, 72},
        {"PrinterText Color", 0, 16777215}, {"MainLeft", 0, 28800}, {"MainTop", 0, 16200},
        {"MainWidth", 0, 28800}, {"MainHeight", 0, 16200}};
    for (const char* view : {"SurfacePlot", "ContourPlot", "LineProfile", "SFringe", "Aberrations",
             "Zernikes", "GridResults"})
        for (const auto& [side, max] :
            {std::pair("Left", 1920), {"Top", 1080}, {"Width", 1920}, {"Height", 1080}})
            ranges.push_back({std::string(view) + side, 0, max});
    std::string low = "[CurrentVersion]\n", high = low;
    for (const Range& range : ranges) {
        low += range.Name + " = -99999999\n";
        high += range.Name + " = 99999999\n";
    }
    const SettingsValues lowest = AfterRun(low), highest = AfterRun(high);
    for (const Range& range : ranges) {
        EXPECT_EQ(*FindSetting(lowest, MainSection, range.Name), std::to_string(range.Min))
            << range.Name;
        EXPECT_EQ(*FindSetting(highest, MainSection, range.Name), std::to_string(range.Max))
            << range.Name;
    }
    EXPECT_EQ(
        *FindSetting(AfterRun("[CurrentVersion]\nMainState = 3\n"), MainSection, "MainState"), "2");
}

// A row that points to the wrong member would give another value back.
TEST_F(PreferenceTableStore, EveryValueReachesItsMember)
{
    SettingsStore store =
        OpenWith("[CurrentVersion]\nOpen File Dir = /a\nSave File Dir = /b\n"
                 "Show Tilt = 1\nShow PV = 0\nPane 5 = 7\nGrab Aspect Ratio = 2.5\n"
                 "Hog Windows = 0\nSurface Levels = 20\nSurface Phi = 45\n"
                 "Auto Trace Fringe Density = 1\nZernikes Visible = 1\n"
                 "PrinterText Font = Arial   \nPrinterText Color = 197121\n"
                 "PrinterText Underline = 1\nZernikesTop = 99\n"
                 "Custom Ref Zernike 36 = -0.125\nOperator = M. Spiegel\n"
                 "Frame Grabber = Demo\nMainState = 2\nMath Box Visible = 1\n");
    const Preferences read = ReadPreferences(store, screen, today);
    EXPECT_EQ(read.OpenFileDir, "/a");
    EXPECT_EQ(read.SaveFileDir, "/b");
    EXPECT_TRUE(read.Report.ShowTilt);
    EXPECT_FALSE(read.Report.ShowPV);
    EXPECT_EQ(read.Report.Pane[4], 7);
    EXPECT_EQ(read.GrabAspectRatio, 2.5);
    EXPECT_FALSE(read.HogWindows);
    EXPECT_EQ(read.SurfaceLevels, 20);
    EXPECT_EQ(read.SurfacePhi, 45);
    EXPECT_EQ(read.AutoTraceFringeDensity, FringeDensity::SuperFine);
    EXPECT_TRUE(read.Visible.Zernikes);
    EXPECT_EQ(
        read.PrinterText, (TextFont{.FaceName = "Arial", .Ink = {1, 2, 3}, .Underline = true}));
    EXPECT_EQ(read.Places.Zernikes, (WindowPlace{24, 99, 290, 370}));
    EXPECT_EQ(read.DefaultUserData.Operator, "M. Spiegel");
    EXPECT_EQ(read.GrabberName, "Demo");
    EXPECT_EQ(ReadSharedReference(store)[35], -0.125);
    EXPECT_EQ(ReadSharedReference(store)[6], 0);
    EXPECT_EQ(ReadMainWindow(store, screen).State, WindowState::Maximized);
    EXPECT_TRUE(ReadMainWindow(store, screen).MathBox);
}

TEST_F(PreferenceTableStore, TheDateIsASwitch)
{
    EXPECT_EQ(*FindSetting(AfterRun("[CurrentVersion]\nDate = x\n"), MainSection, "Date"), today);
    EXPECT_EQ(*FindSetting(AfterRun("[CurrentVersion]\nDate =\n"), MainSection, "Date"), "");
    // One program has turned it off; another, which ends later, has only read it.
    SettingsStore one = OpenWith("[CurrentVersion]\nDate = x\n"), other(path);
    Preferences off = ReadPreferences(one, screen, today);
    const Preferences kept = ReadPreferences(other, screen, today);
    off.DefaultUserData.Date.clear();
    WritePreferences(one, off, {});
    ASSERT_TRUE(one.Save());
    WritePreferences(other, kept, {});
    ASSERT_TRUE(other.Save());
    EXPECT_EQ(*FindSetting(ReadSettingsText(FileText()), MainSection, "Date"), "");
}

TEST_F(PreferenceTableStore, FontNamesFitTheirField)
{
    const std::string longName = "[CurrentVersion]\nScreenText Font = " + std::string(31, 'x');
    const struct {
        std::string Tail, Kept;
    } cases[] = {{"yz", "y"}, {"\xC3\xA9z", "\xC3\xA9"}, {" z", ""}};
    for (const auto& c : cases) {
        SettingsStore store = OpenWith(longName + c.Tail + "\n");
        EXPECT_EQ(ReadPreferences(store, screen, today).ScreenText.FaceName,
            std::string(31, 'x') + c.Kept);
    }
}

TEST_F(PreferenceTableStore, OnlyANormalWindowKeepsItsPlace)
{
    SettingsStore store = OpenWith("[CurrentVersion]\nMainLeft = 150\n");
    WriteMainWindow(store, {.Left = 300, .State = WindowState::Maximized});
    EXPECT_EQ(ReadMainWindow(store, screen).Left, 150);
    WriteMainWindow(store, {.Left = 300});
    EXPECT_EQ(ReadMainWindow(store, screen).Left, 300);
}

TEST_F(PreferenceTableStore, RecentFilesEndAtTheFirstEmptyOne)
{
    SettingsStore store = OpenWith("[Recent File List]\nFile1 = /a\nFile2 = /b\nFile4 = /d\n");
    RecentFiles recent = LoadRecentFiles(store);
    EXPECT_EQ(recent.Paths(), (std::vector<std::string>{"/a", "/b"}));
    recent.Add("/c");
    SaveRecentFiles(store, recent);
    ASSERT_TRUE(store.Save());
    EXPECT_EQ(LoadRecentFiles(store).Paths(), (std::vector<std::string>{"/c", "/a", "/b"}));
    recent.Remove("/a");
    SaveRecentFiles(store, recent);
    ASSERT_TRUE(store.Save());
    EXPECT_EQ(LoadRecentFiles(store).Paths(), (std::vector<std::string>{"/c", "/b"}));
}

TEST(DateText, IsShortAndEnglish)
{
    std::tm day{};
    day.tm_year = 126; // since 1900
    day.tm_mon = 2; // since January
    day.tm_mday = 7;
    EXPECT_EQ(DateText(day), "Mar 7, 2026");
    day.tm_mon = 11;
    day.tm_mday = 31;
    EXPECT_EQ(DateText(day), "Dec 31, 2026");
}

} // namespace
} // namespace morvane
