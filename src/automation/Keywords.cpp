#include "automation/Keywords.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string_view>

#include "platform/Numbers.h"

namespace morvane {
namespace {

struct Keyword {
    std::string_view Name;
    int Value;
};

constexpr Keyword aberrations[] = {
    {"TILT", 0},
    {"TILTANGLE", 1},
    {"TILT ANGLE", 1},
    {"DEFOCUS", 2},
    {"ASTIGMATISM", 3},
    {"ASTIGMATISMANGLE", 4},
    {"ASTIGMATISM ANGLE", 4},
    {"COMA", 5},
    {"COMAANGLE", 6},
    {"COMA ANGLE", 6},
    {"SA", 7},
    {"S.A.", 7},
    {"SPHERICAL ABERRATION", 7},
    {"RMS", 8},
    {"PV", 9},
    {"P-V", 9},
    {"PEAKVALLEY", 9},
    {"PEAK VALLEY", 9},
    {"PEAK-VALLEY", 9},
    {"STREHL", 10},
    {"STREHL RATIO", 10},
};
constexpr Keyword densities[] = {{"SUPERFINE", 1}, {"FINE", 2}, {"NORMAL", 3}, {"COARSE", 4}};
constexpr Keyword directions[] = {{"HORIZONTAL", 0}, {"H", 0}, {"VERTICAL", 1}, {"V", 1}};
constexpr Keyword shapes[] = {{"CIRCLE", 1}, {"ELLIPSE", 2}, {"POLYGON", 3}};
constexpr Keyword orderLimits[] = {{"AUTO", 0}};

std::string UpperCase(std::string Text)
{
    std::transform(Text.begin(), Text.end(), Text.begin(),
        [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return Text;
}

// The number of a name, or the number itself.
std::optional<int> Lookup(std::span<const Keyword> Names, const Variant& Value)
{
    const auto* text = std::get_if<std::string>(&Value);
    if (!text)
        return WholeNumber(Value);
    const auto found = std::find_if(Names.begin(), Names.end(),
        [&](const Keyword& keyword) { return keyword.Name == UpperCase(*text); });
    return found != Names.end() ? std::optional(found->Value) : std::nullopt;
}

template <typename Choice>
std::optional<Choice> ChoiceOf(std::span<const Keyword> Names, const Variant& Value)
{
    const std::optional<int> number = Lookup(Names, Value);
    const bool known = number && std::any_of(Names.begin(), Names.end(), [&](const Keyword& k) {
        return k.Value == *number;
    });
    return known ? std::optional(static_cast<Choice>(*number)) : std::nullopt;
}

} // namespace

bool IsAngle(AberrationType Type)
{
    return Type == AberrationType::TiltAngle || Type == AberrationType::AstigmatismAngle
        || Type == AberrationType::ComaAngle;
}

std::optional<double> Numeric(const Variant& Value)
{
    std::optional<double> number;
    if (const auto* whole = std::get_if<std::int64_t>(&Value))
        number = static_cast<double>(*whole);
    else if (const auto* real = std::get_if<double>(&Value))
        number = *real;
    else if (const auto* text = std::get_if<std::string>(&Value); text && IsNumeric(*text))
        number = LeadingNumber(*text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<int> WholeNumber(const Variant& Value)
{
    const std::optional<double> number = Numeric(Value);
    if (!number || std::abs(*number) > 2147483647.0 || *number != std::floor(*number))
        return std::nullopt;
    return static_cast<int>(*number);
}

bool AllFinite(std::span<const double> Values)
{
    return std::all_of(Values.begin(), Values.end(), [](double v) { return std::isfinite(v); });
}

std::optional<AberrationType> AberrationKeyword(const Variant& Value)
{
    return ChoiceOf<AberrationType>(aberrations, Value);
}

std::optional<FringeDensity> DensityKeyword(const Variant& Value)
{
    return ChoiceOf<FringeDensity>(densities, Value);
}

std::optional<FringeDirection> DirectionKeyword(const Variant& Value)
{
    return ChoiceOf<FringeDirection>(directions, Value);
}

std::optional<ShapeKind> ShapeKeyword(const Variant& Value)
{
    return ChoiceOf<ShapeKind>(shapes, Value);
}

std::optional<OrderLimit> OrderLimitKeyword(const Variant& Value)
{
    const std::optional<int> order = Lookup(orderLimits, Value);
    if (!order)
        return std::nullopt;
    switch (*order) {
    case 0:
        return OrderLimit::Automatic;
    case 2:
        return OrderLimit::Second;
    case 4:
        return OrderLimit::Fourth;
    case 6:
        return OrderLimit::Sixth;
    case 8:
        return OrderLimit::Eighth;
    default:
        return std::nullopt;
    }
}

} // namespace morvane
