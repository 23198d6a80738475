// The report page as a customer gets it, with interferogram, aberrations, profile and coefficients,
// from the document to the PDF file, against a PDF page with nothing on it.
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "bench/BenchApplication.h"
#include "bench/BenchPicture.h"
#include "document/Dib.h"
#include "platform/File.h"
#include "report/DrawReport.h"
#include "shell/qt/PagePrinters.h"
#include "tests/PlainHost.h"

namespace morvane {
namespace {

template <typename Drawing>
void print(benchmark::State& state, Drawing draw)
{
    HaveApplication();
    const QTemporaryDir folder;
    const std::string path = folder.filePath("page.pdf").toStdString();
    while (state.KeepRunning()) {
        const auto printer = PagePrinterToPdf({"Morvane - bench"}, path);
        bool isDone = printer->Open() && printer->ChangePageSettings().empty()
            && printer->StartDoc() && printer->StartPage();
        if (isDone)
            draw(printer->Page());
        isDone = isDone && printer->EndPage() && printer->EndDoc();
        if (!isDone)
            state.SkipWithError("the page cannot be printed");
    }
}

// 1024 by 1024 pixels, 30 fringes, analysed.
class AnalyzedDocument {
public:
    AnalyzedDocument()
    {
        const QTemporaryDir folder;
        const std::string path = folder.filePath("small.bmp").toStdString();
        const BenchPicture& picture = SmallPicture();
        WriteWholeFile(path, BmpFromBuffer({picture.Pixels, picture.Size}));
        Document.LoadFileIntoDataBuffer(path, true);
        Document.Aperture = picture.Aperture;
        Document.InvalidateMask();
        IsReady = Document.AutoTraceFringes(FringeDirection::Vertical, FringeDensity::Normal)
            && Document.CreateOutputViews() && Document.UpdateAnalysis(true, true);
    }

    PlainHost Host;
    clsDocument Document{Host};
    bool IsReady = false;
};

void printReport(benchmark::State& state)
{
    static AnalyzedDocument made;
    if (!made.IsReady)
        state.SkipWithError("the picture is not analysed");
    Preferences chosen;
    chosen.Report.NumPanes = 4;
    chosen.Report.Pane = {3, 1, 4, 8, 0, 0};
    print(state, [&](Device& page) {
        DrawReport(page, {made.Document, chosen, {1920, 1080}, ""});
    });
}

void printNothing(benchmark::State& state)
{
    print(state, [](Device&) {});
}

BENCHMARK(printReport)->Name("ReportPage/ours");
BENCHMARK(printNothing)->Name("ReportPage/reference");

} // namespace
} // namespace morvane
