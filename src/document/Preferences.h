// The user's preferences, as the settings keep them. A document copies what it needs at its
// creation, and takes up the sizes of maps again at an analysis.
#pragma once
#include <array>
#include <cstdint>
#include <string>

#include "document/TextFont.h"
#include "geometry/modTrace.h"

namespace morvane {

enum class ViewType : std::int32_t {
    Interferogram = 1,
    SurfacePlot = 3,
    ContourPlot = 4,
    LineProfile = 5,
    SFringe = 6,
    Aberrations = 7,
    Zernikes = 8,
    GridResults = 9
};

inline constexpr std::array OutputViewTypes{ViewType::SurfacePlot, ViewType::ContourPlot,
    ViewType::LineProfile, ViewType::SFringe, ViewType::Aberrations, ViewType::Zernikes,
    ViewType::GridResults};

// Where a window stands in the frame, pixels.
struct WindowPlace {
    int Left = 0, Top = 0, Width = 0, Height = 0;
    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

// Something for each of the seven output views; At takes one of these.
template <typename T>
struct PerView {
    T SurfacePlot{}, ContourPlot{}, LineProfile{}, SFringe{}, Aberrations{}, Zernikes{},
        GridResults{};

    const T& At(ViewType View) const { return this->*MemberOf(View); }
    T& At(ViewType View) { return this->*MemberOf(View); }
    friend bool operator==(const PerView&, const PerView&) = default;

private:
    static constexpr T PerView::*MemberOf(ViewType View)
    {
        switch (View) {
        case ViewType::Interferogram: // none of the seven
        case ViewType::SurfacePlot:
            break;
        case ViewType::ContourPlot:
            return &PerView::ContourPlot;
        case ViewType::LineProfile:
            return &PerView::LineProfile;
        case ViewType::SFringe:
            return &PerView::SFringe;
        case ViewType::Aberrations:
            return &PerView::Aberrations;
        case ViewType::Zernikes:
            return &PerView::Zernikes;
        case ViewType::GridResults:
            return &PerView::GridResults;
        }
        return &PerView::SurfacePlot;
    }
};

// What a test is of, and whose.
struct UserData {
    std::string Description, Date, Operator, Comments;
    friend bool operator==(const UserData&, const UserData&) = default;
};

// Of the printed report; any other number stands upright too.
inline constexpr int PortraitOrientation = 1, LandscapeOrientation = 2;

// Which rows and panes the printed report has.
struct ReportPreferences {
    int PageOrientation = PortraitOrientation;
    bool ShowRMS = true, ShowPV = true, ShowStrehl = true;
    bool ShowTilt = false, ShowDefocus = false;
    bool ShowAstigmatism = true, ShowComa = true, ShowSpherical = true;
    bool ShowScale = false, ShowWavelength = true, ShowDataPts = false;
    bool ShowDescription = true, ShowDate = true, ShowOperator = true, ShowComments = true;
    bool DrawPageGrid = true;
    int NumPanes = 3;
    std::array<int, 6> Pane{6, 1, 5, 0, 0, 0};
};

struct Preferences {
    int OpenFileFilter = 2, SaveFileFilter = 2; // of the dialogs, from 1
    std::string OpenFileDir, SaveFileDir;

    ReportPreferences Report;

    bool GrabIntoNewWindow = true;
    double GrabAspectRatio = 1, ManualAspectRatio = 1;
    std::string GrabberName = "None";

    bool HogWindows = true; // one common set of output views, not one for each document
    bool AutoStretch = true; // spread the display palette over the picture's range
    bool AutoLoadAperture = true, AutoLoadObstruction = true;
    bool LimitScale = true;
    bool RedDisplay = true; // red palette
    FringeDensity AutoTraceFringeDensity = FringeDensity::Normal;

    int SurfaceLevels = 10; // contour lines
    int SurfaceGridSize = 30; // cells of the surface map in each axis
    bool FillPolygons = true, DrawMeshWithFill = true;
    int SurfaceTheta = 60, SurfacePhi = 30, LineAngle = 0; // degrees
    int LineSize = 100; // points of the line profile
    int SFringeSize = 150; // cells of the synthetic fringe map in each axis

    PerView<bool> Visible{.SurfacePlot = true, .ContourPlot = true, .Aberrations = true};
    PerView<WindowPlace> Places;
    // Where the views stand as long as nobody has arranged them.
    PerView<WindowPlace> DefaultPlaces;
    bool IsArranged(ViewType View) const { return Places.At(View) != DefaultPlaces.At(View); }
    // From one window of a cascade to the next: a frame, and a frame with its caption; pixels.
    int CascadeX = 0, CascadeY = 0;

    TextFont ScreenText, PrinterText;

    bool SetAsDefault = false; // new documents take the user data below
    UserData DefaultUserData;
};

} // namespace morvane
