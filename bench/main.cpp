// Runs the benchmarks and holds each figure against its reference: "<name>/ours" and
// "<name>/reference" are measured in turns in the same run, and the smallest of several
// repetitions counts on each side. The times are those of the processor, so that whatever else the
// machine does weighs little.
//
// One line a figure; the exit status is 1 if one is over its limit or lacks a side.
#include <algorithm>
#include <cstdio>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

namespace {

struct Figure {
    const char* Name;
    double Limit; // of ours / reference
    double LimitMs = std::numeric_limits<double>::infinity(); // of ours alone
};
constexpr double AnyRatio = std::numeric_limits<double>::infinity();

constexpr Figure figures[] = {
    {"FitFringeCenters", 1.0}, // the same sums through OpenBLAS
    {"AutoTrace", 1.5}, // decoding the picture from a JPEG
    {"AutoTraceScaling", 20}, // a 16th of the pixels
    {"PolygonMask", 40}, // memset of the mask
    {"ConvertBitmapToData", 3}, // memcpy of the bitmap
    {"WholeRoad", 3.0}, // decoding the picture from a JPEG
    {"LoadDocument", 2.5}, // getline and from_chars over the same file
    {"SaveDocument", 2.5}, // to_chars of the same numbers, and one write
    {"ChartRepaint", 1.5}, // the same lines and texts through a bare painter
    {"ReportPage", AnyRatio, 300}, // a page with nothing on it
    {"ReadSettings", AnyRatio, 5}, // the lines of the file
    {"ProfileStep", AnyRatio, 4}, // showing the same once more
    {"PanStep25", AnyRatio, 4}, // one blit of the client area; so for all below
    {"PanStep100", AnyRatio, 4},
    {"PanStep150", AnyRatio, 4},
    {"ScrollStep", AnyRatio, 4},
    {"ZoomStep", AnyRatio, 16},
    {"HoverMove", AnyRatio, 1},
    {"DragTick", AnyRatio, 2},
    {"DragShape", AnyRatio, 2},
};

constexpr double NotMeasured = std::numeric_limits<double>::infinity();

// Keeps the smallest time of each benchmark, in milliseconds.
class SmallestTimes : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::fprintf(
                    stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
                m_hasFailed = true;
            } else if (run.run_type == Run::RT_Iteration) {
                double& smallest =
                    m_times.try_emplace(run.run_name.function_name, NotMeasured).first->second;
                const double each = run.cpu_accumulated_time / static_cast<double>(run.iterations);
                smallest = std::min(smallest, each * 1000);
            }
        }
    }

    bool HasFailed() const { return m_hasFailed; }
    bool IsEmpty() const { return m_times.empty(); }

    double Time(const std::string& name) const
    {
        const auto found = m_times.find(name);
        return found == m_times.end() ? NotMeasured : found->second;
    }

private:
    std::map<std::string, double> m_times;
    bool m_hasFailed = false;
};

// Whether the figure keeps its limit.
bool printFigure(const Figure& figure, double ours, double reference)
{
    const double ratio = ours / reference; // not a number, so over, if neither was measured
    const bool isKept = ratio <= figure.Limit && ours <= figure.LimitMs && reference != NotMeasured;
    std::printf("%-22s %12.3f %15.3f %8.3f", figure.Name, ours, reference, ratio);
    if (figure.Limit == AnyRatio)
        std::printf(" %4.0f ms", figure.LimitMs);
    else
        std::printf(" %7.1f", figure.Limit);
    std::printf("  %s\n", isKept ? "ok" : "over");
    return isKept;
}

} // namespace

int main(int count, char** values)
{
    // Many short repetitions: the smallest of them is one that nothing has disturbed. Arguments of
    // the command line come last and override these.
    std::string defaults[] = {"--benchmark_repetitions=20", "--benchmark_min_time=0.05",
        "--benchmark_enable_random_interleaving=true"};
    std::vector<char*> arguments{values[0]};
    for (std::string& argument : defaults)
        arguments.push_back(argument.data());
    arguments.insert(arguments.end(), values + 1, values + count);
    int argumentCount = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&argumentCount, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments.data()))
        return 2;

    SmallestTimes times;
    const bool isWhole = benchmark::GetBenchmarkFilter().empty();
    benchmark::RunSpecifiedBenchmarks(&times);
    if (times.IsEmpty()) // nothing matches the filter, or only a list was asked for
        return 0;

    std::printf("%-22s %12s %15s %8s %7s\n", "figure", "ours ms", "reference ms", "ratio", "limit");
    bool areAllKept = !times.HasFailed();
    for (const Figure& figure : figures) {
        const std::string name = figure.Name;
        const double ours = times.Time(name + "/ours"), reference = times.Time(name + "/reference");
        if (isWhole || ours != NotMeasured || reference != NotMeasured)
            areAllKept = printFigure(figure, ours, reference) && areAllKept;
    }
    return areAllKept ? 0 : 1;
}
