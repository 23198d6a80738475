// From a picture to the numbers: the trace, the mask, and the whole road.
#include <cmath>
#include <cstring>
#include <vector>

#include <benchmark/benchmark.h>

#include "analysis/ModMathLib.h"
#include "analysis/modFigures.h"
#include "analysis/modFit.h"
#include "analysis/modSurface.h"
#include "bench/BenchPicture.h"
#include "document/LoadPicture.h"

namespace morvane {
namespace {

constexpr int SurfaceSize = 30, FringesSize = 150, ProfileSize = 100, FiguresSize = 100;

void tracePicture(benchmark::State& state, BenchPicture& picture)
{
    clsFringes fringes;
    while (state.KeepRunning()) {
        AutoTrace(fringes, picture.Mask, picture.Pixels, picture.Size, FringeDirection::Vertical,
            FringeDensity::Normal);
        benchmark::DoNotOptimize(fringes);
    }
    if (fringes.NumFringes() != picture.NumFringes)
        state.SkipWithError("the trace has not found all fringes");
}

void traceLarge(benchmark::State& state)
{
    tracePicture(state, LargePicture());
}
void traceSmall(benchmark::State& state)
{
    tracePicture(state, SmallPicture());
}

void decodeLarge(benchmark::State& state)
{
    const BenchPicture& picture = LargePicture();
    std::vector<std::uint8_t> target(picture.Pixels.size() * 3);
    while (state.KeepRunning()) {
        if (!DecodeJpeg(picture.Jpeg, target))
            state.SkipWithError("the picture does not decode to its size");
        benchmark::ClobberMemory();
    }
}

clsShape polygonOfAllCorners(RasterSize size)
{
    std::vector<Point> corners;
    for (int i = 0; i < MaxVertices; ++i) {
        const double angle = 2 * Pi * i / MaxVertices;
        corners.push_back({size.Width * (0.5 + 0.48 * std::cos(angle)),
            size.Height * (0.5 + 0.48 * std::sin(angle))});
    }
    clsShape polygon(ShapeRole::Aperture);
    polygon.Save(ShapeKind::Polygon, corners);
    return polygon;
}

constexpr RasterSize LargeMask{4096, 4096};

void fillPolygon(benchmark::State& state)
{
    const clsShape polygon = polygonOfAllCorners(LargeMask);
    clsMask mask;
    mask.CreateMask(LargeMask.Width, LargeMask.Height);
    while (state.KeepRunning()) {
        mask.UpdateApertureMask(polygon, false);
        benchmark::ClobberMemory();
    }
    if (!mask.View().IsInside(LargeMask.Width / 2, LargeMask.Height / 2))
        state.SkipWithError("the polygon is not filled");
}

void clearMask(benchmark::State& state)
{
    std::vector<std::uint8_t> cells(
        static_cast<std::size_t>(LargeMask.Width) * LargeMask.Height, MaskOutside);
    while (state.KeepRunning()) {
        std::memset(cells.data(), MaskInside, cells.size());
        benchmark::DoNotOptimize(cells.data());
        benchmark::ClobberMemory();
    }
}

struct Ticks {
    std::vector<double> X, Y, Z;
};

Ticks ticksOf(const clsFringes& fringes)
{
    Ticks ticks;
    for (int index = 1; index <= fringes.NumFringes(); ++index) {
        for (const Point tick : fringes.Ticks(index)) {
            ticks.X.push_back(tick.X);
            ticks.Y.push_back(tick.Y);
            ticks.Z.push_back(fringes.GetFringeOrder(index));
        }
    }
    return ticks;
}

void deriveAll(const ZernikeSet& coefficients, const MaskView& mask, const Pupil& frame)
{
    std::vector<double> surface(SurfaceSize * SurfaceSize), fringes(FringesSize * FringesSize);
    std::vector<double> x(ProfileSize), y(ProfileSize);
    FiguresOfMerit figures;
    benchmark::DoNotOptimize(AToW(coefficients));
    EvalAberrations(coefficients, mask, frame, FiguresSize, FiguresSize, figures);
    EvalSurface(
        coefficients, mask, frame, SurfaceSize, SurfaceSize, MapContent::Wavefront, surface);
    EvalSurface(coefficients, mask, frame, FringesSize, FringesSize, MapContent::Fringes, fringes);
    EvalProfile(coefficients, mask, frame, 0, x, y);
    benchmark::DoNotOptimize(figures);
    benchmark::ClobberMemory();
}

// False if a step of the road fails.
bool travel(BenchPicture& picture)
{
    const PictureResult opened = DecodePicture(picture.Jpeg);
    ImageBuffer image;
    std::string error;
    if (!ConvertBitmapToData(opened.Picture, image, error))
        return false;
    clsMask mask;
    Pupil frame;
    if (!mask.CreateMask(image.Size.Width, image.Size.Height))
        return false;
    mask.UpdateApertureMask(picture.Aperture, false);
    frame.SetScalefactors(picture.Aperture);
    clsFringes fringes;
    AutoTrace(
        fringes, mask, image.Pixels, image.Size, FringeDirection::Vertical, FringeDensity::Normal);
    const Ticks ticks = ticksOf(fringes);
    int numTerms = 0;
    ZernikeSet coefficients{};
    FitFringeCenters({ticks.X, ticks.Y, ticks.Z}, mask.View(), frame, numTerms, coefficients);
    deriveAll(coefficients, mask.View(), frame);
    return fringes.NumFringes() == picture.NumFringes && numTerms == NumZernikes;
}

void travelWholeRoad(benchmark::State& state)
{
    BenchPicture& picture = LargePicture();
    while (state.KeepRunning())
        if (!travel(picture))
            state.SkipWithError("the road does not lead to a fit of all fringes");
}

BENCHMARK(traceLarge)->Name("AutoTrace/ours");
BENCHMARK(decodeLarge)->Name("AutoTrace/reference");
BENCHMARK(traceLarge)->Name("AutoTraceScaling/ours");
BENCHMARK(traceSmall)->Name("AutoTraceScaling/reference");
BENCHMARK(fillPolygon)->Name("PolygonMask/ours");
BENCHMARK(clearMask)->Name("PolygonMask/reference");
BENCHMARK(travelWholeRoad)->Name("WholeRoad/ours");
BENCHMARK(decodeLarge)->Name("WholeRoad/reference");

} // namespace
} // namespace morvane
