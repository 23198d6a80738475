#include "views/ChartAxis.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "analysis/ModMathLib.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

// What steps of binary fractions may lack of a whole number.
constexpr double StepNoise = 1e-6;

bool IsUsable(const ChartAxis& axis)
{
    const bool isPositive = axis.Min > 0 && axis.Max > 0;
    return axis.Min != axis.Max && (!axis.Log || isPositive);
}

double LogIf(bool isLog, double value)
{
    return isLog ? std::log10(value) : value;
}

// How many steps of that size the axis is long, not rounded; on a logarithmic axis a step is a
// factor.
double StepsAlong(const ChartAxis& axis, double step)
{
    if (axis.Log)
        return step > 1 ? std::abs(std::log10(axis.Max / axis.Min)) / std::log10(step) : 0;
    return step > 0 ? std::abs(axis.Max - axis.Min) / step : 0;
}

std::vector<int> LinearMinorTicks(
    const ChartAxis& axis, AxisPixels pixels, int minorLength, bool skipMajor)
{
    const double steps = StepsAlong(axis, axis.Minor);
    if (steps < 1 - StepNoise || !(std::abs(pixels.Length) / steps > minorLength))
        return {};
    const double spacing = pixels.Length / steps;
    const int between = skipMajor ? RoundToLong(axis.Major / axis.Minor) : 0;
    std::vector<int> places;
    for (int i = 0; i <= static_cast<int>(steps + StepNoise); ++i)
        if (between < 1 || i % between != 0)
            places.push_back(pixels.Start + RoundToLong(i * spacing));
    return places;
}

std::vector<int> LogMinorTicks(const TickRow& majors)
{
    std::vector<int> places;
    for (int i = 0; i + 1 < majors.Count && !majors.OnlyEnds; ++i)
        for (int k = 2; k <= 9; ++k)
            places.push_back(majors.At(i) + RoundToLong(std::log10(k) * majors.Spacing));
    return places;
}

// The ticks of an axis that runs backwards start at its other end.
AxisPixels FromTheLower(const ChartAxis& axis, AxisPixels pixels)
{
    if (axis.Max >= axis.Min)
        return pixels;
    return {pixels.Start + pixels.Length, -pixels.Length};
}

} // namespace

int Idx2Exp(int Index)
{
    if (Index < 0 || Index > 16)
        return 0;
    if (Index <= 5)
        return (6 - Index) * 3;
    return Index <= 10 ? 8 - Index : (10 - Index) * 3;
}

int Exp2Idx(int Exponent)
{
    if (Exponent < -18)
        return 16;
    if (Exponent > 18)
        return 0;
    if (Exponent < -3)
        return RoundToLong((30 - Exponent) / 3.0);
    return Exponent <= 3 ? 8 - Exponent : RoundToLong((18 - Exponent) / 3.0);
}

void ChartAxis::SetMinMax(double NewMin, double NewMax, double NewAxisAt)
{
    Min = NewMin;
    Max = NewMax;
    AxisAt = NewAxisAt;
}

void ChartAxis::AutoScaleMajor(double From, double To, int Hint)
{
    if (!AutoMajor)
        return;
    const double span = std::abs(To - From);
    if (Log)
        Major = 10;
    else if (Hint == 0)
        Major = span / 5;
    else if (Hint % 3 == 0)
        Major = span / 6;
    else
        Major = Hint % 2 != 0 || From != 0 ? span / 5 : span / 4;
}

void ChartAxis::AutoScaleMinor()
{
    if (AutoMinor)
        Minor = Log ? 10 : Major / 5;
}

void ChartAxis::CreateTickLabels()
{
    constexpr int most = 10000; // more than any device has room for: the ends only
    if (!(Max > Min) || !IsUsable(*this))
        return;
    const double steps = StepsAlong(*this, Major);
    if (!(steps > 0))
        return;
    const double factor = std::pow(10, -ScaleExponent());
    std::vector<double> values{Min * factor, Max * factor};
    if (steps < most) {
        const double step = factor * Major, start = Min * factor;
        values.resize(static_cast<std::size_t>(RoundToLong(steps)) + 1);
        for (int i = 0; double& value : values) {
            value = Log ? start * std::pow(Major, i) : i * step + start;
            if (!Log && std::abs(value) < std::abs(step) / 100)
                value = 0;
            ++i;
        }
    }
    Labels.clear();
    for (const double value : values)
        Labels.push_back(FormatSignificant(value, LabelDigits, NumberStyle::Automatic));
    // Digits that look like noise may be all that tells one tick from the next.
    if (LabelDigits < 1 && std::ranges::adjacent_find(Labels) != Labels.end())
        std::ranges::transform(values, Labels.begin(), FormatGeneral);
}

std::optional<AxisMapping> AxisMapping::Of(const ChartAxis& Axis, AxisPixels Pixels)
{
    if (!IsUsable(Axis))
        return std::nullopt;
    AxisMapping mapping;
    mapping.m_isLog = Axis.Log;
    mapping.m_lowest = std::min(Axis.Min, Axis.Max);
    const double from = LogIf(Axis.Log, Axis.Min);
    mapping.m_scale = Pixels.Length / (LogIf(Axis.Log, Axis.Max) - from);
    mapping.m_offset = Pixels.Start - mapping.m_scale * from;
    return mapping;
}

double AxisMapping::ToDevice(double Value) const
{
    if (m_isLog)
        Value = std::log10(Value > 0 ? Value : m_lowest);
    return m_offset + m_scale * Value;
}

double AxisMapping::ToData(double Device) const
{
    const double value = (Device - m_offset) / m_scale;
    return m_isLog ? std::pow(10, value) : value;
}

int TickRow::At(int Index) const
{
    return Start + RoundToLong(Index * Spacing);
}

TickRow MajorTicks(const ChartAxis& Axis, AxisPixels Pixels, int MinorLength)
{
    const double steps = StepsAlong(Axis, Axis.Major);
    if (!IsUsable(Axis) || !(steps > 0))
        return {};
    const auto [start, length] = FromTheLower(Axis, Pixels);
    const int within = static_cast<int>(std::min<double>(steps + StepNoise, Axis.NumMajor())) + 1;
    const TickRow row{std::min(Axis.NumMajor(), within), start, length / steps};
    if (row.Count > 1 && MinorLength >= std::abs(row.Spacing))
        return {2, start, static_cast<double>(length), true};
    return row;
}

std::vector<int> MinorTicks(
    const ChartAxis& Axis, AxisPixels Pixels, int MinorLength, bool SkipMajor)
{
    if (!IsUsable(Axis))
        return {};
    if (Axis.Log)
        return LogMinorTicks(MajorTicks(Axis, Pixels, MinorLength));
    return LinearMinorTicks(Axis, FromTheLower(Axis, Pixels), MinorLength, SkipMajor);
}

} // namespace morvane
