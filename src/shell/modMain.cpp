#include "shell/modMain.h"

#include <new>

#include "shell/AnalyzeSettings.h"
#include "shell/MainWindowSettings.h"
#include "shell/ToolBoxSettings.h"

namespace morvane {

Session::Session(MessageAnswerer& Answerer, MainFrame& Frame)
    : m_answerer(&Answerer), m_frame(Frame)
{
}

Session::~Session()
{
    CloseAllDocuments();
}

void Session::ReadSettings(
    SettingsStore& From, const ScreenMeasures& Screen, const std::string& Today)
{
    m_settings = &From;
    Prefs = ReadPreferences(From, Screen, Today);
    Analyze.SharedReference = ReadSharedReference(From);
    Recent = LoadRecentFiles(From);
    ReadAnalyzeBox(From, Analyze);
    ReadToolBox(From, Tools);
}

void Session::WriteSettings(SettingsStore& Into) const
{
    WritePreferences(Into, Prefs, Analyze.SharedReference);
    SaveRecentFiles(Into, Recent);
    WriteAnalyzeBox(Into, Analyze);
    WriteToolBox(Into, Tools);
}

void Session::TellUnsavedSettings(const FileResult& Failure)
{
    ShowMessage("Could not save the settings in " + m_settings->Path() + "\r\n" + Failure.Error,
        MessageWarningSign, "Warning");
}

std::shared_ptr<clsDocument> Session::NewDocument()
{
    try {
        auto document = std::make_shared<clsDocument>(*this);
        if (!RegisterDocument(document))
            return nullptr;
        ++m_numOpenDocuments;
        return document;
    } catch (const std::bad_alloc&) {
        ShowMessage("Out of memory", MessageOk, "Error");
        return nullptr;
    }
}

bool Session::RegisterDocument(const std::shared_ptr<clsDocument>& Registered)
{
    for (int slot = 1; slot <= MaxDocuments; ++slot) {
        if (m_documents[slot])
            continue;
        m_documents[slot] = Registered;
        Registered->DocNumber = slot;
        return true;
    }
    ShowMessage("Too many open documents", MessageOk, "Error");
    return false;
}

void Session::CloseDocument(clsDocument& Closed)
{
    const int slot = Closed.DocNumber;
    if (Document(slot) != &Closed)
        return;
    const bool isShown = m_activeDocument == slot || m_numOpenDocuments == 1;
    if (isShown && Prefs.HogWindows)
        Closed.OutputViews_GiveGlobals();
    // Its windows go last: they may bring another document to the front.
    const std::shared_ptr<clsDocument> released = std::move(m_documents[slot]);
    m_documents[slot].reset();
    --m_numOpenDocuments;
    if (m_activeDocument == slot) {
        m_activeDocument = 0;
        Tools.SetControls({});
    }
    released->CloseWindows();
    if (m_numOpenDocuments == 0 && Prefs.HogWindows && m_settings) {
        SaveViewSettings(*m_settings, Prefs);
        m_settings->Save(); // what fails is tried, and told, again at the end
    }
    m_frame.UpdateMainFrame();
}

void Session::CloseAllDocuments()
{
    for (int slot = 1; slot <= MaxDocuments; ++slot)
        if (clsDocument* document = Document(slot))
            CloseDocument(*document);
}

bool Session::CloseAsking(clsDocument& Closed)
{
    // Held, for a script may close it while the question is on the screen.
    const std::shared_ptr<clsDocument> held = SharedDocument(Closed.DocNumber);
    if (!SaveDocumentSettings(Closed))
        return false;
    CloseDocument(Closed);
    return true;
}

bool Session::CloseAllAsking()
{
    // While a question is asked, a script may open another one in a slot before.
    while (m_numOpenDocuments > 0)
        for (int slot = 1; slot <= MaxDocuments; ++slot)
            if (clsDocument* document = Document(slot); document && !CloseAsking(*document))
                return false;
    return true;
}

clsDocument* Session::Document(int Slot) const
{
    return Slot >= 1 && Slot <= MaxDocuments ? m_documents[Slot].get() : nullptr;
}

std::shared_ptr<clsDocument> Session::SharedDocument(int Slot) const
{
    return Document(Slot) ? m_documents[Slot] : nullptr;
}

void Session::ActivateDocument(clsDocument& Front, ViewType View)
{
    if (Document(Front.DocNumber) != &Front)
        return; // closed: its windows come to the front one after the other as they go
    clsDocument* const before = Active();
    const bool changed = before != &Front;
    if (changed && Prefs.HogWindows && View == ViewType::Interferogram) {
        if (before) {
            before->OutputViews_HideAll();
            before->OutputViews_GiveGlobals();
        }
        Front.OutputViews_TakeGlobals();
        Front.OutputViews_ShowNoActivate();
    }
    // The views of the next document cascade from here.
    if (!Prefs.HogWindows)
        Front.OutputViews_NotePlaces();
    m_activeDocument = Front.DocNumber;
    Front.ActiveView = View;
    if (changed && Front.ImageViewExists()) // the current order may have changed meanwhile
        Front.ImageView()->Repaint();
    if (View == ViewType::Interferogram && Front.ImageViewExists())
        Tools.EditMode = Front.ImageView()->Tools().EditMode();
    Tools.SetControls(ActiveTools() ? ActiveTools()->Controls() : ToolControls{});
    if (changed && Front.OutputViewsExist())
        Analyze.SetControls(Front);
    m_frame.UpdateMainFrame();
    if (View == ViewType::Interferogram && ActiveTools())
        ActiveTools()->ChangeStatusBar(0);
}

void Session::BringToFront(clsDocument& Front)
{
    Front.ImageView()->Show(Activation::TakeFocus);
    ActivateDocument(Front, ViewType::Interferogram);
}

void Session::TraceFringes(FringeDirection Direction)
{
    if (clsDocument* active = Active())
        active->AutoTraceFringes(Direction, Prefs.AutoTraceFringeDensity);
    m_frame.UpdateMainFrame();
}

void Session::AdjustAspectRatio(double Ratio)
{
    clsDocument* const active = Active();
    if (!active)
        return;
    Prefs.ManualAspectRatio = Ratio;
    const RasterSize before = active->GetImageSize();
    if (!active->StretchImage(Ratio))
        ShowMessage("The picture would become too large", MessageWarningSign, "Warning");
    else if (active->GetImageSize() != before && active->ImageViewExists())
        active->ImageView()->ResizeWindow();
    m_frame.UpdateMainFrame();
}

void Session::AnalyzeFringes()
{
    if (clsDocument* active = Active())
        ApplyAnalysis(*active);
}

bool Session::ApplyAnalysis(clsDocument& Target)
{
    if (const std::optional<Message> refusal = Analyze.StoreOptions(Target)) {
        m_frame.UpdateMainFrame();
        ShowMessage(refusal->Text, refusal->Flags, refusal->Title);
        return false;
    }
    if (!Target.OutputViewsExist() && !Target.CreateOutputViews())
        return false;
    const HourglassScope hourglass(*this);
    if (!Target.UpdateAnalysis(true, true)) {
        m_frame.UpdateMainFrame();
        return false;
    }
    Target.OutputViews_UpdateVisibility(Activation::LeaveFocus);
    Target.OutputViews_Refresh();
    m_frame.UpdateMainFrame();
    return true;
}

void Session::ToggleView(ViewType View)
{
    clsDocument* const active = Active();
    if (!active || !active->OutputViewsExist() || View == ViewType::Interferogram)
        return;
    if (!active->View(View)) {
        m_frame.UpdateMainFrame(); // its command is unchecked again
        m_frame.ShowHint("This view is not available yet.");
        return;
    }
    bool& visible = active->Visible.At(View);
    visible = !visible;
    active->OutputViews_UpdateVisibility(Activation::LeaveFocus);
    DocumentWindow* const front = visible ? active->View(View) : active->ImageView();
    if (front)
        front->Show(Activation::TakeFocus);
    m_frame.UpdateMainFrame();
}

void Session::HideView(clsDocument& Of, ViewType View)
{
    Of.Visible.At(View) = false;
    if (DocumentWindow* const window = Of.View(View))
        window->Hide();
    if (&Of == Active() && Of.ActiveView == View && Of.ImageViewExists())
        Of.ImageView()->Show(Activation::TakeFocus);
    m_frame.UpdateMainFrame();
}

MessageAnswer Session::ShowMessage(const std::string& Text, int Flags, const std::string& Title)
{
    return m_answerer->Answer({.Text = Text, .Flags = Flags, .Title = Title});
}

void Session::ShowHourglass(bool Shown)
{
    m_hourglasses += Shown ? 1 : -1;
    m_frame.SetHourglass(m_hourglasses > 0);
}

UnattendedScope::UnattendedScope(Session& Of) : m_session(Of), m_before(Of.m_answerer)
{
    m_session.m_answerer = this;
}

UnattendedScope::~UnattendedScope()
{
    m_session.m_answerer = m_before;
}

// Refuses for a user who is not there: nothing is replaced, erased or retried.
MessageAnswer UnattendedScope::Answer(const Message& Asked)
{
    m_lastText = Asked.Text;
    switch (Asked.Flags & 7) {
    case MessageOkCancel:
    case MessageYesNoCancel:
        return MessageAnswer::Cancel;
    case MessageAbortRetryIgnore:
        return MessageAnswer::Abort;
    case MessageYesNo:
        return MessageAnswer::No;
    default:
        return MessageAnswer::Ok;
    }
}

} // namespace morvane
