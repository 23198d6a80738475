// Traces of values over a chart. The points of all traces lie in one pair of arrays, so that to
// fill a trace anew takes no memory.
//
// Traces are counted from 1; an operation on one that is not there does nothing.
#pragma once
#include <array>
#include <optional>
#include <span>
#include <vector>

#include "platform/Point.h"
#include "views/clsChart2D.h"

namespace morvane {

enum class MarkerType {
    Square = 0,
    Circle = 1,
    Triangle = 2,
    Diamond = 3,
    Plus = 4,
    Pixel = 5,
    None = 6
};

struct ProfileTrace {
    int Size = 0, NumPoints = 0, FirstIndex = 0; // points reserved, filled; where they start
    PenStyle LineStyle = PenStyle::Solid;
    int LineWidth = 1;
    int LineColor = 0; // index into LineColors
    MarkerType Marker = MarkerType::None;
    Color MarkerLineColor = Black, MarkerFillColor = Black;
    int MarkerSize = 10; // device units
    bool MarkerFilled = false;
    bool OnTopAxis = false, OnRightAxis = false; // instead of the bottom and the left one
    bool XOutOfBounds = false, YOutOfBounds = false; // some point lies far off the device
    bool Hidden = false;
    double XStep = 0; // between the first two points
};

class clsLineProfile {
public:
    static constexpr int MaxTraces = 128;
    static constexpr int BackgroundColor = 15; // among the line colours; no trace is given it

    clsChart2D Chart;
    double MinYSpan = NoPoint; // least span that AutoScale gives to an axis along y
    std::array<Color, 17> LineColors{};

    // AxisAt of the left axis is its Min.
    void SetYAxisMinMax(double Min, double Max);

    // The new trace's number; 0 without memory, for a Size that is not positive, and beyond the
    // last one.
    int CreateTrace(int Size);
    // As many of the points as there is room for.
    void PopulateTrace(int Id, std::span<const double> X, std::span<const double> Y);
    void DeleteTrace(int Id);
    void DeleteAllTraces();
    int NumTraces() const { return static_cast<int>(m_traces.size()); }
    ProfileTrace* Trace(int Id);

    // Fits the free limits of an axis to its traces, 0 and 1 if they hold no data, and divides it.
    // Whether the limits have changed.
    bool AutoScale(int Axis);

    void PlotRedraw(Device& On);

    // The data at a place on the device, in the units of the labels; none on a degenerate axis.
    std::optional<double> GetCoord(int Axis, int At) const;

    // The colour that the fewest traces have.
    int GetNewLineColor() const;

private:
    std::span<const double> XOf(const ProfileTrace& Of) const;
    std::span<const double> YOf(const ProfileTrace& Of) const;
    std::optional<AxisMapping> MappingOf(int Axis) const;
    bool IsOn(const ProfileTrace& Of, int Axis) const;
    void Extend(const ProfileTrace& With, int Axis, double& Least, double& Most) const;
    void TraceCheckBounds(ProfileTrace& Of, int Axis) const;
    void PlacePoints(const ProfileTrace& Of, const AxisMapping& Across, const AxisMapping& Up);
    void DrawTrace(Device& On, ProfileTrace& Of);

    std::vector<double> m_xValues, m_yValues;
    std::vector<ProfileTrace> m_traces;
    std::vector<DevicePoint> m_points; // of the trace that is drawn
};

} // namespace morvane
