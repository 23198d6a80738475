#include <bit>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>

#include <gtest/gtest.h>

#include "PlainHost.h"
#include "TemporaryFolder.h"
#include "document/Dib.h"
#include "document/clsDocument.h"

namespace morvane {
namespace {

// A file of the text, read into a new document with an interferogram window.
class LoadedDocument {
public:
    explicit LoadedDocument(std::string_view Text = "", const Preferences& Prefs = {})
        : m_host(Prefs)
    {
        m_document.CreateImageView();
        if (!Text.empty())
            IsLoaded = Load(Text);
    }

    bool Load(std::string_view Text)
    {
        std::ofstream(m_folder / "file.mvd", std::ios::binary) << Text;
        return static_cast<bool>(m_document.LoadDataFromFile(m_folder / "file.mvd"));
    }

    clsDocument* operator->() { return &m_document; }
    Preferences& Prefs() { return m_host.Prefs; }
    PlainHost& Host() { return m_host; }

    bool IsLoaded = false;

private:
    TemporaryFolder m_folder;
    PlainHost m_host;
    clsDocument m_document{m_host};
};

// No decimal number of 15 digits, and what is at the ends of the range.
constexpr double awkward[] = {0.1, 1.0 / 3, -0.0, 5e-324, -1.7976931348623157e308, 1e-7,
    123456789.123456789, 0.30000000000000004, 2.2250738585072014e-308, -9007199254740993.0};

double Awkward(int i)
{
    return awkward[i % std::size(awkward)]
        * (i / static_cast<int>(std::size(awkward)) % 2 ? -1 : 1);
}

std::vector<std::uint64_t> Bits(std::span<const double> values)
{
    std::vector<std::uint64_t> bits;
    for (const double value : values)
        bits.push_back(std::bit_cast<std::uint64_t>(value));
    return bits;
}

std::vector<std::uint64_t> Bits(std::span<const Point> points)
{
    std::vector<double> values;
    for (const Point& point : points)
        values.insert(values.end(), {point.X, point.Y});
    return Bits(values);
}

ZernikeSet Coefficients(int first)
{
    ZernikeSet set;
    for (int i = 0; i < NumZernikes; ++i)
        set[i] = Awkward(first + i);
    set.back() = 0.1; // so that the analysis comes back as valid
    return set;
}

constexpr char everySeparator[] = "a = b := c, d; e:f\tg 100 % \"quoted\" \\ \xC3\xA4\xE2\x82\xAC ";

void FillAll(clsDocument& document)
{
    document.LoadBlankImage(640, 480);
    document.SetZernikes(Coefficients(0));
    document.SetRefZernikes(Coefficients(5));
    for (int order = 1; order <= MaxFringes; ++order) {
        int index = document.Fringes.AddOrder(MaxFringes + 1 - order);
        for (int tick = 0; tick < (order == 7 ? MaxTicks : order % 4); ++tick)
            document.Fringes.AddCenter(0, {Awkward(tick), Awkward(tick + order)}, index);
    }
    const Point corners[] = {{0.1, 1.0 / 3}, {600.7, 2}, {599, 1e-7}, {300.30000000000001, 470}};
    document.Aperture.Save(ShapeKind::Polygon, corners);
    const Point chord[] = {{300.1, 200.7}, {340.3, 210.9}, {320, 190.1}};
    document.Obstruction.Save(ShapeKind::Ellipse, chord);
    document.Grid.PhysicalWidth = 30;
    document.Grid.CellWidth = document.Grid.CellHeight = 10;
    document.Grid.SetBounds(10.1, 20.2, 310.1, 220.2);
    document.Grid.SetAnalysisResults(std::vector<std::int32_t>{0, 1, 2, 1, 0, 0},
        std::vector<double>{0.1, 1.0 / 3, 5e-324, 4, 5, 6}, std::vector<double>(6, -0.0));
    document.Figures = {0.1, 0.7, 1.0 / 3};
    document.Removed = {true, false, true, false, true};
    document.NumZernikeToFit = 24;
    document.TrimEdges = document.InvertWavefront = true;
    document.ZScale = 1.0 / 7;
    document.ScaleMode = DisplayUnit::Microinches;
    document.LimitDisplayScale = false;
    document.DisplayScale = -0.1;
    document.OutWL = 543.5;
    document.nDataPts = 4321;
    document.AnalysisValid = document.Averaged = document.Combined = true;
    document.Optic = {everySeparator, "=1/2", ": operator ", "one\r\ntwo,\r\n\r\n = three\r\n"};
    document.ScreenText = {"Liberation Sans", 17, {1, 2, 3}, true, false, true};
    document.PrinterText = {"Schrift: 5 = \xC3\xBC", 6, {255, 254, 253}, false, true, false};
}

void FillViews(clsDocument& document)
{
    document.ImageView()->SetPlace({-5, 7, 640, 500});
    document.CreateOutputViews();
    document.View(ViewType::Zernikes)->SetPlace({1, 2, 3, 4});
    document.View(ViewType::Aberrations)->SetPlace({5, 6, 7, 8});
    document.ContourLevels = 33;
    document.xSurfaceSize = document.ySurfaceSize = 400;
    document.xOrigSurfaceSize = document.yOrigSurfaceSize = 10;
    document.ProfileSize = 20;
    document.FillPolygons = document.DrawMeshWithFill = false;
    document.Visible = {true, false, true, false, true, false, true};
    document.LineProfileAngle = 359;
    document.SurfaceTheta = 0.1;
    document.SurfacePhi = 89.9;
}

TEST(DocumentFile, ADocumentWithEverythingComesBackToTheBit)
{
    LoadedDocument written;
    FillAll(*written.operator->());
    FillViews(*written.operator->());
    const std::string text = written->DataText();
    LoadedDocument read(text);
    ASSERT_TRUE(read.IsLoaded);

    EXPECT_EQ(Bits(read->GetZernikes()), Bits(Coefficients(0)));
    EXPECT_EQ(Bits(read->GetRefZernikes()), Bits(Coefficients(5)));
    EXPECT_TRUE(read->HasReferenceZernikes);
    EXPECT_TRUE(read->AnalysisValid);
    ASSERT_EQ(read->Fringes.NumFringes(), MaxFringes);
    for (int index = 1; index <= MaxFringes; ++index) {
        EXPECT_EQ(read->Fringes.GetFringeOrder(index), MaxFringes + 1 - index);
        EXPECT_EQ(Bits(read->Fringes.Ticks(index)), Bits(written->Fringes.Ticks(index))) << index;
    }
    EXPECT_EQ(Bits(read->Aperture.Vertices()), Bits(written->Aperture.Vertices()));
    EXPECT_EQ(read->Obstruction.GetAngle(), written->Obstruction.GetAngle());
    EXPECT_EQ(read->Obstruction.GetRadii(), written->Obstruction.GetRadii());
    EXPECT_EQ(read->Grid.CellCountX, 3);
    EXPECT_EQ(read->Grid.CellRMS, written->Grid.CellRMS);
    EXPECT_EQ(read->Optic, written->Optic);
    EXPECT_EQ(read->ScreenText, written->ScreenText);
    EXPECT_EQ(read->PrinterText, written->PrinterText);
    EXPECT_EQ(read->Visible, written->Visible);
    EXPECT_EQ(read->ImageView()->GetPlace(), (WindowPlace{-5, 7, 640, 500}));
    EXPECT_EQ(read->GetImageSize(), (RasterSize{640, 480}));

    // The places of views are the session's; with them in the same state, so are the bytes.
    read->View(ViewType::Zernikes)->SetPlace({1, 2, 3, 4});
    read->View(ViewType::Aberrations)->SetPlace({5, 6, 7, 8});
    EXPECT_EQ(read->DataText(), text);
}

std::string WithoutLineEnds(const std::string& text)
{
    std::string lf = text;
    std::erase(lf, '\r');
    return lf;
}

// The lines in reverse; those of a block stay together in their order.
std::string InReverse(const std::string& text)
{
    std::vector<std::string> parts{""};
    bool inBlock = false;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find('\n', start) + 1;
        const std::string line = text.substr(start, end - start);
        const std::string_view word(line.data(), line.size() - 2);
        inBlock = inBlock || word == "Fringes" || word == "Aperture" || word == "Obstruction"
            || word == "Grid";
        parts.back() += line;
        inBlock = inBlock && word != "EndFringes" && word != "EndShape" && word != "GridEnd";
        if (!inBlock)
            parts.push_back("");
        start = end;
    }
    std::string reverse;
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        reverse += *part;
    return reverse;
}

TEST(DocumentFile, LineEndsOrderAndUnknownLinesDoNotMatter)
{
    LoadedDocument written;
    FillAll(*written.operator->());
    const std::string text = written->DataText();
    const struct {
        const char* Name;
        std::string Text;
    } cases[] = {
        {"LF", WithoutLineEnds(text)},
        {"reverse", InReverse(text)},
        {"unknown", "Novelty, 5 RMS, 7\r\nClosing:= x\r\n" + text + "\r\n\r\nAfterthought"},
        {"no last line end", text.substr(0, text.size() - 2)},
    };
    for (const auto& c : cases) {
        LoadedDocument read(c.Text);
        read->ImageView()->SetPlace(written->ImageView()->GetPlace());
        EXPECT_TRUE(read.IsLoaded) << c.Name;
        EXPECT_EQ(read->DataText(), text) << c.Name;
    }
}

TEST(DocumentFile, ViewOptionsMayFollowInAnyOrderOnceTheViewsAreAnnounced)
{
    LoadedDocument written;
    FillAll(*written.operator->());
    FillViews(*written.operator->());
    const std::string text = written->DataText();
    LoadedDocument read("OutputViewsExist,True\r\n" + InReverse(text));
    for (const ViewType view : {ViewType::Zernikes, ViewType::Aberrations})
        read->View(view)->SetPlace(written->View(view)->GetPlace());
    EXPECT_EQ(read->DataText(), text);
}

TEST(DocumentFile, LinesAreWrittenInTheirOrderAndForm)
{
    LoadedDocument document;
    document->BlankImage = true;
    document->ScreenText.FaceName = "Courier   ";
    document->ScreenText.Ink = {1, 2, 3};
    document->Optic.Comments = "a\r\nb";
    document->ImageView()->SetPlace({10, -20, 300, 200});
    document->CreateOutputViews();
    document.Prefs().Places.SurfacePlot = {1, 2, 500, 250};
    const std::string text = document->DataText();
    const auto between = [&](std::string_view from, std::string_view to) {
        const std::size_t start = text.find(from);
        return text.substr(start, text.find(to, start) - start);
    };
    EXPECT_EQ(between("FileVersion", "Zernikes"),
        "FileVersion, 100 \r\nHasImageFile, False\r\nImageXSize,  2147483647 \r\n"
        "ImageYSize,  2147483647 \r\n\r\n");
    EXPECT_EQ(between("Zernikes", "Fringes"), [] {
        std::string line = "Zernikes";
        for (int i = 0; i < 36; ++i)
            line += ", 0";
        return line + "\r\n";
    }());
    EXPECT_NE(text.find("EndFringes\r\n\r\nAperture\r\n"), text.npos);
    EXPECT_NE(text.find("EndShape\r\n\r\nObstruction\r\n"), text.npos);
    EXPECT_NE(text.find("EndShape\r\n\r\nGrid\r\n"), text.npos);
    EXPECT_EQ(text.substr(text.find("GridEnd")),
        "GridEnd\r\n\r\nRMS, 0\r\nPV, 0\r\nStrehl, 0\r\nnoTilt,False\r\nnoFocus,False\r\n"
        "noAstig,False\r\nnoComa,False\r\nnoSphere,False\r\nNumZernikeToFit, 0 \r\n"
        "TrimEdges,False\r\nZScale, 0.5\r\nInvertWavefront,False\r\nScaleMode, 0 \r\n"
        "LimitDisplayScale,True\r\nDisplayScale, 1\r\nOutWL, 632.8\r\nnDataPts, 0 \r\n"
        "AnalysisValid,False\r\nAveraged,False\r\nCombined,False\r\nImageView,10,-20,300,200\r\n"
        "OutputViewsExist,True\r\nContourLevels, 10 \r\nxSurfaceSize, 30 \r\n"
        "xOrigSurfaceSize, 150 \r\nProfileSize, 100 \r\nFillPolygons,True\r\n"
        "DrawMeshWithFill,True\r\nZernikesViewVisible,False\r\nAberrationsViewVisible,True\r\n"
        "GridResultsViewVisible,False\r\nSFringeViewVisible,False\r\n"
        "LineProfileViewVisible,False\r\nContourPlotViewVisible,True\r\n"
        "SurfacePlotViewVisible,True\r\nZernikesView,0,0,0,0\r\nAberrationsView,0,0,0,0\r\n"
        "GridResultsView,0,0,0,0\r\nSFringeView,0,0,0,0\r\nLineProfileAngle, 0 \r\n"
        "LineProfileView,0,0,0,0\r\nContourPlotView,0,0,0,0\r\nSurfaceTheta, 60\r\n"
        "SurfacePhi, 30\r\nSurfacePlotView,1,2,500,250\r\nOpticDescription:= \r\n"
        "OpticOperator:= \r\nOpticComments:= a\\rb\r\nOpticDate:= \r\nScreenTextBold,False\r\n"
        "ScreenTextcolour, 197121 \r\nScreenTextfacename:= Courier\r\nScreenTextItalic,False\r\n"
        "ScreenTextSize, 10 \r\nScreenTextUnderline,False\r\nPrinterTextBold,False\r\n"
        "PrinterTextcolour, 0 \r\nPrinterTextfacename:= Courier New\r\n"
        "PrinterTextItalic,False\r\nPrinterTextSize, 10 \r\nPrinterTextUnderline,False\r\n");
}

TEST(DocumentFile, AValueOutOfRangeIsReplaced)
{
    Preferences preferences;
    preferences.SurfaceLevels = 7;
    preferences.SurfaceGridSize = 44;
    preferences.SFringeSize = 55;
    preferences.LineSize = 66;
    preferences.LineAngle = 77;
    preferences.SurfaceTheta = 88;
    preferences.SurfacePhi = 9;
    using Value = std::function<double(clsDocument&)>;
    const Value levels = [](clsDocument& d) { return d.ContourLevels; };
    const Value surface = [](clsDocument& d) { return d.xSurfaceSize * 1000 + d.ySurfaceSize; };
    const Value fringes = [](clsDocument& d) {
        return d.xOrigSurfaceSize * 1000 + d.yOrigSurfaceSize;
    };
    const Value profile = [](clsDocument& d) { return d.ProfileSize; };
    const Value angle = [](clsDocument& d) { return d.LineProfileAngle; };
    const Value theta = [](clsDocument& d) { return d.SurfaceTheta; };
    const Value phi = [](clsDocument& d) { return d.SurfacePhi; };
    const Value zScale = [](clsDocument& d) { return d.ZScale; };
    const Value displayScale = [](clsDocument& d) { return d.DisplayScale; };
    const Value wavelength = [](clsDocument& d) { return d.OutWL; };
    const Value mode = [](clsDocument& d) { return static_cast<int>(d.ScaleMode); };
    const Value terms = [](clsDocument& d) { return d.NumZernikeToFit; };
    const Value rms = [](clsDocument& d) { return d.Figures.RMS; };
    const Value fontSize = [](clsDocument& d) { return d.ScreenText.Size; };
    const struct {
        std::string Text;
        Value Of;
        double Expected;
    } cases[] = {
        {"ContourLevels, 1", levels, 1},
        {"ContourLevels, 100", levels, 100},
        {"ContourLevels, 0", levels, 7},
        {"ContourLevels, 101", levels, 7},
        {"xSurfaceSize, 400", surface, 400400},
        {"xSurfaceSize, 401", surface, 44044},
        {"xSurfaceSize, 9", surface, 44044},
        {"xOrigSurfaceSize, 10", fringes, 10010},
        {"xOrigSurfaceSize, 401", fringes, 44044}, // not SFringeSize
        {"", fringes, 55055},
        {"ProfileSize, 20", profile, 20},
        {"ProfileSize, 1001", profile, 66},
        {"LineProfileAngle, 359", angle, 359},
        {"LineProfileAngle, 360", angle, 77},
        {"SurfaceTheta, 359", theta, 359},
        {"SurfaceTheta, -0.5", theta, 88},
        {"SurfacePhi, 90", phi, 90},
        {"SurfacePhi, 90.5", phi, 9},
        {"ZScale, 3e38", zScale, 3e38},
        {"ZScale, 1e999", zScale, 1},
        {"DisplayScale, -3.1e38", displayScale, 1},
        {"OutWL, 4e38", wavelength, 632.8},
        {"ScaleMode, 2", mode, 2},
        {"ScaleMode, 3", mode, 0},
        {"ScaleMode, -1", mode, 0},
        {"NumZernikeToFit, 36", terms, 36},
        {"NumZernikeToFit, -2147483648", terms, 0},
        {"NumZernikeToFit, 37", terms, 0},
        {"RMS, nan", rms, 0},
        {"RMS, inf", rms, 0},
        {"RMS, 1e999", rms, std::numeric_limits<double>::max()},
        {"RMS, 0." + std::string(4000, '3'), rms, 1.0 / 3},
        {"RMS, 0.5mm", rms, 0.5},
        {"RMS", rms, 0},
        {"ScreenTextSize, 2147483647", fontSize, 10},
        {"ScreenTextSize, 0", fontSize, 10},
        {"ScreenTextSize, 72", fontSize, 72},
    };
    for (const auto& c : cases) {
        LoadedDocument read("OutputViewsExist, True\n" + c.Text, preferences);
        EXPECT_TRUE(read.IsLoaded) << c.Text;
        EXPECT_EQ(c.Of(*read.operator->()), c.Expected) << c.Text;
    }
}

TEST(DocumentFile, ASizeIsKnownOnlyIfBothSidesAreGood)
{
    constexpr RasterSize none{NoSize, NoSize};
    const struct {
        const char* Text;
        RasterSize Size;
    } cases[] = {
        {"ImageXSize, 300\nImageYSize, 200", {300, 200}},
        {"imageysize 1; IMAGEXSIZE: 1", {1, 1}},
        {"ImageXSize, -1\nImageYSize, 200", none},
        {"ImageXSize, 300\nImageYSize, 0\nImageYSize, 200", none},
        {"ImageXSize, 300\nImageYSize, 2147483647", none},
        {"ImageXSize, 300", none},
        {"ImageXSize, 32767\nImageYSize, 8192", {32767, 8192}},
        {"ImageXSize, 32767\nImageYSize, 32767", none}, // more pixels than a picture may have
        {"ImageXSize, 32768\nImageYSize, 2", none},
        {"HasImageFile, False", none},
    };
    for (const auto& c : cases)
        EXPECT_EQ(LoadedDocument(c.Text)->GetImageSize(), c.Size) << c.Text;
}

TEST(DocumentFile, TheLastCoefficientAloneDecidesOnValidity)
{
    std::string ones, onesButTheLast;
    for (int i = 1; i <= NumZernikes; ++i) {
        ones += ",1";
        onesButTheLast += i < NumZernikes ? ",1" : ",0";
    }
    const struct {
        std::string Text;
        bool IsValid;
    } cases[] = {
        {"Zernikes" + ones + "\nAnalysisValid, False", true},
        {"Zernikes" + onesButTheLast + "\nAnalysisValid, True", false},
        {"AnalysisValid, False\nZernikes" + ones, true},
        {"Zernikes, 1, 2\nAnalysisValid, True", false},
        {"Zernikes" + ones, false}, // the line is missing
    };
    for (const auto& c : cases)
        EXPECT_EQ(LoadedDocument(c.Text)->AnalysisValid, c.IsValid) << c.Text;
}

TEST(DocumentFile, SeveralPairsShareALineUpToAnUnknownOne)
{
    LoadedDocument read("RMS, 0.1 PV, 0.4 what, 1 Strehl, 0.9\nHASIMAGEFILE=no; NOTILT: yes");
    EXPECT_EQ(read->Figures.RMS, 0.1);
    EXPECT_EQ(read->Figures.PV, 0.4);
    EXPECT_EQ(read->Figures.Strehl, 0);
    EXPECT_TRUE(read->BlankImage);
    EXPECT_FALSE(read->Removed.Tilt) << "the text behind = reaches to the end of the line";
}

TEST(DocumentFile, TextsComeBackAsALineCanHoldThem)
{
    const struct {
        const char* Name;
        std::string Written, Read;
    } descriptions[] = {
        {"separators", "x = 1: y, z; w", "x = 1: y, z; w"},
        {"leading blanks", "  x ", "x "},
        {"a blank line", "\r\nx", "x"},
        {"a line that is a key", "x\r\nRMS, 5", "x  RMS, 5"},
    };
    for (const auto& d : descriptions) {
        LoadedDocument written;
        written->Optic.Description = d.Written;
        LoadedDocument read(written->DataText());
        EXPECT_EQ(read->Optic.Description, d.Read) << d.Name;
        EXPECT_EQ(read->Figures.RMS, 0) << d.Name;
        EXPECT_EQ(read->DataText(), written->DataText()) << d.Name;
    }
    const struct {
        std::string Written, Read;
    } comments[] = {
        {"one\r\ntwo", "one\r\ntwo"},
        {"one\\rtwo", "one\r\ntwo"}, // a literal backslash and r
        {"one\ntwo\r", "one\r\ntwo\r\n"},
        {"\\", "\\"},
    };
    for (const auto& c : comments) {
        LoadedDocument written;
        written->Optic.Comments = c.Written;
        EXPECT_EQ(LoadedDocument(written->DataText())->Optic.Comments, c.Read);
    }
}

TEST(DocumentFile, PlacesOfViewsBecomeDefaultsInTheIndividualWorkspaceOnly)
{
    const char text[] = "OutputViewsExist, True\nZernikesView,10,20,300,200\n"
                        "ContourPlotView, -5, 6, 0, -1\nLineProfileView,1,2,3,4\n"
                        "SFringeView,1e300,0,1e300,5";
    Preferences preferences;
    preferences.Places.ContourPlot = {1, 1, 111, 222};
    preferences.HogWindows = true;
    LoadedDocument common(text, preferences);
    EXPECT_EQ(common.Prefs().Places, preferences.Places);

    preferences.HogWindows = false;
    LoadedDocument individual(text, preferences);
    const PerView<WindowPlace>& places = individual.Prefs().Places;
    EXPECT_EQ(places.Zernikes, (WindowPlace{10, 20, 300, 200}));
    EXPECT_EQ(places.ContourPlot, (WindowPlace{-5, 6, 111, 222}));
    EXPECT_EQ(places.LineProfile, WindowPlace()) << "its key is another one";
    EXPECT_EQ(places.SFringe, (WindowPlace{32767, 0, 32767, 5}));
    EXPECT_EQ(individual->View(ViewType::Zernikes)->GetPlace(), places.Zernikes);

    LoadedDocument misspelt("LinProfileView,1,2,3,4", preferences);
    EXPECT_EQ(misspelt.Prefs().Places.LineProfile, (WindowPlace{1, 2, 3, 4}));
}

TEST(DocumentFile, TheImageWindowTakesItsPlace)
{
    LoadedDocument read("ImageView,-10,20,-1,0");
    EXPECT_EQ(read->ImageView()->GetPlace(), (WindowPlace{-10, 20, 100, 0}));
}

TEST(DocumentFile, ViewsComeWithTheFlagsOfTheFile)
{
    LoadedDocument read("SurfaceTheta, 5\nOutputViewsExist, True\nZernikesViewVisible, True");
    EXPECT_TRUE(read->OutputViewsExist());
    EXPECT_EQ(read->Visible, (PerView<bool>{.Zernikes = true})) << "those of the preferences";
    EXPECT_EQ(read->SurfaceTheta, 60) << "there were no views yet";

    LoadedDocument refused;
    refused.Host().RefuseOutputViews = true;
    EXPECT_FALSE(refused.Load("OutputViewsExist, True\nRMS, 5"));
}

TEST(DocumentFile, NothingInAFringeBlockIsTakenForTheDocument)
{
    // Each block stops early; the rest of it is skipped line by line.
    for (const char* stop :
        {"NumFringes, 201", "NumFringes, 1\nOrder, 201", "Order, 3\nNumTicks, -1"}) {
        LoadedDocument written;
        const std::string before = written->DataText();
        LoadedDocument read(std::string("Fringes\n") + stop
            + "\nNumTicks, 2\nOrder, 4\nCenter, 1, 2\nEndFringes\nRMS, 0.5\n");
        EXPECT_EQ(read->Figures.RMS, 0.5) << stop;
        read->Figures.RMS = 0;
        read->Fringes.DeleteAll();
        EXPECT_EQ(read->DataText(), before) << stop;
    }
}

TEST(DocumentFile, ABlockWithoutItsEndLosesNothingBehindIt)
{
    const std::string fringes = "Fringes\nNumFringes, 1\nOrder, 3\nNumTicks, 1\nCenter, 5, 6\n";
    const std::string aperture = "Aperture\nShapeType, 1\nCenter, 7, 8\nRadiusX, 9\nRadiusY, 9\n";
    const std::string grid = "Grid\nCellCountX, 1\nCellCountY, 1\nCell, 2, 0.1, 0.2\n";
    const struct {
        const char* Name;
        std::string Text;
    } cases[] = {
        {"none has one", fringes + aperture + grid + "rms, 0.5\nZScale, 0.25\n"},
        {"ends with a slip",
            fringes + "EndFringe\n" + aperture + "\nShapeEnd\n" + grid
                + "CellsEnd\nRMS 0.5 ZScale 0.25\n"},
        {"the line goes on behind each",
            fringes + "EndFringes ZScale, 0.25\n" + aperture + "EndShape RMS, 0.5\n" + grid
                + "GridEnd"},
        {"behind the last one",
            grid + "GridEnd ZScale, 0.25 RMS, 0.5 Fringes\n" + fringes.substr(8) + aperture},
    };
    for (const auto& c : cases) {
        LoadedDocument read(c.Text);
        EXPECT_EQ(read->Fringes.TotalNumTicks(), 1) << c.Name;
        EXPECT_EQ(read->Aperture.GetCenter().Y, 8) << c.Name;
        EXPECT_EQ(read->Grid.GetCellMeasurements(0, 0).State, CellFails) << c.Name;
        EXPECT_EQ(read->Figures.RMS, 0.5) << c.Name;
        EXPECT_EQ(read->ZScale, 0.25) << c.Name;
    }
}

TEST(DocumentFile, ABlockThatTheFileEndsInIsReadAsFarAsItGoes)
{
    LoadedDocument written;
    FillAll(*written.operator->());
    const std::string text = written->DataText();
    for (const char* inside : {"Center,", "Vertex,", "Cell,", "OpticComments"}) {
        LoadedDocument read(text.substr(0, text.find(inside) + 4));
        EXPECT_TRUE(read.IsLoaded) << inside;
        EXPECT_EQ(Bits(read->GetZernikes()), Bits(Coefficients(0))) << inside;
    }
}

TEST(DocumentFile, GarbageIsReadInBoundedTimeAndMemory)
{
    const auto repeated = [](std::string_view piece, std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i)
            text += piece;
        return text;
    };
    const struct {
        const char* Name;
        std::string Text;
    } cases[] = {
        {"a line without end", std::string(20'000'000, 'x')},
        {"nothing but line ends", std::string(1'000'000, '\n')},
        {"zero bytes", std::string(1'000'000, '\0')},
        {"views again and again", repeated("OutputViewsExist,True ", 100'000)},
        {"blocks in blocks",
            repeated("Fringes\nNumFringes,200\nOrder,1\nAperture\nGrid\n", 10'000)},
        {"pairs on a line", repeated("RMS,1 ", 200'000)},
        {"coefficients", repeated("Zernikes ", 200'000)},
    };
    for (const auto& c : cases)
        EXPECT_TRUE(LoadedDocument(c.Text).IsLoaded) << c.Name;
}

TEST(DocumentFile, WhatCannotBeReadIsNoDocument)
{
    LoadedDocument document;
    const TemporaryFolder folder;
    EXPECT_FALSE(document->LoadDataFromFile(folder / "missing.mvd"));
    EXPECT_FALSE(document->LoadDataFromFile(folder / ""));
    const struct {
        const char* Name;
        std::string Text;
        bool IsDocument;
    } cases[] = {
        {"empty", "", false},
        {"a JPEG", "\xff\xd8\xff\xe0JFIF\n\n\xff\xd9", false},
        {"UTF-16", std::string("\xff\xfeR\0M\0S\0,\0001\0", 12), false},
        {"words of blocks only", "FileVersion, 100\nCenter, 1, 2\nEndFringes\nmy RMS, 1", false},
        {"one key", "HasImageFile, False", true},
        {"one key far down", std::string(1000, '\n') + " rms 1", true},
    };
    for (const auto& c : cases) {
        std::ofstream(folder / "file.mvd", std::ios::binary) << c.Text;
        EXPECT_EQ(static_cast<bool>(clsDocument::IsDocumentFile(folder / "file.mvd")), c.IsDocument)
            << c.Name;
    }
}

TEST(DocumentFile, SavingTellsTheTruth)
{
    const TemporaryFolder folder;
    LoadedDocument document;
    document->Modified = true;
    EXPECT_NE(document->SaveDataToFile(folder / "missing/file.mvd").Error, "");
    EXPECT_TRUE(document->Modified);
    EXPECT_TRUE(document->SaveDataToFile(folder / "\xC3\xA4 b.mvd"));
    EXPECT_FALSE(document->Modified);
    EXPECT_EQ(std::filesystem::file_size(folder / "\xC3\xA4 b.mvd"), document->DataText().size());
}

TEST(DocumentFile, FaceNamesHave32Characters)
{
    std::string umlauts;
    for (int i = 0; i < 40; ++i)
        umlauts += "\xC3\xBC";
    const struct {
        std::string Given, Kept;
    } cases[] = {
        {std::string(32, 'x'), std::string(32, 'x')},
        {std::string(33, 'x'), std::string(32, 'x')},
        {std::string(31, 'x') + "  y", std::string(31, 'x')},
        {umlauts, umlauts.substr(0, 64)},
        {"  Mono  ", "  Mono"},
        {"Mono \r", "Mono"},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FixedFaceName(c.Given), c.Kept) << c.Given;
    EXPECT_EQ(LoadedDocument("ScreenTextFaceName:= " + umlauts)->ScreenText.FaceName,
        umlauts.substr(0, 64));
    EXPECT_EQ(LoadedDocument("ScreenTextColour, -1")->ScreenText.Ink, White);
}

TEST(DocumentStretch, APictureOnlyEverGrows)
{
    const struct {
        double Aspect;
        RasterSize Size;
        bool IsDone;
    } cases[] = {
        {2, {8, 2}, true}, {0.5, {4, 4}, true}, {1, {4, 2}, true}, {0, {4, 2}, true},
        {-2, {4, 2}, true}, {std::nan(""), {4, 2}, true}, {1e-300, {4, 2}, false},
        {5e-324, {4, 2}, false}, {1e300, {4, 2}, false}, {8192, {4, 2}, false}, // 32768 columns
    };
    const TemporaryFolder folder;
    const ImageBuffer picture{{0, 40, 80, 120, 10, 50, 90, 130}, {4, 2}};
    for (const auto& c : cases) {
        PlainHost host;
        clsDocument fresh(host);
        ASSERT_TRUE(WriteWholeFile(folder / "p.bmp", BmpFromBuffer(picture)));
        ASSERT_TRUE(fresh.LoadFileIntoDataBuffer(folder / "p.bmp", true));
        fresh.AnalysisValid = fresh.Analysis.Mask.MaskValid = true;
        EXPECT_EQ(fresh.StretchImage(c.Aspect), c.IsDone) << c.Aspect;
        EXPECT_EQ(fresh.GetImageSize(), c.Size) << c.Aspect;
        EXPECT_EQ(fresh.Image().Size, c.Size) << c.Aspect;
        const bool changed = c.Size != RasterSize{4, 2};
        EXPECT_EQ(fresh.ImageDirty, changed) << c.Aspect;
        EXPECT_EQ(fresh.AnalysisValid, !changed) << c.Aspect;
        EXPECT_EQ(fresh.Analysis.Mask.MaskValid, !changed) << c.Aspect;
    }
}

TEST(DocumentStretch, BetweenPixelsItIsLinear)
{
    const TemporaryFolder folder;
    const ImageBuffer picture{{0, 40, 80, 120, 0, 40, 80, 120}, {4, 2}};
    PlainHost host;
    clsDocument document(host);
    ASSERT_TRUE(WriteWholeFile(folder / "p.bmp", BmpFromBuffer(picture)));
    ASSERT_TRUE(document.LoadFileIntoDataBuffer(folder / "p.bmp", true));
    ASSERT_TRUE(document.StretchImage(2));
    const std::vector<int> firstRow{0, 20, 40, 60, 80, 100, 0, 0}; // the last column has no next
    for (int x = 0; x < 8; ++x) {
        EXPECT_EQ(document.GetIntensity(x, 0), firstRow[x]) << x;
        EXPECT_EQ(document.GetIntensity(x, 1), 0) << x;
    }
}

TEST(DocumentStretch, NothingHappensWithoutAPicture)
{
    PlainHost host;
    clsDocument document(host);
    document.LoadBlankImage(100, 100);
    EXPECT_TRUE(document.StretchImage(2));
    EXPECT_EQ(document.GetImageSize(), (RasterSize{100, 100}));
    EXPECT_FALSE(document.ImageDirty);
}

} // namespace
} // namespace morvane
