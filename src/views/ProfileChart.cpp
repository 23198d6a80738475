#include "views/ProfileChart.h"

#include "analysis/ModMathLib.h"

namespace morvane {

bool LoadProfile(clsLineProfile& Into, const ProfileData& From)
{
    Into.DeleteAllTraces();
    ChartAxis& across = Into.Chart.Axes[BottomAxis];
    across.SetMinMax(-1, 1, -1);
    across.AutoScaleMajor(-1, 1, 0);
    across.AutoScaleMinor();
    Into.MinYSpan = From.MinYSpan;
    const int trace = Into.CreateTrace(static_cast<int>(From.X.size()));
    if (trace == 0)
        return false;
    Into.PopulateTrace(trace, From.X, From.Y);
    if (From.AutoScale) {
        Into.AutoScale(LeftAxis);
    } else {
        ChartAxis& up = Into.Chart.Axes[LeftAxis];
        Into.SetYAxisMinMax(From.ZMinimum, From.ZMaximum);
        up.AutoScaleMajor(From.ZMinimum, From.ZMaximum, 0);
        up.AutoScaleMinor();
    }
    Into.Chart.SetTitle(BottomAxis, "Profile along " + std::to_string(From.Angle) + " degs");
    Into.Chart.SetTitle(LeftAxis, From.Unit);
    across.CreateTickLabels();
    Into.Chart.Axes[LeftAxis].CreateTickLabels();
    return true;
}

} // namespace morvane
