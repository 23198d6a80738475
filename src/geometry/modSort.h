// Gives traced fringes consecutive orders from left to right and joins the two halves of a fringe
// that an obstruction has cut. Works in the frame of the tracer: fringes run along y.
#pragma once
#include "geometry/StripRaster.h"
#include "geometry/modTrace.h"

namespace morvane {

// Mask is upright; Turn tells how it lies in the frame of the tracer. Ticks lie in the mask. Slots
// without ticks keep their order.
void SortOrders(
    clsFringes& Fringes, const MaskView& Mask, Orientation Turn, const TraceParameters& Parameters);

} // namespace morvane
