// Opening: a path's extension decides between the picture and the document.
#include "shell/SavedShapes.h"
#include "shell/modFileLib.h"
#include "shell/modMain.h"

namespace morvane {

void Session::OpenDialog()
{
    const std::optional<FileChoice> choice = m_frame.AskOpen({.Title = {},
        .Filter = "All Files (*.*)|*.*|Graphic Files (*.jpg *.bmp *.rle)|*.jpg;*.bmp;*.rle|"
                  "Morvane Documents (*.mvd)|*.mvd",
        .FilterIndex = Prefs.OpenFileFilter,
        .Directory = Prefs.OpenFileDir,
        .FileName = {}});
    if (!choice || choice->Paths.empty())
        return;
    Prefs.OpenFileFilter = choice->FilterIndex;
    Prefs.OpenFileDir = FileDirectory(choice->Paths.front());
    OpenFiles(choice->Paths, false);
}

void Session::OpenFiles(const std::vector<std::string>& Paths, bool Quiet)
{
    for (const std::string& given : Paths) {
        const std::string path = AbsolutePath(given);
        const std::string extension = FileExtension(path);
        const bool isDocument = extension == "mvd";
        if (!FileExistsAt(path) || (!isDocument && !IsPictureExtension(extension))) {
            const char* problem =
                FileExistsAt(path) ? "Could not open file " : "Could not find file ";
            if (!Quiet)
                ShowMessage(problem + (FileExistsAt(path) ? path : given), MessageOk, "Error");
            Recent.Remove(path);
            continue;
        }
        if (!(isDocument ? OpenDocument(path, Quiet) : OpenPicture(path, Quiet))) {
            // A file is not to blame for a full table of documents.
            if (m_numOpenDocuments < MaxDocuments)
                Recent.Remove(path);
            break;
        }
        Recent.Add(path);
    }
    m_frame.UpdateMainFrame();
}

std::shared_ptr<clsDocument> Session::OpenPicture(const std::string& Path, bool Quiet)
{
    std::shared_ptr<clsDocument> document = NewDocument();
    if (!document)
        return nullptr;
    if (!document->LoadFileIntoDataBuffer(Path, Quiet) || !document->CreateImageView()) {
        CloseDocument(*document);
        return nullptr;
    }
    document->Directory = FileDirectory(Path);
    document->HasSourceFile = true;
    LoadSavedShapes(*document);
    document->ImageView_Init();
    document->ImageView()->ResizeWindow();
    BringToFront(*document);
    return document;
}

void Session::LoadSavedShapes(clsDocument& Into)
{
    if (Prefs.AutoLoadAperture)
        LoadShape(ShapeRole::Aperture, Into);
    if (Prefs.AutoLoadObstruction)
        LoadShape(ShapeRole::Obstruction, Into);
}

std::shared_ptr<clsDocument> Session::OpenDocument(const std::string& Path, bool Quiet)
{
    // Told before there is a document for it, which would stand half made behind the message.
    if (!HasOpened(Path, clsDocument::IsDocumentFile(Path), Quiet))
        return nullptr;
    std::shared_ptr<clsDocument> document = NewDocument();
    if (!document)
        return nullptr;
    if (!document->CreateImageView() || !ReadDocument(*document, Path, Quiet)) {
        CloseDocument(*document);
        return nullptr;
    }
    return document;
}

bool Session::ReplacePicture(clsDocument& Of, const std::string& Path, bool Quiet)
{
    if (!Of.LoadFileIntoDataBuffer(Path, Quiet))
        return false;
    ClearDocument(Of);
    Of.FileName.clear();
    Of.Directory = FileDirectory(Path);
    Of.HasSourceFile = true;
    LoadSavedShapes(Of);
    Of.Modified = false;
    Of.ImageView_Refresh();
    if (Of.ImageViewExists())
        Of.ImageView()->ResizeWindow();
    m_frame.UpdateMainFrame();
    return true;
}

bool Session::ReplaceDocument(clsDocument& Of, const std::string& Path, bool Quiet)
{
    if (!HasOpened(Path, clsDocument::IsDocumentFile(Path), Quiet))
        return false;
    ClearDocument(Of);
    // Should the reading fail, nothing may go over the old file.
    Of.FileName.clear();
    Of.HasSourceFile = false;
    Of.ClearImage();
    return ReadDocument(Of, Path, Quiet);
}

void Session::ClearDocument(clsDocument& Of)
{
    if (Prefs.HogWindows)
        Of.OutputViews_GiveGlobals();
    Of.ClearGeometry();
    if (Of.ImageViewExists())
        Of.ImageView()->Tools().Reset();
}

bool Session::HasOpened(const std::string& Path, const FileResult& Outcome, bool Quiet)
{
    if (!Outcome && !Quiet)
        ShowMessage("Could not open file " + Path + "\r\n" + Outcome.Error, MessageOk, "Error");
    return static_cast<bool>(Outcome);
}

bool Session::ReadDocument(clsDocument& Into, const std::string& Path, bool Quiet)
{
    Into.BlankImage = true;
    if (!HasOpened(Path, Into.LoadDataFromFile(Path), Quiet))
        return false;
    Into.FileName = FileTitle(Path, false);
    Into.Directory = FileDirectory(Path);
    Into.HasSourceFile = true;
    const std::string problem = Into.BlankImage ? "" : ReadSidePicture(Into, Path);
    if (Into.BlankImage || !problem.empty()) {
        Into.Title = FileTitle(SidePicture(Path), false);
        Into.HasSourceFile = false;
        Into.LoadBlankImage(NoSize, NoSize);
        Into.LacksPicture = !problem.empty();
    }
    Into.ImageView_Refresh();
    if (Into.ImageViewExists())
        Into.ImageView()->ResizeWindow();
    // The views that the file says, not those of the document before.
    const PerView<bool> visible = Into.Visible;
    ActivateDocument(Into, ViewType::Interferogram);
    Into.Visible = visible;
    if (Into.OutputViewsExist()) {
        Into.OutputViews_UpdateVisibility(Activation::LeaveFocus);
        Into.UpdateAnalysis(true, false);
        Into.OutputViews_Refresh();
        Analyze.SetControls(Into);
    }
    Into.ImageView()->Show(Activation::TakeFocus);
    Into.Modified = false;
    m_frame.UpdateMainFrame();
    if (!problem.empty())
        m_frame.ShowHint(Into.Title + ": " + problem);
    return true;
}

std::string Session::ReadSidePicture(clsDocument& Into, const std::string& Path)
{
    UnattendedScope unattended(*this);
    if (Into.LoadFileIntoDataBuffer(SidePicture(Path), false))
        return {};
    std::string line = unattended.LastText();
    for (std::size_t end; (end = line.find("\r\n")) != std::string::npos;)
        line.replace(end, 2, " ");
    return line;
}

} // namespace morvane
