#include "shell/AnalyzeSettings.h"

#include "platform/Numbers.h"
#include "shell/PreferenceTable.h"

namespace morvane {
namespace {

constexpr const char* Section = "Analyze";
constexpr const char* SelectedName = "Reference Selected";

// The options as the settings know them.
struct StoredOptions {
    AnalyzeOptions Options;
    std::string BrowseFolder;
    int Unit = static_cast<int>(Options.Unit);
    int Scale = static_cast<int>(Options.Scale);
    int Limit = static_cast<int>(Options.Limit);
    double CustomScale = LeadingNumber(Options.CustomScale);
};

std::vector<SettingRow> OptionRows(StoredOptions& Of)
{
    AnalyzeOptions& options = Of.Options;
    return {
        {"Browse Dir", &Of.BrowseFolder},
        {"Tilt", &options.Removed.Tilt},
        {"Defocus", &options.Removed.Focus},
        {"Astigmatism", &options.Removed.Astigmatism},
        {"Coma", &options.Removed.Coma},
        {"Spherical", &options.Removed.Spherical},
        {"Invert Scale", &options.InvertWavefront},
        {"Trim Edges", &options.TrimEdges},
        {"Display Units", &Of.Unit, 0, 2},
        {"Input WL", &options.InputWavelength},
        {"Output WL", &options.OutputWavelength},
        {"Scale Factor", &Of.Scale, 0, 2},
        {"Custom Scale", &Of.CustomScale, 0, 1000},
        {"Limit Order", &Of.Limit, 0, 4},
    };
}

constexpr const char* ReferencePrefix = "Reference File ";
constexpr std::size_t MaxReferences = 1000;

} // namespace

void ReadAnalyzeBox(SettingsStore& From, AnalyzeBox& Into)
{
    StoredOptions stored;
    ReadRows(From, Section, OptionRows(stored));
    stored.Options.Unit = static_cast<DisplayUnit>(stored.Unit);
    stored.Options.Scale = static_cast<ScaleChoice>(stored.Scale);
    stored.Options.Limit = static_cast<OrderLimit>(stored.Limit);
    stored.Options.CustomScale = FormatShortest(stored.CustomScale);
    Into.BrowseFolder = stored.BrowseFolder;
    Into.SetOptions(stored.Options);

    const std::vector<std::string> paths = From.GetSettingList(Section, ReferencePrefix);
    Into.RestoreReferences(paths, From.GetSettingString(Section, SelectedName, ""));
}

void WriteAnalyzeBox(SettingsStore& Into, const AnalyzeBox& Written)
{
    StoredOptions stored{Written.Options(), Written.BrowseFolder};
    WriteRows(Into, Section, OptionRows(stored));

    const clsRefPath& references = Written.References();
    std::vector<std::string> paths;
    for (int i = 1; i <= references.Count(); ++i)
        paths.push_back(references.GetItem(i));
    Into.SaveSettingList(Section, ReferencePrefix, paths, ListOrder::AsSaved, MaxReferences);
    Into.SaveSettingString(Section, SelectedName, Written.SelectedReference());
}

} // namespace morvane
