// One axis of a chart: its limits, how they are divided and labelled, what it looks like, and where
// its values and ticks fall on a device. Two and three dimensional charts share it.
//
// A degenerate axis (no span, a step that is not positive, a limit that is not positive on a
// logarithmic one) has no ticks and no mapping, so that nothing of it is drawn.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "document/TextFont.h"

namespace morvane {

// A scale factor is 10 to the power of one of these exponents, from 18 at index 0 to -18 at 16.
inline constexpr int UnitFactorIdx = 8; // exponent 0
int Idx2Exp(int Index);
int Exp2Idx(int Exponent);

struct ChartText {
    std::string Text;
    TextFont Style{"Arial", 10};
    TextRotation Rotation = TextRotation::Horizontal;
    bool Shown = true;

    bool IsVisible() const { return Shown && !Text.empty(); }
};

enum class TickMarkStyle { None = 0, Inside = 1, Outside = 2, Both = 3 };

// Device units.
struct TickLengths {
    int Major = 7, Minor = 4;
};

// The pixels of an axis on a device, from that of Min to that of Max; Length has its sign.
struct AxisPixels {
    int Start = 0, Length = 0;
};

struct ChartAxis {
    bool AutoMin = true, AutoMax = true, AutoMajor = true, AutoMinor = true;
    bool AutoScaleFactor = true;
    bool Log = false;
    bool Visible = true;
    TickMarkStyle MajorTicks = TickMarkStyle::Outside, MinorTicks = TickMarkStyle::Outside;
    Pen AxisPen, MinorPen; // the first for the line and the major ticks
    double Min = 0, Max = 0, Major = 0, Minor = 0;
    double AxisAt = 0; // where the line of the axes across stands
    int SfactorIdx = UnitFactorIdx;
    int LabelDigits = 0; // significant; 0 is as many as it takes
    std::vector<std::string> Labels; // one a major tick; an empty one leaves a gap
    ChartText LabelText{{}, {"Arial", 8}}; // how they are written
    ChartText Title;

    int NumMajor() const { return static_cast<int>(Labels.size()); }
    int ScaleExponent() const { return Idx2Exp(SfactorIdx); }
    void SetMinMax(double NewMin, double NewMax, double NewAxisAt);
    // Hint is that of AutoScaleRange or ScaleDivisionHint.
    void AutoScaleMajor(double From, double To, int Hint);
    void AutoScaleMinor();
    // Leaves the labels alone if Max is not above Min.
    void CreateTickLabels();
};

// Values to pixels and back, along one axis.
class AxisMapping {
public:
    static std::optional<AxisMapping> Of(const ChartAxis& Axis, AxisPixels Pixels);

    // On a logarithmic axis a value that is not positive lies at the lower limit.
    double ToDevice(double Value) const;
    double ToData(double Device) const;

private:
    double m_offset = 0, m_scale = 0;
    bool m_isLog = false;
    double m_lowest = 0;
};

// Evenly spaced ticks.
struct TickRow {
    int Count = 0, Start = 0;
    double Spacing = 0;
    bool OnlyEnds = false; // the ticks would run together: the first and the last are left

    int At(int Index) const;
};

TickRow MajorTicks(const ChartAxis& Axis, AxisPixels Pixels, int MinorLength);
// SkipMajor leaves out those that coincide with a major tick.
std::vector<int> MinorTicks(
    const ChartAxis& Axis, AxisPixels Pixels, int MinorLength, bool SkipMajor);

} // namespace morvane
