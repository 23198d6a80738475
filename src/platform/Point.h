// Positions in a picture: pixels, origin top left, y down.
#pragma once

namespace morvane {

inline constexpr double NoPoint = 1e308; // a coordinate that does not exist or is not given

struct Point {
    double X = NoPoint, Y = NoPoint;

    friend bool operator==(const Point&, const Point&) = default;
};

} // namespace morvane
