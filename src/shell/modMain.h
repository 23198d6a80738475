// The session: the table of open documents, the active one, the preferences, and what acts on
// them. Main makes one, a test makes its own; there is no other mutable global state.
#pragma once
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "document/DocumentHost.h"
#include "document/clsDocument.h"
#include "shell/AnalyzeBox.h"

namespace morvane {

inline constexpr int MaxDocuments = 100;

// What the session asks of the main window.
class MainFrame : public DocumentWindowFactory {
public:
    // Documents, the active one or its views have changed: commands, checks and status follow.
    virtual void UpdateMainFrame() = 0;
    virtual void SetHourglass(bool Shown) = 0;
};

class Session final : public DocumentHost {
public:
    Session(MessageAnswerer& Answerer, MainFrame& Frame);
    ~Session() override;

    Preferences Prefs;
    AnalyzeBox Analyze;

    // --- Documents, in slots 1 to MaxDocuments
    // In the lowest free slot; nullptr, and the user has been told, if all are taken.
    std::shared_ptr<clsDocument> NewDocument();
    void CloseDocument(clsDocument& Closed);
    void CloseAllDocuments();
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

    // --- Commands; each does nothing without an active document
    // Opens pictures; unless Quiet the user is told of each file that cannot be.
    void OpenFiles(const std::vector<std::string>& Paths, bool Quiet);
    void TraceFringes(FringeDirection Direction);
    void AnalyzeFringes();
    void ToggleView(ViewType View);
    // The analysis of Target with the options of the box; false if a warning ended it.
    bool ApplyAnalysis(clsDocument& Target);
    // A picture of a file as a new document on the screen; nullptr if that failed.
    std::shared_ptr<clsDocument> OpenPicture(const std::string& Path, bool Quiet);
    // The picture of a file in place of all that a document holds; if it cannot be read, the
    // document stays as it is.
    bool ReplacePicture(clsDocument& Of, const std::string& Path, bool Quiet);

    // --- DocumentHost
    const Preferences& GetPreferences() const override { return Prefs; }
    MessageAnswer ShowMessage(
        const std::string& Text, int Flags, const std::string& Title) override;
    DocumentWindowFactory& Windows() override { return m_frame; }
    void ShowHourglass(bool Shown) override;

    MainFrame& Frame() { return m_frame; }

private:
    friend class UnattendedScope;

    void TakeVisibility(const clsDocument& Of);
    bool RegisterDocument(const std::shared_ptr<clsDocument>& Registered);

    MessageAnswerer* m_answerer;
    MainFrame& m_frame;
    std::array<std::shared_ptr<clsDocument>, MaxDocuments + 1> m_documents; // from 1
    int m_numOpenDocuments = 0;
    int m_activeDocument = 0;
    int m_hourglasses = 0;
};

// Until the brace, messages are not shown but answered as a careful user would: cancel, or no.
class UnattendedScope {
public:
    explicit UnattendedScope(Session& Of);
    ~UnattendedScope();
    UnattendedScope(const UnattendedScope&) = delete;
    UnattendedScope& operator=(const UnattendedScope&) = delete;

private:
    Session& m_session;
    MessageAnswerer* m_before;
};

} // namespace morvane
