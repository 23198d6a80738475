// What the analysis window holds, and its Apply: the options for the next analysis of any
// document. The window shows and edits them, the automation object does too.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "document/clsDocument.h"
#include "shell/clsRefPath.h"

namespace morvane {

enum class ScaleChoice { Half = 0, One = 1, Custom = 2 };
enum class OrderLimit { Automatic = 0, Eighth = 1, Sixth = 2, Fourth = 3, Second = 4 };

// Terms that a limit allows; 0 for Automatic.
int TermsOf(OrderLimit Limit);

// The reference that the document has already, which is none of those listed.
inline constexpr int KeptReference = -1;

struct AnalyzeOptions {
    // 0 none, 1 the shared set, from 2 on the listed files; or KeptReference.
    int Reference = 0;
    ScaleChoice Scale = ScaleChoice::Half;
    std::string CustomScale = "2"; // as typed
    bool InvertWavefront = false;
    std::string InputWavelength = "632.8", OutputWavelength = "632.8"; // nm, as typed
    DisplayUnit Unit = DisplayUnit::Waves;
    bool TrimEdges = true;
    OrderLimit Limit = OrderLimit::Automatic;
    RemoveFlags Removed{.Tilt = true, .Focus = true};
};

class AnalyzeBox {
public:
    const AnalyzeOptions& Options() const { return m_options; }
    // Changed is called, so that the window follows.
    void SetOptions(const AnalyzeOptions& Options);
    // The state of an analysed document into the options.
    void SetControls(const clsDocument& Of);

    // Called after each change of the options or of the list of references.
    std::function<void()> Changed;

    const clsRefPath& References() const { return m_references; }
    // Adds a file to the list and selects it; the message if it holds no coefficients.
    std::optional<Message> AddReference(const std::string& Path);
    // Takes a file (list index from 2) off the list and selects the one before.
    void RemoveReference(int Index);
    // Makes the list anew; a file that is gone now may be there again when it is used. Selected is
    // a text of SelectedReference; none is selected if it isn't listed.
    void RestoreReferences(const std::vector<std::string>& Paths, const std::string& Selected);
    // The path of the selected file, "Custom" for the shared set, empty for any other.
    std::string SelectedReference() const;
    std::string BrowseFolder; // where the last reference was looked for

    ZernikeSet SharedReference{};

    // Checks the options and stores them in the document, which is modified if one has changed. A
    // message ends the command; what has been stored before it stays stored.
    std::optional<Message> StoreOptions(clsDocument& Into) const;

private:
    int ReferenceOf(const clsDocument& Of) const;
    std::optional<Message> CheckAndStore(clsDocument& Into) const;
    std::optional<Message> StoreReference(clsDocument& Into) const;
    std::optional<Message> StoreScaleAndUnits(clsDocument& Into) const;
    std::optional<Message> StoreFitOptions(clsDocument& Into) const;

    AnalyzeOptions m_options;
    clsRefPath m_references;
};

} // namespace morvane
