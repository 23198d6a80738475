#include "geometry/modTrace.h"

#include <algorithm>
#include <new>
#include <vector>

#include "geometry/FringeTracer.h"
#include "geometry/ValleyField.h"
#include "geometry/modSort.h"

namespace morvane {

TraceParameters AutoTraceParameters(FringeDensity Density)
{
    switch (Density) {
    case FringeDensity::SuperFine:
        return {.TickRowStep = 4,
            .TickDistSq = 36,
            .SameFringeTol = 2,
            .OtherFringeTol = 10,
            .ScanRowStep = 20};
    case FringeDensity::Fine:
        return {.TickRowStep = 6,
            .TickDistSq = 81,
            .SameFringeTol = 3,
            .OtherFringeTol = 10,
            .ScanRowStep = 20};
    case FringeDensity::Coarse:
        return {.TickRowStep = 12,
            .TickDistSq = 256,
            .SameFringeTol = 6,
            .OtherFringeTol = 12,
            .ScanRowStep = 25};
    case FringeDensity::Normal:
        break;
    }
    return {.TickRowStep = 8,
        .TickDistSq = 144,
        .SameFringeTol = 4,
        .OtherFringeTol = 10,
        .ScanRowStep = 20};
}

namespace {

bool fits(const clsMask& mask, std::span<const std::uint8_t> image, RasterSize size)
{
    const std::int64_t factor = mask.HalfSize ? 2 : 1;
    return mask.HasMask() && mask.Width() >= 1 && mask.Height() >= 1
        && mask.Width() == factor * size.Width && mask.Height() == factor * size.Height
        && image.size() == static_cast<std::size_t>(size.Width) * size.Height;
}

// The picture that is traced, of the mask's size.
StripRaster smoothed(std::span<const std::uint8_t> image, RasterSize size, Orientation turn)
{
    return {size, turn, [=](int row, int firstColumn, std::span<std::uint8_t> target) {
                SmoothRow(image, size, row, firstColumn, target);
            }};
}

StripRaster smoothedDouble(std::span<const std::uint8_t> image, RasterSize size, Orientation turn)
{
    const RasterSize twice = ResampledSize(size, 1, 2);
    std::vector<std::uint8_t> enlarged(static_cast<std::size_t>(twice.Width) * twice.Height);
    ResampleImage(image, size, enlarged, 1, 2);
    return smoothed(enlarged, twice, turn);
}

} // namespace

TraceOutcome AutoTrace(clsFringes& Fringes, const clsMask& Mask,
    std::span<const std::uint8_t> Image, RasterSize Size, FringeDirection Direction,
    FringeDensity Density)
{
    if (!fits(Mask, Image, Size))
        return TraceOutcome::NothingTraced;
    Fringes.DeleteAll();
    try {
        const TraceParameters parameters = AutoTraceParameters(Density);
        const bool isVertical = Direction == FringeDirection::Vertical;
        const auto turn = isVertical ? Orientation::Upright : Orientation::Transposed;
        const StripRaster picture =
            Mask.HalfSize ? smoothedDouble(Image, Size, turn) : smoothed(Image, Size, turn);
        const InsideRuns inside(Mask.View(), turn);

        const ValleyField field(picture, inside);
        const bool hadRoom = FringeTracer(Fringes, field, parameters).ScanRows();
        SortOrders(Fringes, Mask.View(), turn, parameters);
        if (Mask.HalfSize)
            Fringes.HalfFringeData();
        if (!isVertical)
            Fringes.TransposeAll();
        return hadRoom ? TraceOutcome::Done : TraceOutcome::TooManyFringes;
    } catch (const std::bad_alloc&) {
        Fringes.DeleteAll();
        return TraceOutcome::OutOfMemory;
    }
}

} // namespace morvane
