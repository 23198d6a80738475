// A document's windows: made when first needed, filled when an analysis has finished.
#include "document/DocumentTexts.h"
#include "document/clsDocument.h"

namespace morvane {

DocumentWindow* clsDocument::View(ViewType Kind) const
{
    switch (Kind) {
    case ViewType::Interferogram:
        return m_imageView.get();
    case ViewType::Aberrations:
        return m_aberrationsView.get();
    case ViewType::Zernikes:
        return m_zernikesView.get();
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
    Visible = m_host.GetPreferences().Visible;
    if (!MakeOutputViews())
        return false;
    PlaceOutputViews();
    return true;
}

bool clsDocument::MakeOutputViews()
{
    DocumentWindowFactory& windows = m_host.Windows();
    m_aberrationsView = windows.CreateTextWindow(*this, ViewType::Aberrations);
    m_zernikesView = windows.CreateTextWindow(*this, ViewType::Zernikes);
    OutputViews_LoadData();
    return OutputViewsExist();
}

void clsDocument::CloseWindows()
{
    m_zernikesView.reset();
    m_aberrationsView.reset();
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
    if (m_aberrationsView)
        m_aberrationsView->SetCaption("Aberrations - " + ShownName());
    if (m_zernikesView)
        m_zernikesView->SetCaption("Zernikes - " + ShownName());
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
    const auto update = [How](DocumentWindow& window, bool visible) {
        if (visible)
            window.Show(How);
        else
            window.Hide();
    };
    update(*m_zernikesView, Visible.Zernikes);
    update(*m_aberrationsView, Visible.Aberrations);
}

void clsDocument::OutputViews_HideAll()
{
    if (!OutputViewsExist())
        return;
    if (Visible.Zernikes)
        m_zernikesView->Hide();
    if (Visible.Aberrations)
        m_aberrationsView->Hide();
}

void clsDocument::OutputViews_ShowNoActivate()
{
    if (!OutputViewsExist())
        return;
    if (m_host.GetPreferences().HogWindows)
        PlaceOutputViews();
    if (Visible.Zernikes)
        m_zernikesView->Show(Activation::LeaveFocus);
    if (Visible.Aberrations)
        m_aberrationsView->Show(Activation::LeaveFocus);
}

void clsDocument::OutputViews_Refresh()
{
    if (!OutputViewsExist())
        return;
    if (Visible.Zernikes)
        m_zernikesView->Repaint();
    if (Visible.Aberrations)
        m_aberrationsView->Repaint();
}

void clsDocument::OutputViews_Load()
{
    if (!OutputViewsExist())
        return;
    PlaceOutputViews();
    OutputViews_LoadData();
}

void clsDocument::PlaceOutputViews()
{
    const auto place = [](DocumentWindow& window, const WindowPlace& at) {
        if (at.Width > 0 && at.Height > 0)
            window.SetPlace(at);
    };
    const PerView<WindowPlace>& places = m_host.GetPreferences().Places;
    place(*m_zernikesView, places.Zernikes);
    place(*m_aberrationsView, places.Aberrations);
}

void clsDocument::OutputViews_LoadData()
{
    if (!OutputViewsExist())
        return;
    UpdateCaptions();
    LoadDataIntoZernikes();
    LoadDataIntoAberrations();
}

void clsDocument::LoadDataIntoAberrations()
{
    m_aberrationsView->SetText(AberrationsText(*this), ScreenText, AberrationsTabStops);
}

void clsDocument::LoadDataIntoZernikes()
{
    m_zernikesView->SetText(ZernikesText(*this), ScreenText, ZernikesTabStops);
}

} // namespace morvane
