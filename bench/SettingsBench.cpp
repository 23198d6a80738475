// All settings at the start of the program, against reading the lines of their file.
#include <cstdlib>
#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>

#include "shell/AnalyzeSettings.h"
#include "shell/BoxPlace.h"
#include "shell/MainWindowSettings.h"
#include "shell/ToolBoxSettings.h"

namespace morvane {
namespace {

constexpr ScreenMeasures screen{.Width = 1920, .Height = 1080, .FrameStep = 4, .CaptionStep = 23};

// The settings as a program leaves them that has written every value.
class SettingsFile {
public:
    SettingsFile()
    {
        std::string pattern = std::filesystem::temp_directory_path() / "morvane-bench-XXXXXX";
        m_folder = mkdtemp(pattern.data()) != nullptr ? pattern : std::string();
        SettingsStore store(Path());
        WriteMainWindow(store, {});
        SaveViewSettings(store, {});
        WriteBoxes(store, {});
        WritePreferences(store, {}, {});
        WriteAnalyzeBox(store, {});
        WriteToolBox(store, {});
        for (const PlaceKey& key : {AnalyzePlace, ToolBoxPlace})
            WritePlace(store, key, {});
        RecentFiles recent;
        recent.SetPaths({"/a.mvd", "/b.mvd", "/c.bmp", "/d.jpg"});
        SaveRecentFiles(store, recent);
        m_isWritten = static_cast<bool>(store.Save());
    }
    ~SettingsFile()
    {
        std::error_code error;
        std::filesystem::remove_all(m_folder, error);
    }
    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;

    bool IsWritten() const { return m_isWritten; }
    std::string Path() const { return m_folder + "/settings.ini"; }

private:
    std::string m_folder;
    bool m_isWritten = false;
};

void readSettings(benchmark::State& state)
{
    const SettingsFile file;
    if (!file.IsWritten())
        state.SkipWithError("no file to read");
    while (state.KeepRunning()) {
        SettingsStore store(file.Path());
        benchmark::DoNotOptimize(ReadPreferences(store, screen, "Mar 7, 2026"));
        benchmark::DoNotOptimize(ReadSharedReference(store));
        benchmark::DoNotOptimize(ReadMainWindow(store, screen));
        benchmark::DoNotOptimize(LoadRecentFiles(store));
        AnalyzeBox box;
        ReadAnalyzeBox(store, box);
        ToolBox tools;
        ReadToolBox(store, tools);
        for (const PlaceKey& key : {AnalyzePlace, ToolBoxPlace})
            benchmark::DoNotOptimize(ReadPlace(store, key));
    }
}

void readLines(benchmark::State& state)
{
    const SettingsFile file;
    std::string line;
    while (state.KeepRunning()) {
        LineReader lines(file.Path());
        while (lines.ReadLine(line))
            benchmark::DoNotOptimize(line.data());
    }
}

BENCHMARK(readSettings)->Name("ReadSettings/ours");
BENCHMARK(readLines)->Name("ReadSettings/reference");

} // namespace
} // namespace morvane
