#include "report/ProfilePane.h"

#include "views/ProfileChart.h"

namespace morvane {

void DrawProfilePane(Device& On, const DeviceRect& Box, const ProfileData& Shown, DeviceSize Screen)
{
    clsLineProfile plot;
    if (!LoadProfile(plot, Shown))
        return;
    plot.Chart.SetTickMarkLengths(DiagonalRatio(On.Figures().Physical, Screen));
    plot.Chart.CreateChartLimits(On, Box);
    plot.PlotRedraw(On);
}

} // namespace morvane
