// The ticks of a running trace by place, so that asking what lies near a position costs the same
// with ten ticks and with a hundred thousand. Positions are whole pixels inside the picture. Gives
// the same answers as clsFringes::FindInOtherFringe does for the same ticks.
#pragma once
#include <cstddef>
#include <vector>

#include "geometry/modRaster.h"

namespace morvane {

class TickIndex {
public:
    TickIndex(int Width, int Height);

    void Add(PixelPosition At, int Order);
    // Takes back the Count ticks that were added last.
    void RemoveLast(int Count);

    // Whether a tick lies within Tolerance in x and in y: one of another order, or of this one.
    bool HasOther(PixelPosition At, int Order, double Tolerance) const;
    bool HasOwn(PixelPosition At, int Order, double Tolerance) const;

private:
    struct Tick {
        PixelPosition At;
        int Order;
        int Next; // an older tick of the same square, or None
    };
    static constexpr int None = -1;
    static constexpr int SquareSide = 16;

    std::size_t Square(PixelPosition at) const;
    template <typename Predicate>
    bool HasNear(PixelPosition at, double tolerance, Predicate counts) const;

    int m_columns, m_rows; // of squares
    std::vector<int> m_newest; // of each square, or None
    std::vector<Tick> m_ticks; // in the order they were added
};

} // namespace morvane
