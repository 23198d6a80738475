// The document file on its way out: a line each, key and value. The forms of the keys, with or
// without a blank behind the comma, are those that readers of these files know.
#include <algorithm>
#include <new>
#include <string>
#include <string_view>

#include "document/clsDocument.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

constexpr int fileVersion = 100;

// The comments' line breaks as backslash and r, so that they are one line.
std::string encodeLineBreaks(std::string_view text)
{
    std::string encoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text.substr(i, 2) == "\r\n";
        if (isPair || text[i] == '\r' || text[i] == '\n')
            encoded += "\\r";
        else
            encoded += text[i];
        if (isPair)
            ++i;
    }
    return encoded;
}

// Writes lines; the end of Key is all that stands before the value.
class Lines {
public:
    explicit Lines(std::string& text) : m_text(text) { }

    void Empty() { m_text += "\r\n"; }

    void Whole(std::string_view key, int value) { AppendWholeLine(m_text, key, value); }
    void Number(std::string_view key, double value) { AppendNumberLine(m_text, key, value); }
    void Flag(std::string_view key, bool value) { AppendFlagLine(m_text, key, value); }

    // A line break in the text would make a key of what follows; it becomes a blank. Blanks at the
    // start go, as no reader would find them.
    void Text(std::string_view key, std::string text)
    {
        for (char& character : text)
            if (character == '\r' || character == '\n')
                character = ' ';
        m_text += key;
        m_text.append(text, std::min(text.find_first_not_of(' '), text.size()));
        Empty();
    }

    void Coefficients(std::string_view key, const ZernikeSet& values)
    {
        m_text += key;
        for (const double value : values) {
            m_text += ',';
            AppendNumberField(m_text, value);
        }
        Empty();
    }

    void Place(std::string_view key, const WindowPlace& place)
    {
        m_text += key;
        m_text += std::to_string(place.Left) + ',' + std::to_string(place.Top) + ','
            + std::to_string(place.Width) + ',' + std::to_string(place.Height);
        Empty();
    }

private:
    std::string& m_text;
};

// Room for the longest forms, so that the text is never copied while it grows.
std::size_t mostBytes(const clsDocument& document)
{
    constexpr std::size_t bytesPerTick = 64, bytesForTheRest = 65536;
    return document.Fringes.TotalNumTicks() * bytesPerTick + bytesForTheRest;
}

void appendPicture(Lines& lines, const clsDocument& document)
{
    const RasterSize size = document.GetImageSize();
    lines.Whole("FileVersion,", fileVersion);
    lines.Flag("HasImageFile, ", !document.BlankImage || document.LacksPicture);
    lines.Whole("ImageXSize, ", size.Width);
    lines.Whole("ImageYSize, ", size.Height);
    lines.Empty();
}

void appendCoefficients(Lines& lines, const clsDocument& document)
{
    lines.Coefficients("Zernikes", document.GetZernikes());
    if (document.HasReferenceZernikes)
        lines.Coefficients("ReferenceZernikes", document.GetRefZernikes());
}

void appendBlocks(Lines& lines, std::string& text, const clsDocument& document)
{
    document.Fringes.SaveToFile(text);
    lines.Empty();
    document.Aperture.SaveToFile(text);
    lines.Empty();
    document.Obstruction.SaveToFile(text);
    lines.Empty();
    document.Grid.SaveToFile(text);
    lines.Empty();
}

void appendResults(Lines& lines, const clsDocument& document)
{
    lines.Number("RMS,", document.Figures.RMS);
    lines.Number("PV,", document.Figures.PV);
    lines.Number("Strehl,", document.Figures.Strehl);
    lines.Flag("noTilt,", document.Removed.Tilt);
    lines.Flag("noFocus,", document.Removed.Focus);
    lines.Flag("noAstig,", document.Removed.Astigmatism);
    lines.Flag("noComa,", document.Removed.Coma);
    lines.Flag("noSphere,", document.Removed.Spherical);
    lines.Whole("NumZernikeToFit,", document.NumZernikeToFit);
    lines.Flag("TrimEdges,", document.TrimEdges);
    lines.Number("ZScale,", document.ZScale);
    lines.Flag("InvertWavefront,", document.InvertWavefront);
    lines.Whole("ScaleMode,", static_cast<int>(document.ScaleMode));
    lines.Flag("LimitDisplayScale,", document.LimitDisplayScale);
    lines.Number("DisplayScale,", document.DisplayScale);
    lines.Number("OutWL,", document.OutWL);
    lines.Whole("nDataPts,", document.nDataPts);
    lines.Flag("AnalysisValid,", document.AnalysisValid);
    lines.Flag("Averaged,", document.Averaged);
    lines.Flag("Combined,", document.Combined);
}

void appendViewOptions(Lines& lines, const clsDocument& document)
{
    lines.Whole("ContourLevels,", document.ContourLevels);
    lines.Whole("xSurfaceSize,", document.xSurfaceSize);
    lines.Whole("xOrigSurfaceSize,", document.xOrigSurfaceSize);
    lines.Whole("ProfileSize,", document.ProfileSize);
    lines.Flag("FillPolygons,", document.FillPolygons);
    lines.Flag("DrawMeshWithFill,", document.DrawMeshWithFill);
    lines.Flag("ZernikesViewVisible,", document.Visible.Zernikes);
    lines.Flag("AberrationsViewVisible,", document.Visible.Aberrations);
    lines.Flag("GridResultsViewVisible,", document.Visible.GridResults);
    lines.Flag("SFringeViewVisible,", document.Visible.SFringe);
    lines.Flag("LineProfileViewVisible,", document.Visible.LineProfile);
    lines.Flag("ContourPlotViewVisible,", document.Visible.ContourPlot);
    lines.Flag("SurfacePlotViewVisible,", document.Visible.SurfacePlot);
}

// Views that nobody has placed stand where the next ones would.
void appendViewPlaces(
    Lines& lines, const clsDocument& document, const PerView<WindowPlace>& defaults)
{
    const auto append = [&](std::string_view key, ViewType view, const WindowPlace& place) {
        const DocumentWindow* const window = document.View(view);
        lines.Place(key, window && window->IsPlaced() ? window->GetPlace() : place);
    };
    append("ZernikesView,", ViewType::Zernikes, defaults.Zernikes);
    append("AberrationsView,", ViewType::Aberrations, defaults.Aberrations);
    append("GridResultsView,", ViewType::GridResults, defaults.GridResults);
    append("SFringeView,", ViewType::SFringe, defaults.SFringe);
    lines.Whole("LineProfileAngle,", document.LineProfileAngle);
    append("LineProfileView,", ViewType::LineProfile, defaults.LineProfile);
    append("ContourPlotView,", ViewType::ContourPlot, defaults.ContourPlot);
    lines.Number("SurfaceTheta,", document.SurfaceTheta);
    lines.Number("SurfacePhi,", document.SurfacePhi);
    append("SurfacePlotView,", ViewType::SurfacePlot, defaults.SurfacePlot);
}

void appendUserData(Lines& lines, const UserData& data)
{
    lines.Text("OpticDescription:= ", data.Description);
    lines.Text("OpticOperator:= ", data.Operator);
    lines.Text("OpticComments:= ", encodeLineBreaks(data.Comments));
    lines.Text("OpticDate:= ", data.Date);
}

void appendFont(Lines& lines, const std::string& prefix, const TextFont& font)
{
    lines.Flag(prefix + "Bold,", font.Bold);
    lines.Whole(prefix + "colour,", ColorToLong(font.Ink));
    lines.Text(prefix + "facename:= ", FixedFaceName(font.FaceName));
    lines.Flag(prefix + "Italic,", font.Italic);
    lines.Whole(prefix + "Size,", font.Size);
    lines.Flag(prefix + "Underline,", font.Underline);
}

} // namespace

std::string clsDocument::DataText() const
{
    std::string text;
    text.reserve(mostBytes(*this));
    Lines lines(text);
    appendPicture(lines, *this);
    appendCoefficients(lines, *this);
    appendBlocks(lines, text, *this);
    appendResults(lines, *this);
    if (m_imageView)
        lines.Place("ImageView,", m_imageView->GetPlace());
    lines.Flag("OutputViewsExist,", OutputViewsExist());
    if (OutputViewsExist()) {
        appendViewOptions(lines, *this);
        appendViewPlaces(lines, *this, m_host.GetPreferences().Places);
    }
    appendUserData(lines, Optic);
    appendFont(lines, "ScreenText", ScreenText);
    appendFont(lines, "PrinterText", PrinterText);
    return text;
}

FileResult clsDocument::StageData(const std::string& Path, std::optional<StagedFile>& Into) const
try {
    return Into.emplace(Path, DataText()).Prepared();
} catch (const std::bad_alloc&) {
    return {"Out of memory"};
}

FileResult clsDocument::SaveDataToFile(const std::string& Path)
{
    std::optional<StagedFile> file;
    FileResult written = StageData(Path, file);
    if (written)
        written = file->Commit();
    if (written)
        Modified = false;
    return written;
}

} // namespace morvane
