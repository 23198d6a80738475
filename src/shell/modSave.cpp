// Saving: the document's text and its picture beside it, the questions before, and the exports.
#include <algorithm>
#include <tuple>

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

// Whether the picture is not in that file as it is.
bool NeedsPicture(const std::string& Path, const clsDocument& Of)
{
    return !Of.BlankImage && (Of.ImageDirty || Of.PicturePath != Path || !FileExistsAt(Path));
}

// Of a document that has one; a path that no file has otherwise.
std::string FileOf(const clsDocument& Document)
{
    return Document.FileName.empty() ? "" : Document.Directory + "/" + Document.FileName;
}

// Whether somebody meant an extension: "mirror 1.2" has none.
bool HasExtension(const std::string& Path)
{
    const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    return std::ranges::any_of(FileExtension(Path), isLetter);
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

bool Session::WriteDocument(const std::string& Path, clsDocument& Of, Originals Opened)
{
    const std::string extension = FileExtension(Path);
    if (extension == "bmp")
        return WriteBitmap(Path, Of);
    if (extension == "mvd")
        return MayTakePicture(Path, Of, Opened) && WriteTextAndPicture(Path, Of);
    ShowMessage("Could not save " + Path + "\r\nUnknown file type.", MessageOk, "Save File As");
    return false;
}

// A document that has a file of its own writes a copy, and all that it has to save stays so.
bool Session::WriteBitmap(const std::string& Path, clsDocument& Of)
{
    if (Of.BlankImage) {
        ShowMessage("Cannot save a blank image", MessageWarningSign, "Warning");
        return false;
    }
    const auto kept = std::tuple(Of.PicturePath, Of.ImageDirty, Of.MayReplacePicture);
    const bool isCopy = !Of.FileName.empty() && Of.PicturePath != Path;
    if (!WriteWithQuestion(Path, [&] { return Of.SaveDataBufferToBMP(Path); }))
        return false;
    OthersLosePicture(Path, Of);
    if (isCopy) {
        std::tie(Of.PicturePath, Of.ImageDirty, Of.MayReplacePicture) = kept;
        return true;
    }
    Of.Title = FileTitle(Path, false);
    Of.HasSourceFile = true;
    if (Of.FileName.empty()) {
        Of.Directory = FileDirectory(Path);
        Of.Modified = Of.Modified && NeedsDocumentFile(Of);
    }
    Of.UpdateCaptions();
    m_frame.UpdateMainFrame();
    return true;
}

// Neither file takes its name before both are on the disk: a full one leaves the old pair.
bool Session::WriteTextAndPicture(const std::string& Path, clsDocument& Of)
{
    const std::string picture = SidePicture(Path);
    const bool writesPicture = NeedsPicture(picture, Of);
    // What stands under another name is not the picture that could not be read.
    const bool lacksPicture = Of.LacksPicture;
    Of.LacksPicture = lacksPicture && Path == FileOf(Of);
    std::optional<StagedFile> text, bitmap;
    if (!WriteWithQuestion(Path, [&] { return Of.StageData(Path, text); })
        || (writesPicture
            && !WriteWithQuestion(picture, [&] { return Of.StageBMP(picture, bitmap); }))
        || !WriteWithQuestion(Path, [&] { return text->Commit(); })) {
        Of.LacksPicture = lacksPicture;
        return false;
    }
    OthersLoseFile(Path, Of);
    if (writesPicture) {
        if (!WriteWithQuestion(picture, [&] { return bitmap->Commit(); })) {
            Of.Modified = true;
            m_frame.UpdateMainFrame();
            return false;
        }
        Of.NotePicture(picture);
        Of.Title = FileTitle(picture, false);
        Of.HasSourceFile = true;
        OthersLosePicture(picture, Of);
    }
    Of.Modified = Of.FileIsOfOther = false;
    Of.FileName = FileTitle(Path, false);
    Of.Directory = FileDirectory(Path);
    Recent.Add(Path);
    Of.UpdateCaptions();
    m_frame.UpdateMainFrame();
    return true;
}

// An original, or a picture that stands there alone, must not go without a word. The picture of
// another document goes with it: the user has been asked about that one.
bool Session::MayTakePicture(const std::string& Path, const clsDocument& Of, Originals Opened)
{
    const std::string picture = SidePicture(Path);
    if (!NeedsPicture(picture, Of) || !FileExistsAt(picture))
        return true;
    const bool isOwn = Of.PicturePath == picture || Path == FileOf(Of);
    const bool mayGo =
        isOwn ? Of.MayReplacePicture || Opened == Originals::Replace : FileExistsAt(Path);
    return mayGo || MayReplace(picture, "Save File As");
}

// Whoever else shows this file has the only copy of its picture now.
void Session::OthersLosePicture(const std::string& Path, const clsDocument& To)
{
    for (const auto& other : m_documents)
        if (other && other.get() != &To && other->PicturePath == Path)
            other->ImageDirty = true;
}

// And of what else the document held.
void Session::OthersLoseFile(const std::string& Path, const clsDocument& To)
{
    for (const auto& other : m_documents)
        if (other && other.get() != &To && FileOf(*other) == Path)
            other->Modified = other->FileIsOfOther = true;
}

// Whether a picture file alone would lose something of it.
bool Session::NeedsDocumentFile(const clsDocument& Of) const
{
    const UserData given = Prefs.SetAsDefault ? Prefs.DefaultUserData : UserData{};
    return Of.OutputViewsExist() || Of.Fringes.NumFringes() > 0
        || Of.Aperture.GetShapeType() != ShapeKind::None
        || Of.Obstruction.GetShapeType() != ShapeKind::None || Of.BlankImage
        || Of.HasReferenceZernikes || Of.Grid.IsDefined(GridIsCalibrated) || Of.Optic != given;
}

bool Session::SaveDocument(clsDocument& Of)
{
    if (!Of.FileName.empty())
        return (!Of.FileIsOfOther || MayReplace(FileOf(Of), "Save File As"))
            && WriteDocument(FileOf(Of), Of);
    if (NeedsDocumentFile(Of))
        return SaveAsDialog(Of, SaveMode::Document);
    if (Of.HasSourceFile && FileExtension(Of.Title) == "bmp") {
        const std::string path = Of.Directory + "/" + Of.Title;
        if (!Of.ImageDirty && FileExistsAt(path)) {
            Of.Modified = false; // writing it would only turn its colours into grey
            m_frame.UpdateMainFrame();
            return true;
        }
        return (Of.MayReplacePicture || MayReplace(path, "Save File As"))
            && WriteDocument(path, Of);
    }
    return SaveAsDialog(Of, SaveMode::ImageOnly);
}

bool Session::SaveAsDialog(clsDocument& Of, SaveMode Mode)
{
    FileRequest request{.Title = "Save As",
        .Filter = "Bitmap Files (*.bmp)|*.bmp|Morvane Documents (*.mvd)|*.mvd",
        .FilterIndex = DocumentFilter,
        .Directory = Of.Directory.empty() ? Prefs.SaveFileDir : Of.Directory,
        .FileName = Of.FileName};
    if (Mode == SaveMode::ImageOnly || (Of.FileName.empty() && !NeedsDocumentFile(Of))) {
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
    if (!HasExtension(path))
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
        name = NeedsDocumentFile(Of) ? WithExtension(Of.Title, ".mvd") : Of.Title;
    switch (ShowMessage(
        "Save changes to " + name + " ?", MessageYesNoCancel + MessageQuestionSign, ProgramName)) {
    case MessageAnswer::Yes:
        if (SaveDocument(Of) && Of.HasUnsavedChanges())
            ShowMessage("Only the picture has been saved. Fringes, outlines and results are kept "
                        "by a Morvane document (*.mvd).",
                MessageWarningSign, "Warning");
        return !Of.HasUnsavedChanges();
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
    if (!HasExtension(path))
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
