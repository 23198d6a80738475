// What scripts may write for a choice: its number, or one of its names in any case. None if the
// value is neither.
#pragma once
#include <optional>
#include <span>

#include "automation/Variant.h"
#include "geometry/clsShape.h"
#include "geometry/modTrace.h"
#include "shell/AnalyzeBox.h"

namespace morvane {

enum class AberrationType {
    Tilt = 0,
    TiltAngle = 1,
    Defocus = 2,
    Astigmatism = 3,
    AstigmatismAngle = 4,
    Coma = 5,
    ComaAngle = 6,
    SA = 7,
    RMS = 8,
    PV = 9,
    Strehl = 10,
};
bool IsAngle(AberrationType Type);

// A finite number, or a text that is one.
std::optional<double> Numeric(const Variant& Value);
// A number without a fraction.
std::optional<int> WholeNumber(const Variant& Value);
bool AllFinite(std::span<const double> Values);

std::optional<AberrationType> AberrationKeyword(const Variant& Value);
std::optional<FringeDensity> DensityKeyword(const Variant& Value);
std::optional<FringeDirection> DirectionKeyword(const Variant& Value);
std::optional<ShapeKind> ShapeKeyword(const Variant& Value);
// A radial order: 0 or "AUTO", 2, 4, 6, 8.
std::optional<OrderLimit> OrderLimitKeyword(const Variant& Value);

} // namespace morvane
