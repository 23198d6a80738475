// Saving: the document's text and its picture beside it, the questions before, and the exports.
#include <algorithm>

#include "shell/modFileLib.h"
#include "shell/modMain.h"

namespace morvane {
namespace {

constexpr const char* ProgramName = "Morvane";
constexpr int BitmapFilter = 1, DocumentFilter = 2; // in the save dialog

std::string WithExtension(const std::string& Name, const char* Extension)
{
    return FileTitle(Name, true) + Extension;
}

// The name that a picture of this name has as a bitmap.
std::string AsBitmapName(const std::string& Name)
{
    const std::string extension = FileExtension(Name);
    if (extension == "bmp")
        return Name;
    return IsPictureExtension(extension) ? WithExtension(Name, ".bmp") : Name + ".bmp";
}

// Whether a picture file alone would lose something of it.
bool NeedsDocumentFile(const clsDocument& Of, const Preferences& Defaults)
{
    const UserData given = Defaults.SetAsDefault ? Defaults.DefaultUserData : UserData{};
    return Of.OutputViewsExist() || Of.Fringes.NumFringes() > 0
        || Of.Aperture.GetShapeType() != ShapeKind::None
        || Of.Obstruction.GetShapeType() != ShapeKind::None || Of.BlankImage
        || Of.HasReferenceZernikes || Of.Grid.IsDefined(GridIsCalibrated) || Of.Optic != given;
}

} // namespace

// Repeats Write until it succeeds or the user does not ask for that.
bool Session::WriteWithQuestion(const std::string& Path, const std::function<FileResult()>& Write)
{
    for (;;) {
        const FileResult written = Write();
        if (written)
            return true;
        const std::string text = "Could not save " + Path + "\r\n" + written.Error;
        if (ShowMessage(text, MessageAbortRetryIgnore, "Error") != MessageAnswer::Retry)
            return false;
    }
}

bool Session::WriteDocument(const std::string& Path, clsDocument& Of)
{
    const std::string extension = FileExtension(Path);
    if (extension == "mvd")
        return WriteTextAndPicture(Path, Of);
    if (extension != "bmp") {
        ShowMessage("Could not save " + Path + "\r\nUnknown file type.", MessageOk, "Save File As");
        return false;
    }
    if (Of.BlankImage) {
        ShowMessage("Cannot save a blank image", MessageWarningSign, "Warning");
        return false;
    }
    Of.ImageDirty = true;
    if (!WritePicture(Path, Of))
        return false;
    if (Of.FileName.empty())
        Of.Directory = FileDirectory(Path);
    if (!NeedsDocumentFile(Of, Prefs))
        Of.Modified = false;
    Of.UpdateCaptions();
    m_frame.UpdateMainFrame();
    return true;
}

// The document has its new name only when both of its files are written.
bool Session::WriteTextAndPicture(const std::string& Path, clsDocument& Of)
{
    const std::string picture = SidePicture(Path);
    if (!MayTakePicture(picture, FileExistsAt(Path), Of)
        || !WriteWithQuestion(Path, [&] { return Of.SaveDataToFile(Path); }))
        return false;
    if (!WritePicture(picture, Of)) {
        Of.Modified = true;
        m_frame.UpdateMainFrame();
        return false;
    }
    Of.FileName = FileTitle(Path, false);
    Of.Directory = FileDirectory(Path);
    Recent.Add(Path);
    Of.UpdateCaptions();
    m_frame.UpdateMainFrame();
    return true;
}

// A picture that is not this document's must not go without a word: one that stands there alone,
// or that another open document shows. One beside a document goes with the document.
bool Session::MayTakePicture(const std::string& Path, bool ReplacesDocument, const clsDocument& Of)
{
    if (Of.BlankImage || Of.PicturePath == Path || !FileExistsAt(Path))
        return true;
    const bool isShown = std::ranges::any_of(m_documents, [&](const auto& other) {
        return other && other.get() != &Of && other->PicturePath == Path;
    });
    return (ReplacesDocument && !isShown) || MayReplace(Path, "Save File As");
}

bool Session::WritePicture(const std::string& Path, clsDocument& Of)
{
    if (Of.BlankImage || (!Of.ImageDirty && Of.PicturePath == Path && FileExistsAt(Path)))
        return true;
    if (!WriteWithQuestion(Path, [&] { return Of.SaveDataBufferToBMP(Path); }))
        return false;
    Of.Title = FileTitle(Path, false);
    Of.HasSourceFile = true;
    // Whoever else showed this file has the only copy of its picture now.
    for (const auto& other : m_documents)
        if (other && other.get() != &Of && other->PicturePath == Path)
            other->ImageDirty = true;
    return true;
}

bool Session::SaveDocument(clsDocument& Of)
{
    if (!Of.FileName.empty())
        return WriteDocument(Of.Directory + "/" + Of.FileName, Of);
    if (NeedsDocumentFile(Of, Prefs))
        return SaveAsDialog(Of, SaveMode::Document);
    if (Of.HasSourceFile && FileExtension(Of.Title) == "bmp")
        return WriteDocument(Of.Directory + "/" + Of.Title, Of);
    return SaveAsDialog(Of, SaveMode::ImageOnly);
}

bool Session::SaveAsDialog(clsDocument& Of, SaveMode Mode)
{
    FileRequest request{.Title = "Save As",
        .Filter = "Bitmap Files (*.bmp)|*.bmp|Morvane Documents (*.mvd)|*.mvd",
        .FilterIndex = DocumentFilter,
        .Directory = Of.Directory.empty() ? Prefs.SaveFileDir : Of.Directory,
        .FileName = Of.FileName};
    if (Mode == SaveMode::ImageOnly || (Of.FileName.empty() && !NeedsDocumentFile(Of, Prefs))) {
        request.FileName = AsBitmapName(Of.Title);
        request.FilterIndex = BitmapFilter;
    } else if (Of.FileName.empty() && !Of.Title.empty()) {
        request.FileName = WithExtension(Of.Title, ".mvd");
    }
    const std::optional<FileChoice> choice = m_frame.AskSave(request);
    if (!choice || choice->Paths.empty())
        return false;
    Prefs.SaveFileFilter = choice->FilterIndex;
    std::string path = choice->Paths.front();
    Prefs.SaveFileDir = FileDirectory(path);
    if (FileExtension(path).empty())
        path += choice->FilterIndex == BitmapFilter ? ".bmp" : ".mvd";
    return MayReplace(path, "Save File As") && WriteDocument(path, Of);
}

bool Session::MayReplace(const std::string& Path, const std::string& Title)
{
    if (!FileExistsAt(Path))
        return true;
    return ShowMessage(Path + " already exists.\r\nDo you want to replace it?",
               MessageYesNo + MessageWarningSign, Title)
        == MessageAnswer::Yes;
}

bool Session::SaveDocumentSettings(clsDocument& Of)
{
    if (!Of.HasUnsavedChanges())
        return true;
    std::string name = Of.Directory + "/" + Of.FileName;
    if (Of.FileName.empty())
        name = NeedsDocumentFile(Of, Prefs) ? WithExtension(Of.Title, ".mvd") : Of.Title;
    switch (ShowMessage(
        "Save changes to " + name + " ?", MessageYesNoCancel + MessageQuestionSign, ProgramName)) {
    case MessageAnswer::Yes:
        // A document saved as a mere picture has still something to lose.
        return SaveDocument(Of) && !Of.HasUnsavedChanges();
    case MessageAnswer::No:
        return true;
    default:
        return false;
    }
}

std::optional<std::string> Session::AskExport(
    const clsDocument& Of, const char* Title, const char* Filter, const char* Extension)
{
    const std::optional<FileChoice> choice = m_frame.AskSave({.Title = Title,
        .Filter = std::string("All files (*.*)|*.*|") + Filter,
        .FilterIndex = 2,
        .Directory = Of.Directory.empty() ? Prefs.SaveFileDir : Of.Directory,
        .FileName = WithExtension(Of.Title, Extension)});
    if (!choice || choice->Paths.empty())
        return std::nullopt;
    std::string path = choice->Paths.front();
    if (FileExtension(path).empty())
        path += Extension;
    Prefs.SaveFileDir = FileDirectory(path);
    return MayReplace(path, Title) ? std::optional(path) : std::nullopt;
}

void Session::ExportMapDialog(clsDocument& Of)
{
    if (const auto path = AskExport(Of, "Export Map", "Map files (*.csv)|*.csv", ".csv"))
        WriteWithQuestion(*path, [&] { return WriteMap(Of, *path); });
}

void Session::ExportZernikesDialog(clsDocument& Of)
{
    if (const auto path = AskExport(Of, "Export Zernikes", "Zernikes files (*.zrn)|*.zrn", ".zrn"))
        WriteWithQuestion(*path, [&] { return WriteZernikes(Of, *path); });
}

} // namespace morvane
