#include "shell/PreferenceTable.h"

#include <algorithm>
#include <utility>

#include "platform/Numbers.h"

namespace morvane {
namespace {

constexpr int MaxColor = 0xFFFFFF;
const std::string NoGrabber = "None";

using Rows = std::vector<SettingRow>;

Rows DialogRows(Preferences& Of)
{
    return {
        {"Open File Filter", &Of.OpenFileFilter, 1, 3},
        {"Open File Dir", &Of.OpenFileDir},
        {"Save File Filter", &Of.SaveFileFilter, 1, 2},
        {"Save File Dir", &Of.SaveFileDir},
    };
}

Rows ReportRows(ReportPreferences& Of)
{
    Rows rows{
        {"Page Orientation", &Of.PageOrientation, PortraitOrientation, LandscapeOrientation},
        {"Show RMS", &Of.ShowRMS},
        {"Show PV", &Of.ShowPV},
        {"Show Strehl", &Of.ShowStrehl},
        {"Show Tilt", &Of.ShowTilt},
        {"Show Defocus", &Of.ShowDefocus},
        {"Show Astigmatism", &Of.ShowAstigmatism},
        {"Show Coma", &Of.ShowComa},
        {"Show Spherical", &Of.ShowSpherical},
        {"Show Scale", &Of.ShowScale},
        {"Show Wavelength", &Of.ShowWavelength},
        {"Show DataPts", &Of.ShowDataPts},
        {"Show Description", &Of.ShowDescription},
        {"Show Date", &Of.ShowDate},
        {"Show Operator", &Of.ShowOperator},
        {"Show Comments", &Of.ShowComments},
        {"Draw Page Grid", &Of.DrawPageGrid},
        {"Number of Panes", &Of.NumPanes, 1, 6},
    };
    for (std::size_t i = 0; i < Of.Pane.size(); ++i)
        rows.push_back({"Pane " + std::to_string(i + 1), &Of.Pane[i], 0, 9});
    return rows;
}

Rows PlotRows(Preferences& Of)
{
    return {
        {"Grab into new window", &Of.GrabIntoNewWindow},
        {"Grab Aspect Ratio", &Of.GrabAspectRatio, 0, 100},
        {"Manual Aspect Ratio", &Of.ManualAspectRatio, 0, 100},
        {"Hog Windows", &Of.HogWindows},
        {"Auto Stretch", &Of.AutoStretch},
        {"Auto Load Aperture", &Of.AutoLoadAperture},
        {"Auto Load Obstruction", &Of.AutoLoadObstruction},
        {"Surface Levels", &Of.SurfaceLevels, 1, 100},
        {"Surface Grid Size", &Of.SurfaceGridSize, 10, 400},
        {"Fill Polygons", &Of.FillPolygons},
        {"Draw Mesh With Fill", &Of.DrawMeshWithFill},
        {"Surface Theta", &Of.SurfaceTheta, 0, 359},
        {"Surface Phi", &Of.SurfacePhi, 0, 90},
        {"Line Angle", &Of.LineAngle, 0, 359},
        {"Line Size", &Of.LineSize, 20, 1000},
        {"SFringe Size", &Of.SFringeSize, 10, 400},
        {"Limit Scale", &Of.LimitScale},
        {"Red Display", &Of.RedDisplay},
        {"Auto Trace Fringe Density", &Of.AutoTraceFringeDensity, 1, 4},
    };
}

Rows VisibilityRows(PerView<bool>& Of)
{
    return {
        {"Surface Visible", &Of.SurfacePlot},
        {"Contour Visible", &Of.ContourPlot},
        {"LineProfile Visible", &Of.LineProfile},
        {"SFringe Visible", &Of.SFringe},
        {"Aberrations Visible", &Of.Aberrations},
        {"Zernikes Visible", &Of.Zernikes},
        {"Grid Results Visible", &Of.GridResults},
    };
}

Rows FontRows(const std::string& Prefix, TextFont& Of)
{
    return {
        {Prefix + " Font", &Of.FaceName},
        {Prefix + " Size", &Of.Size, 1, 72},
        {Prefix + " Color", &Of.Ink, 0, MaxColor},
        {Prefix + " Bold", &Of.Bold},
        {Prefix + " Italic", &Of.Italic},
        {Prefix + " Underline", &Of.Underline},
    };
}

Rows UserRows(Preferences& Of)
{
    UserData& user = Of.DefaultUserData;
    return {
        {"SetAsDefault", &Of.SetAsDefault},
        {"Description", &user.Description},
        {"Date", &user.Date},
        {"Operator", &user.Operator},
        {"Comments", &user.Comments},
    };
}

Rows GrabberRows(Preferences& Of)
{
    return {{"Frame Grabber", &Of.GrabberName}};
}

Rows ReferenceRows(ZernikeSet& Of)
{
    Rows rows;
    for (std::size_t i = 0; i < Of.size(); ++i)
        rows.push_back(
            {"Custom Ref Zernike " + std::to_string(i + 1), &Of[i], -NoDoubleRange, NoDoubleRange});
    return rows;
}

// Width and Height are the limits, those of the screen when reading.
Rows PlaceRows(PerView<WindowPlace>& Of, int Width, int Height)
{
    const std::pair<const char*, WindowPlace*> places[] = {{"SurfacePlot", &Of.SurfacePlot},
        {"ContourPlot", &Of.ContourPlot}, {"LineProfile", &Of.LineProfile},
        {"SFringe", &Of.SFringe}, {"Aberrations", &Of.Aberrations}, {"Zernikes", &Of.Zernikes},
        {"GridResults", &Of.GridResults}};
    Rows rows;
    for (const auto& [name, place] : places) {
        const std::string prefix = name;
        rows.push_back({prefix + "Left", &place->Left, 0, double(Width)});
        rows.push_back({prefix + "Top", &place->Top, 0, double(Height)});
        rows.push_back({prefix + "Width", &place->Width, 0, double(Width)});
        rows.push_back({prefix + "Height", &place->Height, 0, double(Height)});
    }
    return rows;
}

// Reads the value of one row as its kind has it.
struct RowReader {
    SettingsStore& From;
    const char* Section;
    const SettingRow& Row;

    int Long(int Default) const
    {
        return From.GetSettingLong(
            Section, Row.Name, RoundToLong(Row.Min), RoundToLong(Row.Max), Default);
    }
    void operator()(bool* Value) const { *Value = From.GetSettingBool(Section, Row.Name, *Value); }
    void operator()(int* Value) const { *Value = Long(*Value); }
    void operator()(double* Value) const
    {
        *Value = From.GetSettingDouble(Section, Row.Name, Row.Min, Row.Max, *Value);
    }
    void operator()(std::string* Value) const
    {
        *Value = From.GetSettingString(Section, Row.Name, *Value);
    }
    void operator()(FringeDensity* Value) const
    {
        *Value = static_cast<FringeDensity>(Long(static_cast<int>(*Value)));
    }
    void operator()(Color* Value) const { *Value = ColorFromLong(Long(ColorToLong(*Value))); }
};

struct RowWriter {
    SettingsStore& Into;
    const char* Section;
    const SettingRow& Row;

    void operator()(const bool* Value) const { Into.SaveSettingBool(Section, Row.Name, *Value); }
    void operator()(const int* Value) const { Into.SaveSettingLong(Section, Row.Name, *Value); }
    void operator()(const double* Value) const
    {
        Into.SaveSettingDouble(Section, Row.Name, *Value);
    }
    void operator()(const std::string* Value) const
    {
        Into.SaveSettingString(Section, Row.Name, *Value);
    }
    void operator()(const FringeDensity* Value) const
    {
        Into.SaveSettingLong(Section, Row.Name, static_cast<int>(*Value));
    }
    void operator()(const Color* Value) const
    {
        Into.SaveSettingLong(Section, Row.Name, ColorToLong(*Value));
    }
};

// What the texts become by rules of their own; it isn't the user who changes them.
void MendTexts(SettingsStore& From, Preferences& Of, const std::string& Today)
{
    const auto mend = [&](const char* name, std::string& text, const std::string& mended) {
        text = mended;
        From.TakeAsRead(MainSection, name, text);
    };
    mend("ScreenText Font", Of.ScreenText.FaceName, FixedFaceName(Of.ScreenText.FaceName));
    mend("PrinterText Font", Of.PrinterText.FaceName, FixedFaceName(Of.PrinterText.FaceName));
    std::string& date = Of.DefaultUserData.Date;
    mend("Date", date, date.empty() ? date : Today);
    mend("Frame Grabber", Of.GrabberName, Of.GrabberName.empty() ? NoGrabber : Of.GrabberName);
}

} // namespace

PerView<WindowPlace> DefaultPlaces(const ScreenMeasures& On)
{
    const auto place = [&](int step, int width, int height) {
        return WindowPlace{step * On.FrameStep, step * On.CaptionStep, width, height};
    };
    return {.SurfacePlot = place(1, 500, 250),
        .ContourPlot = place(2, 300, 300),
        .LineProfile = place(3, 300, 200),
        .SFringe = place(4, 300, 300),
        .Aberrations = place(5, 350, 310),
        .Zernikes = place(6, 290, 370),
        .GridResults = place(6, 290, 370)};
}

void ReadRows(SettingsStore& From, const char* Section, const std::vector<SettingRow>& Rows)
{
    for (const SettingRow& row : Rows)
        std::visit(RowReader{From, Section, row}, row.Member);
}

void WriteRows(SettingsStore& Into, const char* Section, const std::vector<SettingRow>& Rows)
{
    for (const SettingRow& row : Rows)
        std::visit(RowWriter{Into, Section, row}, row.Member);
}

Preferences ReadPreferences(
    SettingsStore& From, const ScreenMeasures& Screen, const std::string& Today)
{
    Preferences read;
    read.Places = read.DefaultPlaces = DefaultPlaces(Screen);
    read.CascadeX = Screen.FrameStep;
    read.CascadeY = Screen.CaptionStep;
    for (const Rows& rows :
        {DialogRows(read), ReportRows(read.Report), PlotRows(read), VisibilityRows(read.Visible),
            FontRows("ScreenText", read.ScreenText), FontRows("PrinterText", read.PrinterText),
            PlaceRows(read.Places, Screen.Width, Screen.Height), UserRows(read), GrabberRows(read)})
        ReadRows(From, MainSection, rows);
    MendTexts(From, read, Today);
    return read;
}

void WritePreferences(
    SettingsStore& Into, const Preferences& Written, const ZernikeSet& SharedReference)
{
    Preferences copy = Written; // the rows point to what can be changed
    ZernikeSet reference = SharedReference;
    copy.ScreenText.FaceName = FixedFaceName(copy.ScreenText.FaceName);
    copy.PrinterText.FaceName = FixedFaceName(copy.PrinterText.FaceName);
    for (const Rows& rows : {DialogRows(copy), ReportRows(copy.Report), PlotRows(copy),
             FontRows("ScreenText", copy.ScreenText), FontRows("PrinterText", copy.PrinterText),
             ReferenceRows(reference), UserRows(copy), GrabberRows(copy)})
        WriteRows(Into, MainSection, rows);
}

void ChooseDefaultUserData(SettingsStore& Into, const Preferences& Written)
{
    Preferences copy = Written;
    const Rows rows = UserRows(copy);
    for (const SettingRow& row : rows)
        Into.TakeAsChosen(MainSection, row.Name);
    WriteRows(Into, MainSection, rows);
}

void SaveViewSettings(SettingsStore& Into, const Preferences& Written)
{
    Preferences copy = Written;
    WriteRows(Into, MainSection, VisibilityRows(copy.Visible));
    WriteRows(Into, MainSection, PlaceRows(copy.Places, 0, 0));
}

ZernikeSet ReadSharedReference(SettingsStore& From)
{
    ZernikeSet reference{};
    ReadRows(From, MainSection, ReferenceRows(reference));
    return reference;
}

std::string DateText(const std::tm& Day)
{
    static constexpr const char* months[] = {
        "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return std::string(months[std::clamp(Day.tm_mon, 0, 11)]) + ' ' + std::to_string(Day.tm_mday)
        + ", " + std::to_string(1900 + Day.tm_year);
}

std::string TodayText()
{
    const std::time_t now = std::time(nullptr);
    std::tm day{};
    localtime_r(&now, &day);
    return DateText(day);
}

} // namespace morvane
