// The document file on its way in. Lines may stand in any order and hold several pairs of key and
// value; what depends on several of them is settled at the end of the file.
#include <algorithm>
#include <new>
#include <string_view>

#include "document/PictureLimits.h"
#include "document/clsDocument.h"
#include "document/clsParser.h"

namespace morvane {
namespace {

std::string decodeLineBreaks(std::string_view text)
{
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isBreak = text.substr(i, 2) == "\\r";
        if (isBreak)
            decoded += "\r\n";
        else
            decoded += text[i];
        if (isBreak)
            ++i;
    }
    return decoded;
}

} // namespace

class clsDocument::FileReader {
public:
    FileReader(clsDocument& document, clsParser& parser)
        : m_document(document), m_parser(parser), m_preferences(document.m_host.GetPreferences())
    {
    }

    static bool IsKey(std::string_view Name) { return Find(Name) != nullptr; }

    // False if the output views cannot be had.
    bool Read()
    {
        while (!m_hasFailed && m_parser.Readline())
            ReadPairs();
        if (m_hasFailed)
            return false;
        Settle();
        return true;
    }

private:
    using In = FileReader&;
    using To = clsDocument&;
    struct Key {
        std::string_view Name;
        void (*Read)(In, To);
    };
    static const Key Keys[];
    static const Key* Find(std::string_view Name);

    void ReadPairs()
    {
        for (std::string name = m_parser.GetKeyword(); !name.empty() && !m_hasFailed;
             name = m_parser.GetKeyword()) {
            const Key* const key = Find(name);
            if (!key)
                return;
            key->Read(*this, m_document);
        }
    }

    void Settle()
    {
        if (m_size) {
            const bool isKnown = IsAllowedSize(m_size->Width, m_size->Height);
            m_document.m_size = isKnown ? *m_size : RasterSize{NoSize, NoSize};
        }
        m_document.Analysis.Mask.MaskValid = false;
        m_document.DeriveCoefficients();
        // Of what the file says of its validity only this counts: a fit of fewer terms comes back
        // as one to be done anew.
        if (m_tellsValidity)
            m_document.AnalysisValid = m_document.m_zernikes.back() != 0;
        m_document.OutputViews_Load(Placement::Shared);
        m_document.OutputViews_LoadData();
    }

    // --- Values
    bool Flag() { return clsParser::BooleanParse(m_parser.GetToken()); }
    std::string Text() { return std::string(m_parser.GetToken()); }

    int WholeWithin(int lowest, int highest, int otherwise)
    {
        const int value = m_parser.GetLong();
        return value >= lowest && value <= highest ? value : otherwise;
    }

    double NumberWithin(double lowest, double highest, double otherwise)
    {
        const double value = m_parser.GetNumber();
        return value >= lowest && value <= highest ? value : otherwise;
    }

    // What single precision can hold.
    double Factor(double otherwise) { return NumberWithin(-3e38, 3e38, otherwise); }

    void ReadCoefficients(ZernikeSet& values)
    {
        for (double& value : values)
            value = m_parser.GetNumber();
    }

    void ReadReference()
    {
        ReadCoefficients(m_document.m_refZernikes);
        m_document.HasReferenceZernikes = true;
        m_document.ReferencePath.clear();
    }

    // The store takes a block only when it is empty.
    void ReadFringes()
    {
        m_document.Fringes.DeleteAll();
        m_document.Fringes.LoadFromFile(m_parser);
    }

    // Of the surface and of the fringe map alike, the surface's default stands for a bad one.
    int ReadMapSize() { return WholeWithin(10, 400, m_preferences.SurfaceGridSize); }

    void ReadFontSize(TextFont& font)
    {
        constexpr int largest = 1000; // points
        font.Size = WholeWithin(1, largest, font.Size);
    }

    // One side of the picture; a bad one spoils both for good.
    void ReadSide(int RasterSize::*side)
    {
        const int value = m_parser.GetLong();
        if (!m_size)
            m_size = {NoSize, NoSize};
        m_hasBadSize = m_hasBadSize || value <= 0 || value > MaxPictureSide;
        if (m_hasBadSize)
            m_size = {NoSize, NoSize};
        else
            (*m_size).*side = value;
    }

    // --- Windows
    WindowPlace Place()
    {
        // The window system counts in 16 bits.
        constexpr int farthest = 32767;
        WindowPlace place;
        for (int* const value : {&place.Left, &place.Top, &place.Width, &place.Height})
            *value = std::clamp(m_parser.GetLong(), -farthest, farthest);
        return place;
    }

    void PlaceImageView()
    {
        constexpr int otherwise = 100;
        WindowPlace place = Place();
        for (int* const extent : {&place.Width, &place.Height})
            if (*extent < 0)
                *extent = otherwise;
        if (m_document.m_imageView)
            m_document.m_imageView->SetPlace(place);
    }

    void ReadDefaultPlace(WindowPlace& of)
    {
        const WindowPlace read = Place();
        if (m_preferences.HogWindows)
            return;
        of.Left = read.Left;
        of.Top = read.Top;
        if (read.Width > 0)
            of.Width = read.Width;
        if (read.Height > 0)
            of.Height = read.Height;
    }

    void ReadOutputViewsExist()
    {
        if (Flag() && !m_document.OutputViewsExist())
            m_hasFailed = !m_document.MakeOutputViews();
    }

    // An option of a view: its value counts only when there are views.
    template <typename T>
    void TakeForViews(T& option, T value)
    {
        if (m_document.OutputViewsExist())
            option = value;
    }

    clsDocument& m_document;
    clsParser& m_parser;
    Preferences& m_preferences;
    std::optional<RasterSize> m_size; // of the picture, if the file tells one
    bool m_hasBadSize = false, m_tellsValidity = false, m_hasFailed = false;
};

// In lower case. The line of the line profile's place is known by a shorter name than the one it is
// written with, so that place is dropped; files and programs have agreed on that.
const clsDocument::FileReader::Key clsDocument::FileReader::Keys[] = {
    {"hasimagefile", [](In in, To to) { to.BlankImage = !in.Flag(); }},
    {"imagexsize", [](In in, To) { in.ReadSide(&RasterSize::Width); }},
    {"imageysize", [](In in, To) { in.ReadSide(&RasterSize::Height); }},
    {"zernikes", [](In in, To to) { in.ReadCoefficients(to.m_zernikes); }},
    {"referencezernikes", [](In in, To) { in.ReadReference(); }},
    {"fringes", [](In in, To) { in.ReadFringes(); }},
    {"aperture", [](In in, To to) { to.Aperture.LoadFromFile(in.m_parser); }},
    {"obstruction", [](In in, To to) { to.Obstruction.LoadFromFile(in.m_parser); }},
    {"grid", [](In in, To to) { to.Grid.LoadFromFile(in.m_parser); }},
    {"rms", [](In in, To to) { to.Figures.RMS = in.m_parser.GetNumber(); }},
    {"pv", [](In in, To to) { to.Figures.PV = in.m_parser.GetNumber(); }},
    {"strehl", [](In in, To to) { to.Figures.Strehl = in.m_parser.GetNumber(); }},
    {"notilt", [](In in, To to) { to.Removed.Tilt = in.Flag(); }},
    {"nofocus", [](In in, To to) { to.Removed.Focus = in.Flag(); }},
    {"noastig", [](In in, To to) { to.Removed.Astigmatism = in.Flag(); }},
    {"nocoma", [](In in, To to) { to.Removed.Coma = in.Flag(); }},
    {"nosphere", [](In in, To to) { to.Removed.Spherical = in.Flag(); }},
    {"numzerniketofit",
        [](In in, To to) { to.NumZernikeToFit = in.WholeWithin(0, NumZernikes, 0); }},
    {"trimedges", [](In in, To to) { to.TrimEdges = in.Flag(); }},
    {"zscale", [](In in, To to) { to.ZScale = in.Factor(1); }},
    {"invertwavefront", [](In in, To to) { to.InvertWavefront = in.Flag(); }},
    {"scalemode", [](In in, To to) { to.ScaleMode = DisplayUnit{in.WholeWithin(0, 2, 0)}; }},
    {"limitdisplayscale", [](In in, To to) { to.LimitDisplayScale = in.Flag(); }},
    {"displayscale", [](In in, To to) { to.DisplayScale = in.Factor(1); }},
    {"outwl", [](In in, To to) { to.OutWL = in.Factor(DefaultWavelength); }},
    {"ndatapts", [](In in, To to) { to.nDataPts = in.m_parser.GetLong(); }},
    {"analysisvalid",
        [](In in, To) {
            in.m_tellsValidity = true;
            in.m_parser.GetToken();
        }},
    {"averaged", [](In in, To to) { to.Averaged = in.Flag(); }},
    {"combined", [](In in, To to) { to.Combined = in.Flag(); }},
    {"imageview", [](In in, To) { in.PlaceImageView(); }},
    {"outputviewsexist", [](In in, To) { in.ReadOutputViewsExist(); }},
    {"contourlevels",
        [](In in, To to) {
            to.ContourLevels = in.WholeWithin(1, 100, in.m_preferences.SurfaceLevels);
        }},
    {"xsurfacesize", [](In in, To to) { to.xSurfaceSize = to.ySurfaceSize = in.ReadMapSize(); }},
    {"xorigsurfacesize",
        [](In in, To to) { to.xOrigSurfaceSize = to.yOrigSurfaceSize = in.ReadMapSize(); }},
    {"profilesize",
        [](In in, To to) { to.ProfileSize = in.WholeWithin(20, 1000, in.m_preferences.LineSize); }},
    {"fillpolygons", [](In in, To to) { to.FillPolygons = in.Flag(); }},
    {"drawmeshwithfill", [](In in, To to) { to.DrawMeshWithFill = in.Flag(); }},
    {"zernikesviewvisible", [](In in, To to) { to.Visible.Zernikes = in.Flag(); }},
    {"aberrationsviewvisible", [](In in, To to) { to.Visible.Aberrations = in.Flag(); }},
    {"gridresultsviewvisible", [](In in, To to) { to.Visible.GridResults = in.Flag(); }},
    {"sfringeviewvisible", [](In in, To to) { to.Visible.SFringe = in.Flag(); }},
    {"lineprofileviewvisible", [](In in, To to) { to.Visible.LineProfile = in.Flag(); }},
    {"contourplotviewvisible", [](In in, To to) { to.Visible.ContourPlot = in.Flag(); }},
    {"surfaceplotviewvisible", [](In in, To to) { to.Visible.SurfacePlot = in.Flag(); }},
    {"zernikesview", [](In in, To) { in.ReadDefaultPlace(in.m_preferences.Places.Zernikes); }},
    {"aberrationsview",
        [](In in, To) { in.ReadDefaultPlace(in.m_preferences.Places.Aberrations); }},
    {"gridresultsview",
        [](In in, To) { in.ReadDefaultPlace(in.m_preferences.Places.GridResults); }},
    {"sfringeview", [](In in, To) { in.ReadDefaultPlace(in.m_preferences.Places.SFringe); }},
    {"linprofileview", [](In in, To) { in.ReadDefaultPlace(in.m_preferences.Places.LineProfile); }},
    {"contourplotview",
        [](In in, To) { in.ReadDefaultPlace(in.m_preferences.Places.ContourPlot); }},
    {"surfaceplotview",
        [](In in, To) { in.ReadDefaultPlace(in.m_preferences.Places.SurfacePlot); }},
    {"lineprofileangle",
        [](In in, To to) {
            in.TakeForViews(
                to.LineProfileAngle, in.WholeWithin(0, 359, in.m_preferences.LineAngle));
        }},
    {"surfacetheta",
        [](In in, To to) {
            in.TakeForViews(
                to.SurfaceTheta, in.NumberWithin(0, 359, in.m_preferences.SurfaceTheta));
        }},
    {"surfacephi",
        [](In in, To to) {
            in.TakeForViews(to.SurfacePhi, in.NumberWithin(0, 90, in.m_preferences.SurfacePhi));
        }},
    {"opticdescription", [](In in, To to) { to.Optic.Description = in.Text(); }},
    {"opticoperator", [](In in, To to) { to.Optic.Operator = in.Text(); }},
    {"opticcomments", [](In in, To to) { to.Optic.Comments = decodeLineBreaks(in.Text()); }},
    {"opticdate", [](In in, To to) { to.Optic.Date = in.Text(); }},
    {"screentextbold", [](In in, To to) { to.ScreenText.Bold = in.Flag(); }},
    {"screentextcolour",
        [](In in, To to) { to.ScreenText.Ink = ColorFromLong(in.m_parser.GetLong()); }},
    {"screentextfacename", [](In in, To to) { to.ScreenText.FaceName = FixedFaceName(in.Text()); }},
    {"screentextitalic", [](In in, To to) { to.ScreenText.Italic = in.Flag(); }},
    {"screentextsize", [](In in, To to) { in.ReadFontSize(to.ScreenText); }},
    {"screentextunderline", [](In in, To to) { to.ScreenText.Underline = in.Flag(); }},
    {"printertextbold", [](In in, To to) { to.PrinterText.Bold = in.Flag(); }},
    {"printertextcolour",
        [](In in, To to) { to.PrinterText.Ink = ColorFromLong(in.m_parser.GetLong()); }},
    {"printertextfacename",
        [](In in, To to) { to.PrinterText.FaceName = FixedFaceName(in.Text()); }},
    {"printertextitalic", [](In in, To to) { to.PrinterText.Italic = in.Flag(); }},
    {"printertextsize", [](In in, To to) { in.ReadFontSize(to.PrinterText); }},
    {"printertextunderline", [](In in, To to) { to.PrinterText.Underline = in.Flag(); }},
};

const clsDocument::FileReader::Key* clsDocument::FileReader::Find(std::string_view Name)
{
    for (const Key& key : Keys)
        if (key.Name == Name)
            return &key;
    return nullptr;
}

FileResult clsDocument::IsDocumentFile(const std::string& Path)
{
    LineReader lines(Path);
    if (!lines.Opened())
        return lines.Opened();
    clsParser parser(lines);
    while (parser.Readline())
        if (FileReader::IsKey(parser.GetKeyword()))
            return {};
    return {"It is not a Morvane document."};
}

FileResult clsDocument::LoadDataFromFile(const std::string& Path)
{
    LineReader lines(Path);
    if (!lines.Opened())
        return lines.Opened();
    try {
        clsParser parser(lines, FileReader::IsKey);
        return {FileReader(*this, parser).Read() ? "" : "Its output views cannot be had."};
    } catch (const std::bad_alloc&) {
        return {"Out of memory"};
    }
}

} // namespace morvane
