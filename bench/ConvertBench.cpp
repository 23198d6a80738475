// Grey values out of a decoded picture, against copying it.
#include <cstring>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "document/Bitmap.h"

namespace morvane {
namespace {

constexpr int Side = 4096;

std::vector<std::uint8_t> rowsOfAllLevels()
{
    std::vector<std::uint8_t> rows(std::size_t{3} * Side * Side);
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = static_cast<std::uint8_t>(i * 2654435761U >> 24); // no pattern in the channels
    return rows;
}

void convertPicture(benchmark::State& state)
{
    const Bitmap picture{Side, Side, 24, 0, {}, {}, rowsOfAllLevels()};
    ImageBuffer target;
    std::string error;
    while (state.KeepRunning()) {
        if (!ConvertBitmapToData(picture, target, error))
            state.SkipWithError(error.c_str());
        benchmark::ClobberMemory();
    }
}

void copyPicture(benchmark::State& state)
{
    const std::vector<std::uint8_t> rows = rowsOfAllLevels();
    std::vector<std::uint8_t> target(rows.size());
    while (state.KeepRunning()) {
        std::memcpy(target.data(), rows.data(), rows.size());
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(convertPicture)->Name("ConvertBitmapToData/ours");
BENCHMARK(copyPicture)->Name("ConvertBitmapToData/reference");

} // namespace
} // namespace morvane
