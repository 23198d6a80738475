// The levels at which an interferogram can be shown, in percent, largest first, as the zoom box
// lists them.
#pragma once
#include <array>
#include <cstddef>
#include <optional>

namespace morvane {

inline constexpr std::array ZoomLevels{1600, 800, 400, 300, 200, 150, 100, 75, 50, 25};
inline constexpr int DefaultZoom = 100;

enum class ZoomStep { In, Out };

bool IsZoomLevel(int Percent);
// The place in ZoomLevels; that of DefaultZoom for a value that is not among them.
std::size_t ZoomIndexOf(int Percent);
// The level after Percent; none at the end of the list.
std::optional<int> NextZoom(int Percent, ZoomStep Step);

} // namespace morvane
