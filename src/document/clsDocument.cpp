#include "document/clsDocument.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <stdexcept>

#include "analysis/ModMathLib.h"
#include "analysis/modFit.h"
#include "document/DocumentTexts.h"
#include "document/LoadPicture.h"

namespace morvane {
namespace {

void ScaleForDisplay(std::span<double> values, double scale)
{
    for (double& value : values)
        if (value != NoData)
            value *= scale;
}

bool IsFinite(const ZernikeSet& coefficients)
{
    return std::ranges::all_of(coefficients, [](double value) { return std::isfinite(value); });
}

} // namespace

double DisplayScaleOf(DisplayUnit Unit, double InputWavelength, double OutputWavelength)
{
    switch (Unit) {
    case DisplayUnit::Micrometers:
        return InputWavelength / 1000;
    case DisplayUnit::Microinches:
        return InputWavelength / 1000 / 0.0254;
    case DisplayUnit::Waves:
        break;
    }
    return InputWavelength / OutputWavelength;
}

clsDocument::clsDocument(DocumentHost& Host) : m_host(Host)
{
    TakeDefaults();
}

clsDocument::~clsDocument() = default;

void clsDocument::TakeDefaults()
{
    static_cast<DocumentState&>(*this) = {};
    const Preferences& preferences = m_host.GetPreferences();
    TakeSizes();
    ContourLevels = preferences.SurfaceLevels;
    FillPolygons = preferences.FillPolygons;
    DrawMeshWithFill = preferences.DrawMeshWithFill;
    LimitDisplayScale = preferences.LimitScale;
    LineProfileAngle = preferences.LineAngle;
    SurfaceTheta = preferences.SurfaceTheta;
    SurfacePhi = preferences.SurfacePhi;
    if (preferences.SetAsDefault)
        Optic = preferences.DefaultUserData;
    ScreenText = preferences.ScreenText;
    PrinterText = preferences.PrinterText;
}

void clsDocument::TakeSizes()
{
    const Preferences& preferences = m_host.GetPreferences();
    xSurfaceSize = ySurfaceSize = preferences.SurfaceGridSize;
    xOrigSurfaceSize = yOrigSurfaceSize = preferences.SFringeSize;
    ProfileSize = preferences.LineSize;
}

int clsDocument::GetIntensity(int X, int Y) const
{
    const RasterSize size = m_image.Size;
    if (BlankImage || X < 0 || X >= size.Width || Y < 0 || Y >= size.Height)
        return -1;
    return m_image.Pixels[static_cast<std::size_t>(Y) * size.Width + X];
}

void clsDocument::TakeImageSize(RasterSize Size)
{
    if (m_size.Width != NoSize && m_size != Size)
        InvalidateMask();
    m_size = Size;
}

void clsDocument::ClearImage()
{
    LoadBlankImage(NoSize, NoSize);
    m_size = {NoSize, NoSize};
    PicturePath.clear();
    Title.clear();
}

void clsDocument::LoadBlankImage(int Width, int Height)
{
    if (Width != NoSize && Height != NoSize)
        TakeImageSize({Width, Height});
    BlankImage = true;
    LacksPicture = false;
    ImageDirty = false;
    m_image = {};
}

void clsDocument::ClearGeometry()
{
    TakeDefaults();
    Fringes.DeleteAll();
    Aperture.SetShapeType(ShapeKind::None);
    Obstruction.SetShapeType(ShapeKind::None);
    Grid = {};
    m_zernikes = m_zernikeFiltered = m_refZernikes = {};
    m_wNotation = {};
    m_maps = {};
    DestroyOutputViews();
    InvalidateMask();
}

double clsDocument::Zernike(int Index) const
{
    return Index >= 1 && Index <= NumZernikes ? m_zernikes[Index - 1] : 0;
}

double clsDocument::ZernikeFiltered(int Index) const
{
    return Index >= 1 && Index <= NumZernikes ? m_zernikeFiltered[Index - 1] : 0;
}

double clsDocument::Kingslake(int Index) const
{
    return Index >= 1 && Index <= static_cast<int>(m_wNotation.size()) ? m_wNotation[Index - 1] : 0;
}

void clsDocument::SetRefZernikes(const ZernikeSet& Coefficients)
{
    m_refZernikes = Coefficients;
    ReferencePath.clear();
    HasReferenceZernikes = true;
    AnalysisValid = false;
}

void clsDocument::InvalidateMask()
{
    Analysis.Mask.MaskValid = false;
    Modified = true;
    AnalysisValid = false;
}

void clsDocument::ClearFringes()
{
    if (Fringes.NumFringes() > 0
        && m_host.ShowMessage(
               "Current fringe centers will be erased. Continue?", MessageYesNo, "Warning")
            != MessageAnswer::Yes)
        return;
    Fringes.DeleteAll();
    if (m_imageView)
        m_imageView->RefreshContents();
    Modified = true;
    AnalysisValid = false;
}

bool clsDocument::AutoTraceFringes(FringeDirection Direction, FringeDensity Density)
{
    if (Aperture.GetShapeType() == ShapeKind::None) {
        m_host.ShowMessage("Set aperture before automatic fringe tracing", MessageOk, "Warning");
        return false;
    }
    if (BlankImage || !HasImageBuffer())
        return false;
    TraceOutcome outcome;
    {
        const HourglassScope hourglass(m_host);
        m_masksResults = false;
        if (!Analysis.EnsureTraceMask(m_size, Aperture, Obstruction))
            return false;
        outcome = AutoTrace(Fringes, Analysis.Mask, m_image.Pixels, m_size, Direction, Density);
    }
    AnalysisValid = false;
    Modified = true;
    if (m_imageView)
        m_imageView->RefreshContents();
    if (outcome == TraceOutcome::TooManyFringes)
        m_host.ShowMessage("Too many fringes", MessageOk, "Error");
    return Fringes.TotalNumTicks() > 0;
}

bool clsDocument::EnsureMask()
{
    m_masksResults = m_masksResults && Analysis.Mask.MaskValid;
    return m_size.Width != NoSize && m_size.Height != NoSize
        && Analysis.EnsureMask(m_size, Aperture, Obstruction, TrimEdges);
}

bool clsDocument::AllocateMaps(AnalysisMaps& Maps) const
{
    for (const int size :
        {xSurfaceSize, ySurfaceSize, xOrigSurfaceSize, yOrigSurfaceSize, ProfileSize})
        if (size <= 0)
            return false;
    try {
        Maps.Surface.resize(static_cast<std::size_t>(xSurfaceSize) * ySurfaceSize, NoData);
        Maps.Fringes.resize(static_cast<std::size_t>(xOrigSurfaceSize) * yOrigSurfaceSize, NoData);
        Maps.ProfileX.resize(ProfileSize);
        Maps.ProfileY.resize(ProfileSize, NoData);
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
    return true;
}

bool clsDocument::UpdateAnalysis(bool WithAberrations, bool TakeGlobalSizes)
{
    if (TakeGlobalSizes)
        TakeSizes();
    AnalysisMaps maps;
    if (!AllocateMaps(maps))
        return false;
    Modified = true;
    const bool fits = !AnalysisValid && !Averaged && !Combined;
    const ZernikeSet before = m_zernikes;
    if (fits ? !RunFit() : !EnsureMask())
        return false;
    DeriveCoefficients();
    if (fits || WithAberrations)
        EvalAberrations(m_zernikeFiltered, Analysis.Mask.View(), Analysis.Frame, 100, 100, Figures);
    if (!IsFinite(m_zernikeFiltered) || !std::isfinite(Figures.RMS)) {
        m_zernikes = before;
        RefuseResults();
        return false;
    }
    AnalysisValid = m_masksResults = true;
    maps.Unit = ScaleMode;
    maps.DisplayScale = DisplayScale;
    FillMaps(maps);
    m_maps = std::move(maps);
    OutputViews_LoadData();
    return true;
}

void clsDocument::RefuseResults()
{
    AnalysisValid = false;
    DeriveCoefficients();
    Figures = NoFigures;
    m_maps = {};
    OutputViews_LoadData();
    m_host.ShowMessage("The wavefront is too large to be analyzed", MessageOk, "Warning");
}

bool clsDocument::RunFit()
{
    const int count = Fringes.TotalNumTicks();
    const auto warnOfNoCenters = [this] {
        m_host.ShowMessage("No fringe centers to analyze", MessageOk, "Warning");
        return false;
    };
    if (count == 0)
        return warnOfNoCenters();
    try {
        std::vector<double> x, y, z;
        for (std::vector<double>* values : {&x, &y, &z})
            values->reserve(count);
        for (int index = 1; index <= Fringes.NumFringes(); ++index) {
            const double order = Fringes.GetFringeOrder(index);
            for (const Point& tick : Fringes.Ticks(index)) {
                x.push_back(tick.X);
                y.push_back(tick.Y);
                z.push_back(InvertWavefront ? -order : order);
            }
        }
        if (!EnsureMask())
            return false;
        // Without a center inside the aperture the fit is that of a perfect optic.
        ZernikeSet fitted = m_zernikes;
        const int numUsed = FitFringeCenters(
            {x, y, z}, Analysis.Mask.View(), Analysis.Frame, NumZernikeToFit, fitted);
        if (numUsed == 0)
            return warnOfNoCenters();
        nDataPts = numUsed;
        m_zernikes = fitted;
    } catch (const std::bad_alloc&) {
        return false;
    }
    // Coefficients that are still the old ones are without the reference already.
    if (HasReferenceZernikes && CanFit(count, Analysis.Mask.View()))
        for (int i = 0; i < NumZernikes; ++i)
            m_zernikes[i] -= m_refZernikes[i];
    return true;
}

void clsDocument::DeriveCoefficients()
{
    for (int i = 0; i < NumZernikes; ++i)
        m_zernikeFiltered[i] = m_zernikes[i] * ZScale;
    Remove(Removed, m_zernikeFiltered);
    m_wNotation = AToW(m_zernikeFiltered);
}

void clsDocument::FillMaps(AnalysisMaps& Maps) const
{
    const MaskView mask = Analysis.Mask.View();
    const Pupil& frame = Analysis.Frame;
    EvalSurface(m_zernikeFiltered, mask, frame, xSurfaceSize, ySurfaceSize, MapContent::Wavefront,
        Maps.Surface);
    EvalSurface(m_zernikes, mask, frame, xOrigSurfaceSize, yOrigSurfaceSize, MapContent::Fringes,
        Maps.Fringes);
    ScaleForDisplay(Maps.Surface, Maps.DisplayScale);
    FillProfile(Maps);
}

void clsDocument::FillProfile(AnalysisMaps& Maps) const
{
    EvalProfile(m_zernikeFiltered, Analysis.Mask.View(), Analysis.Frame,
        LineProfileAngle / DegreesPerRadian, Maps.ProfileX, Maps.ProfileY);
    ScaleForDisplay(Maps.ProfileY, Maps.DisplayScale);
}

std::vector<double> clsDocument::GetSurfaceMap()
{
    std::vector<double> map(SurfaceMapSize * SurfaceMapSize, NoData);
    if (EnsureMask())
        EvalSurface(m_zernikeFiltered, Analysis.Mask.View(), Analysis.Frame, SurfaceMapSize,
            SurfaceMapSize, MapContent::Wavefront, map);
    return map;
}

} // namespace morvane
