// The one application that windows and texts of the benchmarks need, without a screen.
#pragma once

namespace morvane {

// Made once and never ended: there is no place to end it from.
void HaveApplication();

} // namespace morvane
