// How the grid is drawn.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>

#include "document/clsGrid.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

// The lines across one axis. Positions are device pixels, not rounded yet.
struct GridLines {
    double First, Last, Step;

    // Calls Draw with the device position of each line between Low and High, once for each: from
    // First in whole steps, and one at Last if the steps stop short of it. Steps of less than a
    // pixel hit every position, which is walked from a whole one: halves rounded to even would
    // leave out every other.
    template <typename DrawLine>
    void ForEach(int low, int high, DrawLine draw) const
    {
        constexpr double shortfall = 1e-9; // of a step, by rounding
        const double step = std::max(Step, 1.0);
        const double first = Step < 1 ? std::nearbyint(First) : First;
        const double from = std::max(0.0, std::floor((low - first) / step));
        const double to = (std::min(Last, static_cast<double>(high)) - first) / step + shortfall;
        // Counted from the first line shown, for far enough out a double cannot count on.
        const double mostShown = static_cast<double>(high) - low + 1;
        const std::int64_t last = RoundToLong(std::floor(std::min(to - from, mostShown)));
        std::optional<int> before;
        for (std::int64_t i = 0; i <= last; ++i) {
            const int at = RoundToLong(first + (from + static_cast<double>(i)) * step);
            if (at != before)
                draw(at);
            before = at;
        }
        if (const int end = RoundToLong(Last); end != before)
            draw(end);
    }
};

} // namespace

void clsGrid::Draw(Device& On, const ImageMapping& Map, RasterOp Op) const
{
    if (!IsDefined(GridIsCalibrated + GridHasBounds))
        return;
    const clsRasterOpScope operation(On, Op);
    const clsPenScope pen(On, {White, 1});
    const double left = (UpperLeftX - Map.OffsetX) * Map.Zoom;
    const double top = (UpperLeftY - Map.OffsetY) * Map.Zoom;
    const double right = left + PixelWidth * Map.Zoom, bottom = top + PixelHeight * Map.Zoom;
    const DevicePoint low{RoundToLong(left), RoundToLong(top)};
    const DevicePoint high{RoundToLong(right), RoundToLong(bottom)};
    const double scale = PixelWidth / PhysicalWidth * Map.Zoom; // device pixels a millimetre
    const DeviceRect shown = On.Bounds();
    GridLines{left, right, scale * CellWidth}.ForEach(shown.Left, shown.Right, [&](int x) {
        On.DrawPolyline(std::array{DevicePoint{x, low.Y}, DevicePoint{x, high.Y}});
    });
    GridLines{top, bottom, scale * CellHeight}.ForEach(shown.Top, shown.Bottom, [&](int y) {
        On.DrawPolyline(std::array{DevicePoint{low.X, y}, DevicePoint{high.X, y}});
    });
}

} // namespace morvane
