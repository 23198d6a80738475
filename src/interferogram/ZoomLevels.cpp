#include "interferogram/ZoomLevels.h"

#include <algorithm>

namespace morvane {

bool IsZoomLevel(int Percent)
{
    return std::ranges::find(ZoomLevels, Percent) != ZoomLevels.end();
}

std::size_t ZoomIndexOf(int Percent)
{
    const int listed = IsZoomLevel(Percent) ? Percent : DefaultZoom;
    return static_cast<std::size_t>(std::ranges::find(ZoomLevels, listed) - ZoomLevels.begin());
}

std::optional<int> NextZoom(int Percent, ZoomStep Step)
{
    const std::size_t index = ZoomIndexOf(Percent);
    if (Step == ZoomStep::In)
        return index == 0 ? std::nullopt : std::optional(ZoomLevels[index - 1]);
    return index + 1 == ZoomLevels.size() ? std::nullopt : std::optional(ZoomLevels[index + 1]);
}

} // namespace morvane
