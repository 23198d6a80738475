// Any bytes as a document file: the tokenizer, the blocks of fringes, shapes and grid, and what an
// analysis and a new file make of the document read. Built with
// clang++ -fsanitize=fuzzer,address,undefined.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "../PlainHost.h"
#include "MemoryFile.h"
#include "document/clsDocument.h"

namespace {

using namespace morvane;

// Small enough for thousands of runs.
bool isSmall(const clsDocument& document)
{
    constexpr int largestPicture = 256, largestMap = 30, mostTicks = 10000;
    const RasterSize size = document.GetImageSize();
    return size.Width <= largestPicture && size.Height <= largestPicture
        && document.xSurfaceSize <= largestMap && document.xOrigSurfaceSize <= largestMap
        && document.Fringes.TotalNumTicks() <= mostTicks;
}

// What has been read is written, and read again is the same.
void travel(clsDocument& document, const MemoryFile& file)
{
    document.AnalysisValid = document.Zernike(NumZernikes) != 0;
    const std::string text = document.DataText();
    document.ClearGeometry();
    if (!document.LoadDataFromFile(file.Write(text.data(), text.size()))
        || document.DataText() != text)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size)
{
    static const MemoryFile file;
    static PlainHost host;
    host.Prefs = Preferences();
    host.Prefs.HogWindows = Size % 2 == 0;
    // A store of fringes is too large to be made for each input.
    static clsDocument document(host);
    document.ClearGeometry();
    document.SetZernikes({});
    document.LoadBlankImage(NoSize, NoSize);
    document.xSurfaceSize = document.ySurfaceSize = 20;
    document.xOrigSurfaceSize = document.yOrigSurfaceSize = 20;
    if (!document.LoadDataFromFile(file.Write(Data, Size)))
        std::abort();

    document.Fringes.Find({1, 1});
    document.Aperture.Find({1, 1});
    document.Grid.Find({1, 1});
    if (isSmall(document)) {
        travel(document, file);
        document.UpdateAnalysis(true, false);
    }
    document.Grid.UpdateCellCounts();
    return 0;
}
