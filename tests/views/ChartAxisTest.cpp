#include "views/ChartAxis.h"

#include <gmock/gmock.h>

namespace morvane {
namespace {

using testing::ElementsAre;

ChartAxis AxisOver(double min, double max, double major)
{
    ChartAxis axis;
    axis.SetMinMax(min, max, min);
    axis.Major = major;
    axis.AutoScaleMinor();
    axis.CreateTickLabels();
    return axis;
}

std::vector<int> MajorPlaces(const ChartAxis& axis, AxisPixels pixels)
{
    const TickRow row = MajorTicks(axis, pixels, 4);
    std::vector<int> places;
    for (int i = 0; i < row.Count; ++i)
        places.push_back(row.At(i));
    return places;
}

TEST(ChartAxisScale, ExponentsAndIndices)
{
    const int exponents[] = {18, 15, 12, 9, 6, 3, 2, 1, 0, -1, -2, -3, -6, -9, -12, -15, -18};
    for (int i = 0; i < 17; ++i) {
        EXPECT_EQ(Idx2Exp(i), exponents[i]);
        EXPECT_EQ(Exp2Idx(exponents[i]), i);
    }
    EXPECT_EQ(Idx2Exp(-1), 0);
    EXPECT_EQ(Idx2Exp(17), 0);
    EXPECT_EQ(Exp2Idx(-5), 12);
    EXPECT_EQ(Exp2Idx(4), 5);
    EXPECT_EQ(Exp2Idx(-19), 16);
    EXPECT_EQ(Exp2Idx(19), 0);
}

TEST(ChartAxisScale, HintDividesTheSpan)
{
    const struct {
        double Min, Max;
        int Hint;
        double Major;
    } cases[] = {
        {0, 10, 0, 2},
        {0, 3, 3, 0.5},
        {1, 10, 9, 1.5},
        {0, 5, 5, 1},
        {0, 2, 2, 0.5},
        {1, 3, 2, 0.4},
        {0, 8, 8, 2},
    };
    for (const auto& c : cases) {
        ChartAxis axis;
        axis.AutoScaleMajor(c.Min, c.Max, c.Hint);
        axis.AutoScaleMinor();
        EXPECT_DOUBLE_EQ(axis.Major, c.Major) << c.Hint;
        EXPECT_DOUBLE_EQ(axis.Minor, c.Major / 5) << c.Hint;
    }
    ChartAxis fixed;
    fixed.AutoMajor = fixed.AutoMinor = false;
    fixed.AutoScaleMajor(0, 10, 0);
    fixed.AutoScaleMinor();
    EXPECT_EQ(fixed.Major, 0);
    EXPECT_EQ(fixed.Minor, 0);
}

TEST(ChartAxisLabels, AreTheValuesOfTheTicks)
{
    EXPECT_THAT(AxisOver(-1, 1, 0.4).Labels, ElementsAre("-1", "-0.6", "-0.2", "0.2", "0.6", "1"));
    EXPECT_THAT(AxisOver(-0.3, 0.3, 0.1).Labels,
        ElementsAre("-0.3", "-0.2", "-0.1", "0", "0.1", "0.2", "0.3"));
    EXPECT_THAT(AxisOver(0, 3e6, 1e6).Labels, ElementsAre("0", "1E6", "2E6", "3E6"));
    ChartAxis thousandths = AxisOver(0, 0.0055, 0.0025);
    thousandths.SfactorIdx = Exp2Idx(-3);
    thousandths.CreateTickLabels();
    EXPECT_THAT(thousandths.Labels, ElementsAre("0", "2.5", "5"));
    thousandths.LabelDigits = 1;
    thousandths.CreateTickLabels();
    EXPECT_THAT(thousandths.Labels, ElementsAre("0", "3", "5"));
    ChartAxis decades = AxisOver(0.1, 100, 10);
    decades.Log = true;
    decades.CreateTickLabels();
    EXPECT_THAT(decades.Labels, ElementsAre("0.1", "1", "10", "100"));
}

TEST(ChartAxisLabels, TellNeighboursApart)
{
    EXPECT_THAT(AxisOver(1000, 1000.05, 0.01).Labels,
        ElementsAre("1000", "1000.01", "1000.02", "1000.03", "1000.04", "1000.05"));
    EXPECT_THAT(AxisOver(0, 2, 1e-12).Labels, ElementsAre("0", "2")) << "far too many for all";
}

TEST(ChartAxisLabels, StayOnADegenerateAxis)
{
    ChartAxis axis = AxisOver(0, 2, 1);
    for (const double max : {0.0, -1.0}) {
        axis.Max = max;
        axis.CreateTickLabels();
        EXPECT_EQ(axis.NumMajor(), 3);
    }
    axis.Max = 2;
    for (const double major : {0.0, -1.0}) {
        axis.Major = major;
        axis.CreateTickLabels();
        EXPECT_EQ(axis.NumMajor(), 3);
    }
}

TEST(ChartAxisTicks, StandAtTheirValues)
{
    EXPECT_THAT(
        MajorPlaces(AxisOver(-1, 1, 0.4), {100, 500}), ElementsAre(100, 200, 300, 400, 500, 600));
    EXPECT_THAT(MajorPlaces(AxisOver(0, 2, 1), {300, -200}), ElementsAre(300, 200, 100));
    // The label of 8 lies beyond the end.
    EXPECT_THAT(MajorPlaces(AxisOver(0, 7, 2), {0, 700}), ElementsAre(0, 200, 400, 600));
    EXPECT_THAT(MajorPlaces(AxisOver(0, 100, 1), {0, 400}), ElementsAre(0, 400));
    EXPECT_EQ(MajorPlaces(AxisOver(0, 100, 1), {0, 500}).size(), 101u);

    ChartAxis backwards = AxisOver(0, 2, 1);
    backwards.SetMinMax(2, 0, 0);
    EXPECT_THAT(MajorPlaces(backwards, {100, 200}), ElementsAre(300, 200, 100));
    ChartAxis single = AxisOver(0, 2, 1);
    single.Labels.resize(1);
    EXPECT_THAT(MajorPlaces(single, {100, 200}), ElementsAre(100));
    ChartAxis none = AxisOver(0, 2, 1);
    none.Max = 0;
    EXPECT_THAT(MajorPlaces(none, {100, 200}), ElementsAre());
}

TEST(ChartAxisTicks, MinorOnesFillTheGaps)
{
    ChartAxis axis = AxisOver(0, 1, 0.5);
    EXPECT_THAT(MinorTicks(axis, {0, 100}, 4, true), ElementsAre(10, 20, 30, 40, 60, 70, 80, 90));
    EXPECT_EQ(MinorTicks(axis, {0, 100}, 4, false).size(), 11u);
    EXPECT_THAT(MinorTicks(axis, {0, 40}, 4, true), ElementsAre());
    // 0.3 / 0.012 is a little below 25 in binary numbers.
    EXPECT_EQ(MinorTicks(AxisOver(0, 0.3, 0.06), {0, 500}, 4, true).size(), 20u);
    axis.Minor = 0;
    EXPECT_THAT(MinorTicks(axis, {0, 100}, 4, true), ElementsAre());
}

TEST(ChartAxisTicks, LogarithmicOnesFollowTheDecades)
{
    ChartAxis axis;
    axis.Log = true;
    axis.SetMinMax(1, 100, 1);
    axis.AutoScaleMajor(1, 100, 10);
    axis.AutoScaleMinor();
    axis.CreateTickLabels();
    EXPECT_THAT(MajorPlaces(axis, {0, 200}), ElementsAre(0, 100, 200));
    EXPECT_THAT(MinorTicks(axis, {0, 200}, 4, true),
        ElementsAre(30, 48, 60, 70, 78, 85, 90, 95, 130, 148, 160, 170, 178, 185, 190, 195));
    axis.Min = 0;
    EXPECT_THAT(MajorPlaces(axis, {0, 200}), ElementsAre());
    EXPECT_THAT(MinorTicks(axis, {0, 200}, 4, true), ElementsAre());
}

} // namespace
} // namespace morvane
