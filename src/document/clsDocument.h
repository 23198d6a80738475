// One interferogram in work: its picture, fringes, shapes, options and results, and the windows
// that show them. It acts; commands, the bus and the windows call it. Messages go through the host.
//
// AnalysisValid false with output views up means: the results shown are stale, and the next
// UpdateAnalysis fits anew.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/clsAnalysis.h"
#include "analysis/modFigures.h"
#include "analysis/modSurface.h"
#include "document/Bitmap.h"
#include "document/DocumentHost.h"
#include "geometry/clsFringes.h"
#include "geometry/modTrace.h"
#include "platform/File.h"

namespace morvane {

inline constexpr int NoSize = 2147483647; // no image size known
inline constexpr double DefaultWavelength = 632.8; // nm, helium-neon laser

enum class DisplayUnit : std::int32_t { Waves = 0, Micrometers = 1, Microinches = 2 };

// Factor from waves at the input wavelength to the unit; wavelengths in nm.
double DisplayScaleOf(DisplayUnit Unit, double InputWavelength, double OutputWavelength);

// The maps of the last run, multiplied by DisplayScale but for the fringes; rows from the top.
struct AnalysisMaps {
    std::vector<double> Surface; // xSurfaceSize * ySurfaceSize
    std::vector<double> Fringes; // xOrigSurfaceSize * yOrigSurfaceSize
    std::vector<double> ProfileX, ProfileY;
};

class clsDocument {
public:
    explicit clsDocument(DocumentHost& Host);
    ~clsDocument();
    clsDocument(const clsDocument&) = delete;
    clsDocument& operator=(const clsDocument&) = delete;

    int DocNumber = 0;
    std::string Title; // shown while there is no document file: the picture's file name
    std::string FileName; // of the document file, without its folder
    std::string Directory; // of the file, without a separator at the end
    bool HasSourceFile = false;
    bool BlankImage = false; // no picture
    bool ImageDirty = false; // the picture differs from its file
    bool Averaged = false, Combined = false;
    bool Modified = false;

    clsAnalysis Analysis;
    clsShape Aperture{ShapeRole::Aperture};
    clsShape Obstruction{ShapeRole::Obstruction};
    clsFringes Fringes;

    ViewType ActiveView = ViewType::Interferogram;
    PerView<bool> Visible;

    int xSurfaceSize, ySurfaceSize, xOrigSurfaceSize, yOrigSurfaceSize, ProfileSize;
    int ContourLevels;
    bool FillPolygons, DrawMeshWithFill;
    bool LimitDisplayScale;
    bool AutoScale = true; // of the plots; otherwise ZMinimum to ZMaximum
    double ZMinimum = 0, ZMaximum = 1;
    int LineProfileAngle; // degrees
    double SurfaceTheta, SurfacePhi; // degrees
    UserData Optic;
    TextFont ScreenText, PrinterText;

    bool AnalysisValid = false;
    bool HasReferenceZernikes = false;
    std::string ReferencePath; // the file that the reference came from; empty if from none
    int nDataPts = 0;
    double ZScale = 0.5; // waves per fringe order
    DisplayUnit ScaleMode = DisplayUnit::Waves;
    double DisplayScale = 1;
    double OutWL = DefaultWavelength; // nm
    bool InvertWavefront = false, TrimEdges = false;
    RemoveFlags Removed;
    int NumZernikeToFit = 0; // 0: chosen by the number of points
    FiguresOfMerit Figures; // waves at the input wavelength

    // The name in captions and texts: the file's, or the title.
    const std::string& ShownName() const { return FileName.empty() ? Title : FileName; }

    // --- Picture
    bool HasImageBuffer() const { return m_image.Pixels.size() > 1; }
    const ImageBuffer& Image() const { return m_image; }
    // NoSize twice while none is known.
    RasterSize GetImageSize() const { return m_size; }
    // -1 without a picture or outside of it.
    int GetIntensity(int X, int Y) const;

    // Replaces the picture by that of a file. On failure a picture stays as it is, a document
    // without one is blank, and unless Quiet the user is told the file and the reason.
    bool LoadFileIntoDataBuffer(const std::string& Path, bool Quiet);
    // Takes a size, NoSize for none, without a picture.
    void LoadBlankImage(int Width, int Height);
    // Writes the picture as an 8-bit BMP with a grey ramp, whatever the display shows, and it is
    // clean again. Without a picture nothing is written.
    FileResult SaveDataBufferToBMP(const std::string& Path);
    // Back to a document without fringes, shapes and results; slot, windows and picture stay.
    void ClearGeometry();

    // --- Coefficients, by index 1 to 36, and aberrations, 1 to 8; 0 outside
    double Zernike(int Index) const;
    double ZernikeFiltered(int Index) const;
    double Kingslake(int Index) const;
    const ZernikeSet& GetZernikes() const { return m_zernikes; }
    void SetZernikes(const ZernikeSet& Coefficients) { m_zernikes = Coefficients; }
    // Subtracted from every fit from now on; the analysis is stale.
    void SetRefZernikes(const ZernikeSet& Coefficients);
    const ZernikeSet& GetRefZernikes() const { return m_refZernikes; }
    const WNotation& GetWNotation() const { return m_wNotation; }
    const AnalysisMaps& Maps() const { return m_maps; }

    // --- Work
    // Every change of aperture, obstruction or picture size goes through this.
    void InvalidateMask();
    // Replaces the fringes; the user is told of a missing aperture or of too many fringes. False
    // if no fringe was found.
    bool AutoTraceFringes(FringeDirection Direction, FringeDensity Density);
    // From the state to the results: fits if they are stale, derives figures and maps, and loads
    // the output views. False, with the old results, if it cannot be done.
    bool UpdateAnalysis(bool WithAberrations, bool TakeGlobalSizes);
    // The wavefront 100 by 100 without DisplayScale, as exported.
    std::vector<double> GetSurfaceMap();
    static constexpr int SurfaceMapSize = 100;

    // --- Windows
    bool ImageViewExists() const { return m_imageView != nullptr; }
    bool OutputViewsExist() const { return m_aberrationsView && m_zernikesView; }
    ImageWindow* ImageView() const { return m_imageView.get(); }
    // The window of a view; nullptr before it has been created.
    DocumentWindow* View(ViewType Kind) const;
    bool CreateImageView();
    // Also takes the default visibility of each view from the preferences.
    bool CreateOutputViews();
    // Caption and picture to the image window; Refresh also repaints it.
    void ImageView_Init();
    void ImageView_Refresh();
    // Ends all windows; who still holds the document has one without any.
    void CloseWindows();
    void OutputViews_UpdateVisibility(Activation How);
    void OutputViews_HideAll();
    void OutputViews_ShowNoActivate();
    void OutputViews_Refresh();

private:
    void TakeImageSize(RasterSize Size);
    bool EnsureMask();
    bool RunFit();
    void TakeSizes();
    bool AllocateMaps(AnalysisMaps& Maps) const;
    void DeriveCoefficients();
    void FillMaps(AnalysisMaps& Maps) const;
    void OutputViews_LoadData();
    void LoadDataIntoAberrations();
    void LoadDataIntoZernikes();

    DocumentHost& m_host;
    ImageBuffer m_image;
    RasterSize m_size{NoSize, NoSize};
    ZernikeSet m_zernikes{}, m_zernikeFiltered{}, m_refZernikes{};
    WNotation m_wNotation{};
    AnalysisMaps m_maps;
    std::unique_ptr<ImageWindow> m_imageView;
    std::unique_ptr<TextWindow> m_aberrationsView, m_zernikesView;
};

} // namespace morvane
