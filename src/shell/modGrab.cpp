// The session's frame grabber: loading it, and the pictures that come from it.
#include "shell/modMain.h"

namespace morvane {

void Session::StartGrabber(const std::string& Folder)
{
    Grabber.Search(Folder);
    LoadGrabber(Grabber.Find(Prefs.GrabberName));
}

void Session::LoadGrabber(int Index)
{
    std::string error;
    {
        const HourglassScope hourglass(*this);
        error = Grabber.Load(Index);
    }
    Prefs.GrabberName = Grabber.Name();
    if (!error.empty())
        ShowMessage(error, MessageOk, "Error Loading Frame Grabber");
    m_frame.UpdateMainFrame();
}

void Session::GrabImage()
{
    if (!Grabber.IsReady())
        return;
    // Held, for a message of the grabber may be on the screen when somebody closes it.
    const std::shared_ptr<clsDocument> active = SharedDocument(m_activeDocument);
    if (Prefs.GrabIntoNewWindow || !active) {
        GrabIntoNewDocument();
    } else if (active->GrabIntoDataBuffer(Grabber)) {
        ShowNewPicture(*active);
    } else if (!active->HasUnsavedChanges() || !NeedsDocumentFile(*active)) {
        CloseDocument(*active); // it has nothing but a picture, or all of it in a file
    }
}

void Session::ShowNewPicture(clsDocument& Of)
{
    Of.ImageView_Refresh();
    if (Of.ImageViewExists())
        Of.ImageView()->ResizeWindow();
    m_frame.UpdateMainFrame();
}

std::shared_ptr<clsDocument> Session::GrabIntoNewDocument()
{
    std::shared_ptr<clsDocument> document = NewDocument();
    if (!document)
        return nullptr;
    if (!document->GrabIntoDataBuffer(Grabber) || !document->CreateImageView()) {
        CloseDocument(*document);
        return nullptr;
    }
    document->Title = "Image" + std::to_string(++m_grabCount);
    document->ImageView_Init();
    document->ImageView()->ResizeWindow();
    BringToFront(*document);
    return document;
}

void Session::GrabberProperties()
{
    if (Grabber.ShowProperties())
        LoadGrabber(Grabber.Index());
}

} // namespace morvane
