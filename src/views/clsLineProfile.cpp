#include "views/clsLineProfile.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <numeric>

#include "analysis/ModMathLib.h"
#include "analysis/modSurface.h"
#include "platform/Numbers.h"
#include "views/ProfileMarkers.h"

namespace morvane {
namespace {

// Device units; no device is as large, and no sum or product of such overflows.
constexpr double FarOff = 32000;

bool IsFarOff(double device)
{
    return !(std::abs(device) <= FarOff);
}

// Whether what is left of the data is rounding: on the frame it would look like no trace at all.
bool IsLevel(double min, double max, double minSpan)
{
    constexpr double negligible = 1e-6;
    return max - min <= (minSpan == NoPoint ? 0 : negligible * minSpan);
}

// A level trace gets the least span about it, so that it shows.
void WidenAround(double& min, double& max, const ChartAxis& axis, double minSpan)
{
    if (axis.Log || !axis.AutoMin || !axis.AutoMax)
        return;
    const double span = minSpan == NoPoint ? 1 : minSpan;
    const double middle = std::midpoint(min, max);
    min = middle - span / 2;
    max = middle + span / 2;
}

} // namespace

void clsLineProfile::SetYAxisMinMax(double Min, double Max)
{
    Chart.Axes[LeftAxis].SetMinMax(Min, Max, Min);
}

int clsLineProfile::CreateTrace(int Size)
{
    if (Size <= 0 || NumTraces() == MaxTraces)
        return 0;
    ProfileTrace trace;
    trace.Size = Size;
    trace.FirstIndex = static_cast<int>(m_xValues.size());
    const std::size_t numValues = m_xValues.size() + static_cast<std::size_t>(Size);
    try {
        m_traces.reserve(m_traces.size() + 1);
        m_yValues.reserve(numValues);
        m_xValues.resize(numValues);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    m_yValues.resize(numValues);
    m_traces.push_back(trace);
    return NumTraces();
}

void clsLineProfile::PopulateTrace(int Id, std::span<const double> X, std::span<const double> Y)
{
    ProfileTrace* const trace = Trace(Id);
    if (!trace)
        return;
    const std::size_t count = std::min({X.size(), Y.size(), static_cast<std::size_t>(trace->Size)});
    std::copy_n(X.begin(), count, m_xValues.begin() + trace->FirstIndex);
    std::copy_n(Y.begin(), count, m_yValues.begin() + trace->FirstIndex);
    trace->NumPoints = static_cast<int>(count);
    if (count > 1)
        trace->XStep = X[1] - X[0];
}

void clsLineProfile::DeleteTrace(int Id)
{
    const ProfileTrace* const trace = Trace(Id);
    if (!trace)
        return;
    const int first = trace->FirstIndex, size = trace->Size;
    for (std::vector<double>* values : {&m_xValues, &m_yValues})
        values->erase(values->begin() + first, values->begin() + first + size);
    m_traces.erase(m_traces.begin() + Id - 1);
    for (ProfileTrace& later : m_traces)
        if (later.FirstIndex > first)
            later.FirstIndex -= size;
}

void clsLineProfile::DeleteAllTraces()
{
    m_xValues.clear();
    m_yValues.clear();
    m_traces.clear();
}

ProfileTrace* clsLineProfile::Trace(int Id)
{
    return Id >= 1 && Id <= NumTraces() ? &m_traces[static_cast<std::size_t>(Id) - 1] : nullptr;
}

std::span<const double> clsLineProfile::XOf(const ProfileTrace& Of) const
{
    return std::span(m_xValues).subspan(
        static_cast<std::size_t>(Of.FirstIndex), static_cast<std::size_t>(Of.NumPoints));
}

std::span<const double> clsLineProfile::YOf(const ProfileTrace& Of) const
{
    return std::span(m_yValues).subspan(
        static_cast<std::size_t>(Of.FirstIndex), static_cast<std::size_t>(Of.NumPoints));
}

bool clsLineProfile::IsOn(const ProfileTrace& Of, int Axis) const
{
    if (Of.NumPoints == 0 || Of.Hidden)
        return false;
    return IsVertical(Axis) ? Of.OnRightAxis == (Axis == RightAxis)
                            : Of.OnTopAxis == (Axis == TopAxis);
}

// X values rise along a trace.
void clsLineProfile::Extend(const ProfileTrace& With, int Axis, double& Least, double& Most) const
{
    if (!IsVertical(Axis)) {
        Least = std::min(Least, XOf(With).front());
        Most = std::max(Most, XOf(With).back());
        return;
    }
    for (const double y : YOf(With))
        if (y != NoData) {
            Least = std::min(Least, y);
            Most = std::max(Most, y);
        }
}

bool clsLineProfile::AutoScale(int Axis)
{
    if (m_traces.empty())
        return false;
    ChartAxis& axis = Chart.Axes[static_cast<std::size_t>(Axis)];
    double min = axis.Min, max = axis.Max;
    int hint = 0;
    if (!axis.AutoMin && !axis.AutoMax) {
        hint = ScaleDivisionHint(min, max);
    } else {
        double least = std::numeric_limits<double>::infinity(), most = -least;
        for (const ProfileTrace& trace : m_traces)
            if (IsOn(trace, Axis))
                Extend(trace, Axis, least, most);
        const bool hasData = least <= most;
        if (axis.AutoMin)
            min = hasData ? least : 0;
        if (axis.AutoMax)
            max = hasData ? most : 1;
        const double minSpan = IsVertical(Axis) && hasData ? MinYSpan : NoPoint;
        if (hasData && IsLevel(min, max, minSpan))
            WidenAround(min, max, axis, minSpan);
        hint = AutoScaleRange(min, max, axis.Log, axis.AutoMin, axis.AutoMax, minSpan);
    }
    const bool hasChanged = min != axis.Min || max != axis.Max;
    axis.AutoScaleMajor(min, max, hint);
    axis.AutoScaleMinor();
    axis.SetMinMax(min, max, axis.AutoScaleFactor ? min : axis.AxisAt);
    return hasChanged;
}

std::optional<AxisMapping> clsLineProfile::MappingOf(int Axis) const
{
    return AxisMapping::Of(Chart.Axes[static_cast<std::size_t>(Axis)], Chart.PixelsOf(Axis));
}

void clsLineProfile::TraceCheckBounds(ProfileTrace& Of, int Axis) const
{
    const auto mapping = MappingOf(Axis);
    if (!mapping)
        return;
    const auto isFarOff = [&mapping](double value) { return IsFarOff(mapping->ToDevice(value)); };
    if (!IsVertical(Axis))
        Of.XOutOfBounds = isFarOff(XOf(Of).front()) || isFarOff(XOf(Of).back());
    else
        Of.YOutOfBounds = std::ranges::any_of(
            YOf(Of), [&](double value) { return value != NoData && isFarOff(value); });
}

void clsLineProfile::PlotRedraw(Device& On)
{
    Chart.ChartRedraw(On);
    const DeviceRect plot = Chart.PlotArea();
    if (plot.Width() <= 0 || plot.Height() <= 0)
        return;
    const clsClipScope clip(On, plot);
    for (ProfileTrace& trace : m_traces)
        DrawTrace(On, trace);
}

// Gaps in the data fall to the bottom of the plot area.
void clsLineProfile::PlacePoints(
    const ProfileTrace& Of, const AxisMapping& Across, const AxisMapping& Up)
{
    const auto x = XOf(Of), y = YOf(Of);
    const double bottom = Chart.Axes[Of.OnRightAxis ? RightAxis : LeftAxis].Min;
    const auto place = [](const AxisMapping& by, double value, bool isOutOfBounds) {
        const double at = by.ToDevice(value);
        return RoundToLong(isOutOfBounds ? std::clamp(at, -FarOff, FarOff) : at);
    };
    m_points.resize(x.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        m_points[i] = {place(Across, x[i], Of.XOutOfBounds),
            place(Up, y[i] == NoData ? bottom : y[i], Of.YOutOfBounds)};
}

void clsLineProfile::DrawTrace(Device& On, ProfileTrace& Of)
{
    if (Of.NumPoints == 0 || Of.Hidden)
        return;
    const int xAxis = Of.OnTopAxis ? TopAxis : BottomAxis;
    const int yAxis = Of.OnRightAxis ? RightAxis : LeftAxis;
    const auto across = MappingOf(xAxis), up = MappingOf(yAxis);
    if (!across || !up)
        return;
    TraceCheckBounds(Of, xAxis);
    TraceCheckBounds(Of, yAxis);
    PlacePoints(Of, *across, *up);
    const auto color = static_cast<std::size_t>(std::clamp<int>(Of.LineColor, 0, 16));
    if (Of.LineStyle != PenStyle::None) {
        const clsPenScope pen(On, {LineColors[color], Of.LineWidth, Of.LineStyle});
        On.DrawPolyline(m_points);
    }
    DrawMarkers(On, Of, m_points);
}

std::optional<double> clsLineProfile::GetCoord(int Axis, int At) const
{
    const ChartAxis& axis = Chart.Axes[static_cast<std::size_t>(Axis)];
    const auto mapping = MappingOf(Axis);
    if (!mapping)
        return std::nullopt;
    return mapping->ToData(At) * std::pow(10, -axis.ScaleExponent());
}

int clsLineProfile::GetNewLineColor() const
{
    std::array<int, 17> users{};
    for (const ProfileTrace& trace : m_traces)
        ++users[static_cast<std::size_t>(std::clamp(trace.LineColor, 0, 16))];
    users[BackgroundColor] = std::numeric_limits<int>::max();
    return static_cast<int>(std::ranges::min_element(users) - users.begin());
}

} // namespace morvane
