// The session: the table of open documents, the active one, the preferences, and what acts on
// them. Main makes one, a test makes its own; there is no other mutable global state.
#pragma once
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "document/DocumentHost.h"
#include "document/GrabberHost.h"
#include "document/clsDocument.h"
#include "interferogram/MouseTools.h"
#include "shell/AnalyzeBox.h"
#include "shell/FileDialogs.h"
#include "shell/InputPrompt.h"
#include "shell/PreferenceTable.h"
#include "shell/Printing.h"
#include "shell/RecentFiles.h"

namespace morvane {

struct ReportSource;

inline constexpr int MaxDocuments = 100;

// What the session asks of the main window.
class MainFrame : public DocumentWindowFactory, public FileDialogs, public Printers {
public:
    // Documents, the active one or its views have changed: commands, checks and status follow.
    virtual void UpdateMainFrame() = 0;
    virtual void SetHourglass(bool Shown) = 0;
    // What the mouse would do, in the status bar.
    virtual void ShowHint(const std::string& Hint) = 0;
    virtual void ShowPosition(const std::string& Position, const std::string& Intensity) = 0;
    // At the mouse; PopupActive of the tool box is to end with it.
    virtual void ShowFringePopup(const FringePopup& Menu) = 0;
    virtual void PutOnClipboard(const std::string& Text) = 0;
    // A dialog with one box; nothing if the user cancels.
    virtual std::optional<InputAnswer> AskInput(const InputRequest& Request) = 0;
};

class Session final : public DocumentHost {
public:
    Session(MessageAnswerer& Answerer, MainFrame& Frame);
    ~Session() override;

    Preferences Prefs;
    AnalyzeBox Analyze;
    ToolBox Tools;
    RecentFiles Recent;
    GrabberHost Grabber;
    // The preferences and analysis options; From then takes the output views' state whenever the
    // last document closes in the common workspace.
    void ReadSettings(SettingsStore& From, const ScreenMeasures& Screen, const std::string& Today);
    // All but the output views' state.
    void WriteSettings(SettingsStore& Into) const;
    // A warning with the file and the reason.
    void TellUnsavedSettings(const FileResult& Failure);

    // --- Documents, in slots 1 to MaxDocuments
    // In the lowest free slot; nullptr, and the user has been told, if all are taken or there is no
    // memory for it.
    std::shared_ptr<clsDocument> NewDocument();
    // Without a question.
    void CloseDocument(clsDocument& Closed);
    void CloseAllDocuments();
    // After the question whether to save it. False, and it stays open, if the user cancels or the
    // saving fails; of several, those before it are closed then.
    bool CloseAsking(clsDocument& Closed);
    bool CloseAllAsking();
    // nullptr if the slot is free or out of range.
    clsDocument* Document(int Slot) const;
    std::shared_ptr<clsDocument> SharedDocument(int Slot) const;
    int NumOpenDocuments() const { return m_numOpenDocuments; }
    int ActiveDocument() const { return m_activeDocument; }
    clsDocument* Active() const { return Document(m_activeDocument); }

    // A window of the document has come to the front: View is its kind. In the common workspace
    // the output views of the document before give way to those of this one.
    void ActivateDocument(clsDocument& Front, ViewType View);

    // The document's interferogram in front of all others; it must have one.
    void BringToFront(clsDocument& Front);

    // One common set of output views for all interferograms, or one for each; the views on the
    // screen move accordingly.
    void ShareViews(bool Common);

    // --- Commands; each does nothing without an active document
    void OpenDialog();
    // Opens pictures and documents; unless Quiet the user is told of each file that cannot be.
    void OpenFiles(const std::vector<std::string>& Paths, bool Quiet);
    void TraceFringes(FringeDirection Direction);
    // Makes the picture wider (Ratio above 1) or higher, and notes the ratio in the preferences.
    void AdjustAspectRatio(double Ratio);
    void AnalyzeFringes();
    void ToggleView(ViewType View);
    // What the close box of a view does.
    void HideView(clsDocument& Of, ViewType View);
    // What is selected in the active text view, or all of it, to the clipboard; with another view
    // in front it stays as it is.
    void CopyText();
    // Of longer texts than a document keeps the start, and the user is told. With AsDefault they
    // are those of new documents too, all of them together, whatever another program has made the
    // default meanwhile. A document that has been closed meanwhile changes nothing.
    void SetUserData(clsDocument& Of, const UserData& Typed, bool AsDefault);
    // The analysis of Target with the options of the box; false if a warning ended it.
    bool ApplyAnalysis(clsDocument& Target);
    // A picture of a file as a new document on the screen; nullptr if that failed.
    std::shared_ptr<clsDocument> OpenPicture(const std::string& Path, bool Quiet);
    // A document file with the picture beside it; nullptr if that failed.
    std::shared_ptr<clsDocument> OpenDocument(const std::string& Path, bool Quiet);
    // A file in place of all that a document holds; if it cannot be read, the document stays as it
    // is.
    bool ReplacePicture(clsDocument& Of, const std::string& Path, bool Quiet);
    bool ReplaceDocument(clsDocument& Of, const std::string& Path, bool Quiet);

    // --- Mouse tools, zoom and tool box, on the interferogram of the active document; each does
    // nothing without one
    void SetZoom(int Percent);
    void StepZoom(ZoomStep Step);
    // The hand tool if not.
    void SetEditMode(bool Edit);
    // Clicks draw a figure of the kind that the tool box has for it, in place of the old one.
    void AddShape(ShapeRole Role);
    // Ends a drawing too.
    void ClearShape(ShapeRole Role);
    // The figure kept in the settings. False, and Into stays as it is, if none is kept. The mask is
    // the caller's matter.
    bool LoadShape(ShapeRole Role, clsDocument& Into);
    void LoadShapeIntoActive(ShapeRole Role);
    // Into the settings, for every picture to come; without an interferogram's window too.
    void SaveShape(ShapeRole Role);
    // Numbers of fringes, about the current order of the tool box.
    void InsertFringe();
    void RemoveFringe();
    void RenumberFringe();
    // The clicks so far stay with the order before. Only 1 to MaxFringes.
    void SelectOrder(int Order);
    // What the user has typed, of whatever size. Without an interferogram too.
    void TypeOrder(const std::string& Text);
    // By the arrows beside the box.
    void StepOrder(int Steps);
    // The center that the right button's menu is about.
    void DeleteFringeCenter();
    void ClearFringes();

    // --- Saving. False if the user cancels or it fails; then the file that was there before still
    // is, and the document is still modified.
    enum class SaveMode { ImageOnly, Document };
    // Whether a document's picture replaces the file that it was opened from without a question.
    enum class Originals { Ask, Replace };
    // Writes the document and, where it has changed or lies elsewhere, its picture (mvd), or the
    // picture alone (bmp).
    bool WriteDocument(const std::string& Path, clsDocument& Of, Originals Opened = Originals::Ask);
    // To its own file, or to one that the user is asked for.
    bool SaveDocument(clsDocument& Of);
    bool SaveAsDialog(clsDocument& Of, SaveMode Mode);
    // Asks whether to save what has changed, and does.
    bool SaveDocumentSettings(clsDocument& Of);
    void ExportMapDialog(clsDocument& Of);
    void ExportZernikesDialog(clsDocument& Of);

    // --- The report of a document, on one page. The user is asked whether panes may stay empty,
    // and told of every failure.
    void PrintDialog(const clsDocument& Of);
    // By the default printer.
    void PrintAtOnce(const clsDocument& Of);
    // False if the user cancels or it fails; then a file that was there before still is.
    bool PrintToPdf(const clsDocument& Of, const std::string& Path);

    // --- Frame grabber
    // Finds the plug-ins in the program's folder and loads that of the preferences; a name that is
    // not among them becomes "None".
    void StartGrabber(const std::string& Folder);
    // Loads by the index in Grabber.Names(), from 1, and notes the name in the preferences; any
    // other index is none. The user is told of one that cannot be loaded.
    void LoadGrabber(int Index);
    // A frame into the active document, which is closed if there is none to be had, or into a new
    // one, as the preferences say.
    void GrabImage();
    // After a frame in place of its picture.
    void ShowNewPicture(clsDocument& Of);
    // A frame as a new document on the screen; nullptr if that failed.
    std::shared_ptr<clsDocument> GrabIntoNewDocument();
    // The plug-in's dialog; the plug-in is then loaded anew, so that the settings take effect.
    void GrabberProperties();

    // --- DocumentHost
    Preferences& GetPreferences() override { return Prefs; }
    MessageAnswer ShowMessage(
        const std::string& Text, int Flags, const std::string& Title) override;
    DocumentWindowFactory& Windows() override { return m_frame; }
    void ShowHourglass(bool Shown) override;

    MainFrame& Frame() { return m_frame; }

private:
    friend class UnattendedScope;

    void SpreadViews();
    void GatherViews();
    MouseTools* ActiveTools() const;
    // The same, with the interferogram in front.
    MouseTools* ToolsInFront();
    // Unless Quiet the user is told why not.
    bool HasOpened(const std::string& Path, const FileResult& Outcome, bool Quiet);
    bool ReadDocument(clsDocument& Into, const std::string& Path, bool Quiet);
    // The picture beside the document file Path, without a message; a line about the problem if it
    // cannot be had.
    std::string ReadSidePicture(clsDocument& Into, const std::string& Path);
    void ClearDocument(clsDocument& Of);
    void LoadSavedShapes(clsDocument& Into);
    bool WriteTextAndPicture(const std::string& Path, clsDocument& Of);
    bool WriteBitmap(const std::string& Path, clsDocument& Of);
    void OthersLosePicture(const std::string& Path, const clsDocument& To);
    bool NeedsDocumentFile(const clsDocument& Of) const;
    void OthersLoseFile(const std::string& Path, const clsDocument& To);
    bool MayTakePicture(const std::string& Path, const clsDocument& Of, Originals Opened);
    bool WriteWithQuestion(const std::string& Path, const std::function<FileResult()>& Write);
    bool MayReplace(const std::string& Path, const std::string& Title);
    std::optional<std::string> AskExport(
        const clsDocument& Of, const char* Title, const char* Filter, const char* Extension);
    PageRequest RequestFor(const clsDocument& Of) const;
    bool PrintReport(const clsDocument& Of, Printer& On);
    std::optional<Message> PrintPage(const ReportSource& Of, Printer& On);
    bool RegisterDocument(const std::shared_ptr<clsDocument>& Registered);

    MessageAnswerer* m_answerer;
    MainFrame& m_frame;
    std::array<std::shared_ptr<clsDocument>, MaxDocuments + 1> m_documents; // from 1
    int m_numOpenDocuments = 0;
    int m_activeDocument = 0;
    int m_hourglasses = 0;
    SettingsStore* m_settings = nullptr;
    int m_grabCount = 0; // numbers the titles of grabbed pictures
};

// Until the brace, messages are not shown but answered as a careful user would: cancel, or no.
class UnattendedScope final : private MessageAnswerer {
public:
    explicit UnattendedScope(Session& Of);
    ~UnattendedScope() override;
    UnattendedScope(const UnattendedScope&) = delete;
    UnattendedScope& operator=(const UnattendedScope&) = delete;

    // The text of the last message; empty if there was none.
    const std::string& LastText() const { return m_lastText; }

private:
    MessageAnswer Answer(const Message& Asked) override;

    Session& m_session;
    MessageAnswerer* m_before;
    std::string m_lastText;
};

} // namespace morvane
