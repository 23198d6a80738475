// The tracer: finds the dark fringe centers in an interferogram by scanning every so many rows for
// valleys and following each up and down, dropping ticks at a set spacing. It works on vertical
// fringes; horizontal ones are traced on the transposed picture.
#pragma once
#include <cstdint>
#include <span>

#include "geometry/clsFringes.h"
#include "geometry/clsMask.h"
#include "geometry/modRaster.h"

namespace morvane {

enum class FringeDirection : std::int32_t { Horizontal = 0, Vertical = 1 };
enum class FringeDensity : std::int32_t { SuperFine = 1, Fine = 2, Normal = 3, Coarse = 4 };

struct TraceParameters {
    int TickRowStep; // least row distance between two ticks of a fringe
    int TickDistSq; // least squared distance between two ticks
    double SameFringeTol; // a tick this near an earlier one of its own fringe is not added
    double OtherFringeTol; // a trace stops this near another fringe
    int ScanRowStep; // first scan row, and the step between scan rows
    int MinTicks = 8; // a shorter trace is thrown away
    int EdgeGap = 25; // for SortOrders
    int ObstructionWindow = 15; // for SortOrders
};

// Any other value counts as Normal.
TraceParameters AutoTraceParameters(FringeDensity Density);

enum class TraceOutcome {
    Done,
    TooManyFringes, // what was found before is sorted and kept
    NothingTraced, // mask and picture do not fit, and the fringes stay as they were
    OutOfMemory, // the old fringes are gone
};

// Replaces Fringes by those found in Image where Mask is inside, with ticks in image pixels and
// orders from left to right, or from top to bottom if horizontal. Mask has the size of the image;
// with HalfSize, twice that, and the trace runs on a doubled picture.
TraceOutcome AutoTrace(clsFringes& Fringes, const clsMask& Mask,
    std::span<const std::uint8_t> Image, RasterSize Size, FringeDirection Direction,
    FringeDensity Density);

} // namespace morvane
