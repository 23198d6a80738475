// Document files of 800,000 ticks, as many as a document holds, held against the bare conversion of
// their numbers.
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>
#include <unistd.h>

#include "document/clsDocument.h"
#include "tests/PlainHost.h"

namespace morvane {
namespace {

constexpr std::size_t NumTicks = std::size_t{MaxFringes} * MaxTicks;

// A document whose store is full of ticks with all their digits, and its file.
class FullDocument {
public:
    FullDocument()
    {
        std::vector<Point> ticks(MaxTicks);
        for (int order = 1; order <= MaxFringes; ++order) {
            for (int i = 0; i < MaxTicks; ++i)
                ticks[i] = {4096 * std::abs(std::sin(order + 0.37 * i)), i * 1.0237 + order / 7.0};
            Document.Fringes.InsertOrder(order, ticks);
        }
        Document.SaveDataToFile(Path);
    }
    ~FullDocument()
    {
        std::error_code error;
        std::filesystem::remove(Path, error);
    }

    const std::string Path =
        std::filesystem::temp_directory_path() / ("morvane_bench_" + std::to_string(getpid()));
    PlainHost Host;
    clsDocument Document{Host};
};

FullDocument& full()
{
    static FullDocument document;
    return document;
}

void load(benchmark::State& state)
{
    FullDocument& file = full();
    while (state.KeepRunning()) {
        clsDocument document(file.Host);
        if (!document.LoadDataFromFile(file.Path)
            || document.Fringes.TotalNumTicks() != static_cast<int>(NumTicks))
            state.SkipWithError("the document is not read");
    }
}

// Each line once, and the two numbers of those that hold a tick.
void convertLines(benchmark::State& state)
{
    constexpr std::string_view keyword = "Center,";
    const FullDocument& file = full();
    while (state.KeepRunning()) {
        std::ifstream lines(file.Path, std::ios::binary);
        std::size_t numTicks = 0;
        for (std::string line; std::getline(lines, line);) {
            if (!line.starts_with(keyword))
                continue;
            const char* const end = line.data() + line.size();
            Point tick;
            const auto x = std::from_chars(line.data() + keyword.size() + 1, end, tick.X);
            const auto y = std::from_chars(x.ptr + 2, end, tick.Y); // a comma and a blank between
            numTicks += y.ec == std::errc();
            benchmark::DoNotOptimize(tick);
        }
        if (numTicks < NumTicks) // the shapes have centers too
            state.SkipWithError("not all numbers are converted");
    }
}

void save(benchmark::State& state)
{
    FullDocument& file = full();
    while (state.KeepRunning())
        if (!file.Document.SaveDataToFile(file.Path))
            state.SkipWithError("the document is not written");
}

void convertNumbers(benchmark::State& state)
{
    FullDocument& file = full();
    const std::string path = file.Path + "_reference";
    constexpr std::size_t longest = 32; // of a number
    while (state.KeepRunning()) {
        const auto text = std::make_unique_for_overwrite<char[]>(2 * NumTicks * longest);
        char* next = text.get();
        for (int index = 1; index <= MaxFringes; ++index)
            for (const Point& tick : file.Document.Fringes.Ticks(index))
                for (const double number : {tick.X, tick.Y}) {
                    next = std::to_chars(next, next + longest, number).ptr;
                    *next++ = '\n';
                }
        std::ofstream(path, std::ios::binary).write(text.get(), next - text.get());
    }
    std::remove(path.c_str());
}

BENCHMARK(load)->Name("LoadDocument/ours");
BENCHMARK(convertLines)->Name("LoadDocument/reference");
BENCHMARK(save)->Name("SaveDocument/ours");
BENCHMARK(convertNumbers)->Name("SaveDocument/reference");

} // namespace
} // namespace morvane
