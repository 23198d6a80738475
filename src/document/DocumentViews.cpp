// A document's windows: made when first needed, placed, shown in the orders that put the texts at
// the bottom and the surface on top, and filled when an analysis has finished. A kind of view that
// has no window is passed over everywhere.
#include "analysis/ModMathLib.h"
#include "document/DocumentTexts.h"
#include "document/clsDocument.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

using enum ViewType;
using Order = std::array<ViewType, 7>;

constexpr Order UpdateOrder{
    Zernikes, GridResults, Aberrations, SFringe, LineProfile, ContourPlot, SurfacePlot};
constexpr Order ShowOrder{
    Zernikes, Aberrations, SFringe, LineProfile, ContourPlot, SurfacePlot, GridResults};
constexpr Order LoadOrder{
    Zernikes, Aberrations, GridResults, SFringe, LineProfile, ContourPlot, SurfacePlot};

const char* TitlePrefix(ViewType kind)
{
    switch (kind) {
    case Interferogram:
        break;
    case SurfacePlot:
        return "Surface Plot - ";
    case ContourPlot:
        return "Contour Plot - ";
    case LineProfile:
        return "Line Profile - ";
    case SFringe:
        return "Synthetic Fringes - ";
    case Aberrations:
        return "Aberrations - ";
    case Zernikes:
        return "Zernikes - ";
    case GridResults:
        return "Grid Results - ";
    }
    return "";
}

} // namespace

DocumentWindow* clsDocument::View(ViewType Kind) const
{
    switch (Kind) {
    case Interferogram:
        return m_imageView.get();
    case LineProfile:
        return m_lineProfileView.get();
    default:
        return TextView(Kind);
    }
}

TextWindow* clsDocument::TextView(ViewType Kind) const
{
    switch (Kind) {
    case Aberrations:
        return m_aberrationsView.get();
    case Zernikes:
        return m_zernikesView.get();
    case GridResults:
        return m_gridResultsView.get();
    default:
        return nullptr;
    }
}

bool clsDocument::CreateImageView()
{
    m_imageView = m_host.Windows().CreateImageWindow(*this);
    return m_imageView != nullptr;
}

bool clsDocument::CreateOutputViews()
{
    if (!MakeOutputViews())
        return false;
    const bool cascades = !m_host.GetPreferences().HogWindows;
    OutputViews_Load(cascades ? Placement::Cascaded : Placement::Shared);
    OutputViews_TakeGlobals();
    return true;
}

bool clsDocument::MakeOutputViews()
{
    DocumentWindowFactory& windows = m_host.Windows();
    m_lineProfileView = windows.CreateProfileWindow(*this);
    m_aberrationsView = windows.CreateTextWindow(*this, Aberrations);
    m_zernikesView = windows.CreateTextWindow(*this, Zernikes);
    m_gridResultsView = windows.CreateTextWindow(*this, GridResults);
    UpdateCaptions();
    return OutputViewsExist();
}

void clsDocument::DestroyOutputViews()
{
    m_gridResultsView.reset();
    m_zernikesView.reset();
    m_aberrationsView.reset();
    m_lineProfileView.reset();
}

void clsDocument::CloseWindows()
{
    DestroyOutputViews();
    m_imageView.reset();
}

void clsDocument::ImageView_Init()
{
    if (!m_imageView)
        return;
    const HourglassScope hourglass(m_host);
    UpdateCaptions();
    m_imageView->RefreshPicture();
}

void clsDocument::UpdateCaptions()
{
    if (m_imageView)
        m_imageView->SetCaption(ShownName());
    for (const ViewType kind : LoadOrder)
        if (DocumentWindow* const view = View(kind))
            view->SetCaption(TitlePrefix(kind) + ShownName());
}

void clsDocument::ImageView_Refresh()
{
    ImageView_Init();
    if (m_imageView)
        m_imageView->Repaint();
}

void clsDocument::OutputViews_UpdateVisibility(Activation How)
{
    if (!OutputViewsExist())
        return;
    for (const ViewType kind : UpdateOrder) {
        DocumentWindow* const view = View(kind);
        if (view && Visible.At(kind))
            view->Show(How);
        else if (view)
            view->Hide();
    }
}

void clsDocument::OutputViews_HideAll()
{
    ForEachVisible(ShowOrder, [](DocumentWindow& view, ViewType) { view.Hide(); });
}

void clsDocument::OutputViews_ShowNoActivate()
{
    const Preferences& preferences = m_host.GetPreferences();
    ForEachVisible(ShowOrder, [&](DocumentWindow& view, ViewType kind) {
        if (preferences.HogWindows)
            PlaceView(view, preferences.Places.At(kind));
        view.Show(Activation::LeaveFocus);
    });
}

void clsDocument::OutputViews_Refresh()
{
    ForEachVisible(LoadOrder, [](DocumentWindow& view, ViewType) { view.Repaint(); });
}

void clsDocument::OutputViews_Select(ViewType Kind)
{
    DocumentWindow* const view = View(Kind);
    if (view && (Kind == Interferogram || (OutputViewsExist() && Visible.At(Kind))))
        view->Raise();
}

void clsDocument::OutputViews_Offset(int DeltaX, int DeltaY, bool Shows)
{
    ForEachVisible(LoadOrder, [=](DocumentWindow& view, ViewType) {
        WindowPlace place = view.GetPlace();
        place.Left = std::max(0, place.Left + DeltaX);
        place.Top = std::max(0, place.Top + DeltaY);
        view.SetPlace(place);
        if (Shows)
            view.Show(Activation::LeaveFocus);
    });
}

void clsDocument::OutputViews_NotePlaces()
{
    if (!OutputViewsExist())
        return;
    for (const ViewType kind : LoadOrder) {
        const DocumentWindow* const view = View(kind);
        if (!view || !view->IsPlaced())
            continue;
        if (const WindowPlace place = view->GetPlace(); place.Width > 0 && place.Height > 0)
            m_host.GetPreferences().Places.At(kind) = place;
    }
}

void clsDocument::OutputViews_TakePlaces()
{
    for (const ViewType kind : LoadOrder)
        if (DocumentWindow* const view = View(kind))
            PlaceView(*view, m_host.GetPreferences().Places.At(kind));
}

void clsDocument::OutputViews_GiveGlobals()
{
    if (!OutputViewsExist())
        return;
    Preferences& preferences = m_host.GetPreferences();
    preferences.Visible = Visible;
    if (preferences.HogWindows)
        OutputViews_NotePlaces();
}

void clsDocument::OutputViews_TakeGlobals()
{
    if (OutputViewsExist())
        Visible = m_host.GetPreferences().Visible;
}

void clsDocument::OutputViews_Load(Placement How)
{
    if (!OutputViewsExist())
        return;
    Preferences& preferences = m_host.GetPreferences();
    // Views that nobody has arranged find their room themselves.
    for (const ViewType kind : LoadOrder)
        if (How == Placement::Cascaded && preferences.IsArranged(kind)) {
            preferences.Places.At(kind).Left += preferences.CascadeX;
            preferences.Places.At(kind).Top += preferences.CascadeY;
        }
    OutputViews_TakePlaces();
}

void clsDocument::PlaceView(DocumentWindow& View, const WindowPlace& At)
{
    constexpr int leastWidth = 60, leastHeight = 40; // of a window that can still be used
    if (At.Width >= leastWidth && At.Height >= leastHeight)
        View.SetPlace(At);
}

void clsDocument::OutputViews_LoadData()
{
    if (!OutputViewsExist())
        return;
    UpdateCaptions();
    m_zernikesView->SetText(ZernikesText(*this), ScreenText, ZernikesTabStops);
    m_shownAberrations = AberrationsText(*this);
    m_aberrationsView->SetText(m_shownAberrations, ScreenText, AberrationsTabStops);
    LoadDataIntoGridResults();
    LoadDataIntoLineProfile();
}

void clsDocument::LoadDataIntoGridResults()
{
    if (OutputViewsExist())
        m_gridResultsView->SetText(GridResultsText(Grid), ScreenText, GridResultsTabStops(Grid));
}

void clsDocument::LoadDataIntoLineProfile()
{
    m_lineProfileView->SetProfile(Profile());
}

ProfileData clsDocument::Profile() const
{
    return {.X = m_maps.ProfileX,
        .Y = m_maps.ProfileY,
        .Angle = LineProfileAngle,
        .Unit = UnitName(m_maps.Unit),
        .MinYSpan = LeastProfileSpan(),
        .AutoScale = AutoScale,
        .ZMinimum = ZMinimum,
        .ZMaximum = ZMaximum};
}

// In display units, where they are not waves as one round digit of them.
double clsDocument::LeastProfileSpan() const
{
    const double waves = LimitDisplayScale ? 0.5 : 0.05;
    if (m_maps.Unit == DisplayUnit::Waves)
        return waves;
    const double span = waves * m_maps.DisplayScale;
    return LeadingNumber(FormatSignificant(span, 1, NumberStyle::Automatic));
}

void clsDocument::RefreshLineViewData(int Angle)
{
    if (m_maps.ProfileX.empty() || !OutputViewsExist() || (!m_masksResults && !EnsureMask()))
        return;
    LineProfileAngle = Angle;
    FillProfile(m_maps);
    LoadDataIntoLineProfile();
    Modified = true;
}

} // namespace morvane
