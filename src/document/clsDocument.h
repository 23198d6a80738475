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
#include "document/clsGrid.h"
#include "geometry/clsFringes.h"
#include "geometry/modTrace.h"
#include "platform/File.h"

namespace morvane {

class GrabberHost;

inline constexpr int NoSize = 2147483647; // no image size known
inline constexpr double DefaultWavelength = 632.8; // nm, helium-neon laser

enum class DisplayUnit : std::int32_t { Waves = 0, Micrometers = 1, Microinches = 2 };

// Factor from waves at the input wavelength to the unit; wavelengths in nm.
double DisplayScaleOf(DisplayUnit Unit, double InputWavelength, double OutputWavelength);

// The maps of the last run, multiplied by its scale but for the fringes; rows from the top. Their
// unit is not that of the document once other options have been stored without a run.
struct AnalysisMaps {
    DisplayUnit Unit = DisplayUnit::Waves;
    double DisplayScale = 1;
    std::vector<double> Surface; // xSurfaceSize * ySurfaceSize
    std::vector<double> Fringes; // xOrigSurfaceSize * yOrigSurfaceSize
    std::vector<double> ProfileX, ProfileY;
};

// How a document is analysed and shown, and the figures that came of it.
struct DocumentState {
    bool Averaged = false, Combined = false;

    int xSurfaceSize = 0, ySurfaceSize = 0, xOrigSurfaceSize = 0, yOrigSurfaceSize = 0;
    int ProfileSize = 0;
    int ContourLevels = 0;
    bool FillPolygons = false, DrawMeshWithFill = false;
    bool LimitDisplayScale = false;
    bool AutoScale = true; // of the plots; otherwise ZMinimum to ZMaximum
    double ZMinimum = 0, ZMaximum = 1;
    int LineProfileAngle = 0; // degrees
    double SurfaceTheta = 0, SurfacePhi = 0; // degrees
    UserData Optic;
    TextFont ScreenText, PrinterText;

    std::string ReferencePath; // the file that the reference came from; empty if from none
    bool HasReferenceZernikes = false;
    bool AnalysisValid = false;
    int nDataPts = 0;
    DisplayUnit ScaleMode = DisplayUnit::Waves;
    double ZScale = 0.5; // waves per fringe order
    double DisplayScale = 1;
    double OutWL = DefaultWavelength; // nm
    bool InvertWavefront = false, TrimEdges = false;
    RemoveFlags Removed;
    int NumZernikeToFit = 0; // 0: chosen by the number of points
    FiguresOfMerit Figures; // waves at the input wavelength
    friend bool operator==(const DocumentState&, const DocumentState&) = default;
};

class clsDocument : public DocumentState {
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
    std::string PicturePath; // the file that holds the picture as it is, unless ImageDirty
    bool FileIsOfOther = false; // another document has been written to the document file
    bool MayReplacePicture = false; // that file is no original: it has been written from here
    bool BlankImage = false; // no picture
    bool LacksPicture = false; // its file tells of one that could not be had this time
    bool ImageDirty = false; // the picture differs from its file
    bool Modified = false;

    clsAnalysis Analysis;
    clsShape Aperture{ShapeRole::Aperture};
    clsShape Obstruction{ShapeRole::Obstruction};
    clsFringes Fringes;
    clsGrid Grid;

    ViewType ActiveView = ViewType::Interferogram;
    PerView<bool> Visible;

    // The name in captions and texts: the file's, or the title.
    const std::string& ShownName() const { return FileName.empty() ? Title : FileName; }

    // Whether closing it would lose something.
    bool HasUnsavedChanges() const { return Modified || ImageDirty; }

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
    // Replaces the picture by a frame of the grabber, stretched as the preferences ask. On failure
    // everything stays as it is; what the grabber does not tell itself the user is told here.
    bool GrabIntoDataBuffer(GrabberHost& From);
    // Makes the picture wider (Aspect above 1) or higher (below 1), so that it only ever grows;
    // tick and shape positions stay. Without a picture, and for aspects of 1 or not above 0, there
    // is nothing to do. False, with the old picture, if the new one would be too large.
    bool StretchImage(double Aspect);
    // Back to no picture and no size.
    void ClearImage();
    // Takes a size, NoSize for none, without a picture.
    void LoadBlankImage(int Width, int Height);
    // The picture as an 8-bit BMP with a grey ramp, whatever the display shows, ready to take the
    // name Path. Without a picture nothing is written.
    FileResult StageBMP(const std::string& Path, std::optional<StagedFile>& Into) const;
    // Writes that file, and the picture is clean again.
    FileResult SaveDataBufferToBMP(const std::string& Path);
    // The picture is in the file Path now.
    void NotePicture(const std::string& Path);
    // Back to a document without fringes, shapes, grid and results; slot, image window and picture
    // stay.
    void ClearGeometry();

    // --- Document file: all but the picture and what can be derived, as text lines of key and
    // value
    std::string DataText() const;
    // The text ready to take the name Path.
    FileResult StageData(const std::string& Path, std::optional<StagedFile>& Into) const;
    // Writes the text; afterwards Path is the old file or the new one, whole, and in the latter
    // case the document is not modified any more.
    FileResult SaveDataToFile(const std::string& Path);
    // Whether there is a single line in the file that a document could have.
    static FileResult IsDocumentFile(const std::string& Path);
    // Reads into a document that is new or whose geometry has been cleared; what the file lacks
    // stays as it is. It fails if the file cannot be read or its output views cannot be had. Bad
    // values are replaced, unknown lines are skipped. In the individual workspace, places of views
    // in the file become those of the preferences.
    FileResult LoadDataFromFile(const std::string& Path);

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
    // --- What the views show: results of the last run, whatever options have been stored since
    // The profile lasts as long as the maps.
    ProfileData Profile() const;
    const std::string& ShownAberrations() const { return m_shownAberrations; }

    // --- Work
    // Every change of aperture, obstruction or picture size goes through this.
    void InvalidateMask();
    // Erases the fringes, after a question if there are any.
    void ClearFringes();
    // Replaces the fringes; the user is told of a missing aperture or of too many fringes. False
    // if no fringe was found.
    bool AutoTraceFringes(FringeDirection Direction, FringeDensity Density);
    // From the state to the results: fits if they are stale, derives figures and maps, and loads
    // the output views. False, with the old results, if it cannot be done; and without any, and the
    // user has been told, if the numbers leave the range in which there are figures of merit.
    bool UpdateAnalysis(bool WithAberrations, bool TakeGlobalSizes);
    // The wavefront 100 by 100 without DisplayScale, as exported.
    std::vector<double> GetSurfaceMap();
    static constexpr int SurfaceMapSize = 100;

    // --- Windows
    bool ImageViewExists() const { return m_imageView != nullptr; }
    bool OutputViewsExist() const
    {
        return m_lineProfileView && m_aberrationsView && m_zernikesView && m_gridResultsView;
    }
    ImageWindow* ImageView() const { return m_imageView.get(); }
    // The window of a view; nullptr before it has been created.
    DocumentWindow* View(ViewType Kind) const;
    // nullptr for a view that is no text, too.
    TextWindow* TextView(ViewType Kind) const;
    bool CreateImageView();
    // Places them, in the individual workspace a step further than those before, and takes the
    // default visibility of each from the preferences.
    bool CreateOutputViews();
    // Caption and picture to the image window; Refresh also repaints it.
    void ImageView_Init();
    // The name behind each window's kind.
    void UpdateCaptions();
    void ImageView_Refresh();
    // Ends all windows; who still holds the document has one without any.
    void CloseWindows();

    // --- Output views. Without them each does nothing; those that the user has hidden stay so.
    // Shows each that is to be visible and hides the others, where they are.
    void OutputViews_UpdateVisibility(Activation How);
    // In the common workspace at the places of the preferences.
    void OutputViews_ShowNoActivate();
    void OutputViews_HideAll();
    void OutputViews_Refresh();
    // Above all other windows, the interferogram too, without the focus.
    void OutputViews_Select(ViewType Kind);
    void OutputViews_Offset(int DeltaX, int DeltaY, bool Shows);
    // The preferences take the document's visibility, and in the common workspace its places.
    void OutputViews_GiveGlobals();
    void OutputViews_TakeGlobals();
    void OutputViews_NotePlaces();
    // Each view, shown or not, to the place of the preferences.
    void OutputViews_TakePlaces();
    void LoadDataIntoGridResults();
    // The profile anew at another angle, in degrees, and nothing else.
    void RefreshLineViewData(int Angle);

private:
    void TakeImageSize(RasterSize Size);
    bool EnsureMask();
    bool RunFit();
    void RefuseResults();
    void TakeDefaults();
    void TakeSizes();
    bool AllocateMaps(AnalysisMaps& Maps) const;
    void DeriveCoefficients();
    void FillMaps(AnalysisMaps& Maps) const;
    void FillProfile(AnalysisMaps& Maps) const;
    bool MakeOutputViews();
    void DestroyOutputViews();
    enum class Placement { Shared, Cascaded };
    // Brings the views to the places of the preferences, and their contents up to date.
    void OutputViews_Load(Placement How);
    static void PlaceView(DocumentWindow& View, const WindowPlace& At);
    template <typename Views, typename Act>
    void ForEachVisible(const Views& Kinds, Act Do)
    {
        if (!OutputViewsExist())
            return;
        for (const ViewType kind : Kinds)
            if (DocumentWindow* const view = View(kind); view && Visible.At(kind))
                Do(*view, kind);
    }
    void OutputViews_LoadData();
    void LoadDataIntoLineProfile();
    double LeastProfileSpan() const;

    class FileReader;

    DocumentHost& m_host;
    ImageBuffer m_image;
    RasterSize m_size{NoSize, NoSize};
    ZernikeSet m_zernikes{}, m_zernikeFiltered{}, m_refZernikes{};
    WNotation m_wNotation{};
    AnalysisMaps m_maps;
    bool m_masksResults = false; // the mask is that of the maps, whatever has become of the shapes
    std::string m_shownAberrations;
    std::unique_ptr<ImageWindow> m_imageView;
    std::unique_ptr<ProfileWindow> m_lineProfileView;
    std::unique_ptr<TextWindow> m_aberrationsView, m_zernikesView, m_gridResultsView;
};

} // namespace morvane
