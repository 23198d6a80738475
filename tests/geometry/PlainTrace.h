// The tracer in its plainest form, one loop after the other on the store of fringes itself, with a
// scan of all ticks for each question: slow, and the measure of the fast tracer, which must find
// the same ticks. Numbering is not repeated here.
#pragma once
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "geometry/modSort.h"
#include "geometry/modTrace.h"

namespace morvane::plain {

struct Picture {
    int Width, Height;
    std::vector<std::uint8_t> Pixels = std::vector<std::uint8_t>(Width * Height);

    std::uint8_t& At(int row, int column) { return Pixels[row * Width + column]; }
    int At(int row, int column) const { return Pixels[row * Width + column]; }
};

inline Picture Doubled(const Picture& source)
{
    Picture target{source.Width * 2, source.Height * 2};
    for (int j = 0; j < target.Height; ++j)
        for (int i = 0; i < target.Width; ++i) {
            const double y = j * 0.5, x = i * 0.5;
            const int iy = static_cast<int>(y), ix = static_cast<int>(x);
            if (iy > source.Height - 2 || ix > source.Width - 2)
                continue;
            const auto along = [&](int row) {
                const int left = source.At(row, ix), right = source.At(row, ix + 1);
                return std::nearbyint((1 - (x - ix)) * left + (x - ix) * right);
            };
            target.At(j, i) = static_cast<std::uint8_t>(
                std::nearbyint((1 - (y - iy)) * along(iy) + (y - iy) * along(iy + 1)));
        }
    return target;
}

inline Picture Smoothed(const Picture& source)
{
    Picture target{source.Width, source.Height};
    for (int row = 1; row <= source.Height - 2; ++row)
        for (int column = 1; column <= source.Width - 2; ++column)
            target.At(row, column) = static_cast<std::uint8_t>(std::nearbyint(0.125
                    * (source.At(row - 1, column) + source.At(row + 1, column)
                        + source.At(row, column + 1) + source.At(row, column - 1))
                + 0.5 * source.At(row, column)));
    return target;
}

inline Picture Transposed(const Picture& source)
{
    Picture target{source.Height, source.Width};
    for (int row = 0; row < source.Height; ++row)
        for (int column = 0; column < source.Width; ++column)
            target.At(column, row) = static_cast<std::uint8_t>(source.At(row, column));
    return target;
}

class Tracer {
public:
    Tracer(clsFringes& Fringes, const Picture& S, const Picture& Mask, const TraceParameters& P)
        : m_fringes(Fringes), S(S), Mask(Mask), P(P)
    {
    }

    bool Scan()
    {
        int nextOrder = 1;
        for (int row = P.ScanRowStep; row <= S.Height - 1; row += P.ScanRowStep)
            if (!ScanRow(row, nextOrder))
                return false;
        return true;
    }

private:
    bool ScanRow(int row, int& nextOrder)
    {
        int first = 0;
        while (first < S.Width && Mask.At(row, first) != 1)
            ++first;
        bool seekingValley = true;
        int low = 255, lowColumn = first, rising = 0, high = 0, falling = 0;
        for (int column = first + 1; column < S.Width; ++column) {
            if (Mask.At(row, column) != 1)
                continue;
            const int v = S.At(row, column);
            if (seekingValley) {
                if (v < low) {
                    low = v;
                    lowColumn = column;
                    rising = 0;
                } else if (v > low + 5) {
                    ++rising;
                }
                if (rising < 6)
                    continue;
                const int center = Flat(row, lowColumn, low);
                if (!TraceFringe(center, row, nextOrder))
                    return false;
                int index = NoFringe;
                if (m_fringes.GetNumTicks(nextOrder, index) < P.MinTicks)
                    m_fringes.DeleteOrder(nextOrder);
                else
                    ++nextOrder;
                seekingValley = false;
                high = falling = rising = 0;
                low = 255;
                lowColumn = column;
            } else {
                if (v > high) {
                    high = v;
                    falling = 0;
                } else if (high > v + 5) {
                    ++falling;
                }
                if (falling > 5) {
                    seekingValley = true;
                    low = 255;
                    lowColumn = column;
                    rising = high = falling = 0;
                }
            }
        }
        return true;
    }

    int Flat(int row, int column, int level) const
    {
        int right = column, left = column;
        while (right - column < 19 && right + 1 < S.Width && Mask.At(row, right + 1) == 1
            && S.At(row, right + 1) <= level + 1)
            ++right;
        while (column - left < 19 && left > 0 && Mask.At(row, left - 1) == 1
            && S.At(row, left - 1) <= level + 1)
            --left;
        return static_cast<int>(std::nearbyint((left + right) / 2.0));
    }

    bool TraceFringe(int seedColumn, int seedRow, int order)
    {
        int index = m_fringes.AddOrder(order);
        if (index == NoFringe)
            return false;
        m_fringes.AddCenter(order, {double(seedColumn), double(seedRow)}, index);
        for (const int step : {-1, 1}) {
            int lastColumn = step < 0 ? 0 : seedColumn, lastRow = step < 0 ? 0 : seedRow;
            int col = seedColumn, row = seedRow;
            for (;;) {
                row += step;
                if (row < 0 || row >= S.Height || Mask.At(row, col) != 1 || col < 2
                    || col >= S.Width - 2 || row < 2 || row >= S.Height - 2
                    || Mask.At(row, col - 2) != 1 || Mask.At(row, col + 2) != 1
                    || Mask.At(row + 2, col) != 1 || Mask.At(row - 2, col) != 1)
                    break;
                col = Recenter(row, col);
                if (m_fringes.GetNumTicks(order, index) >= 4000)
                    break;
                const int dr = std::abs(row - lastRow), dc = std::abs(col - lastColumn);
                if (dr < P.TickRowStep || dr * dr + dc * dc < P.TickDistSq)
                    continue;
                lastRow = row;
                lastColumn = col;
                const Point at{double(col), double(row)};
                if (m_fringes.FindInOtherFringe(at, order, P.OtherFringeTol, true))
                    break;
                if (!m_fringes.FindInOtherFringe(at, order, P.SameFringeTol, false))
                    m_fringes.AddCenter(order, at, index);
            }
        }
        return true;
    }

    int Recenter(int row, int start) const
    {
        int col = start, best = S.At(row, start), counter = 0;
        for (int c = start - 1; c >= 0 && c >= start - 19 && Mask.At(row, c) == 1; --c) {
            if (S.At(row, c) < best) {
                best = S.At(row, c);
                col = c;
                counter = 0;
            } else if (S.At(row, c) > best && ++counter == 3) {
                break;
            }
        }
        counter = 0;
        const int found = col;
        for (int c = found + 1; c < S.Width && c <= found + 19 && Mask.At(row, c) == 1; ++c) {
            if (S.At(row, c) < best) {
                best = S.At(row, c);
                col = c;
                counter = 0;
            } else if (S.At(row, c) > best && ++counter == 3) {
                break;
            }
        }
        return Flat(row, col, best);
    }

    clsFringes& m_fringes;
    const Picture &S, &Mask;
    const TraceParameters& P;
};

// Densities 1 to 4, a column each.
inline TraceParameters ParametersOf(FringeDensity density)
{
    const int i = static_cast<int>(density) - 1;
    TraceParameters parameters{};
    parameters.TickRowStep = std::array{4, 6, 8, 12}[i];
    parameters.TickDistSq = std::array{36, 81, 144, 256}[i];
    parameters.SameFringeTol = std::array{2.0, 3.0, 4.0, 6.0}[i];
    parameters.OtherFringeTol = std::array{10.0, 10.0, 10.0, 12.0}[i];
    parameters.ScanRowStep = std::array{20, 20, 20, 25}[i];
    parameters.MinTicks = 8;
    parameters.EdgeGap = 25;
    parameters.ObstructionWindow = 15;
    return parameters;
}

// False if the store was too small.
inline bool AutoTrace(clsFringes& fringes, const clsMask& mask, const Picture& image,
    FringeDirection direction, FringeDensity density)
{
    const TraceParameters parameters = ParametersOf(density);
    fringes.DeleteAll();
    const auto cells = mask.View().Cells;
    Picture s = Smoothed(mask.HalfSize ? Doubled(image) : image);
    Picture m{mask.Width(), mask.Height(), {cells.begin(), cells.end()}};
    if (direction == FringeDirection::Horizontal) {
        s = Transposed(s);
        m = Transposed(m);
    }
    const bool hadRoom = Tracer(fringes, s, m, parameters).Scan();
    SortOrders(fringes, {m.Pixels, m.Width, m.Height}, Orientation::Upright, parameters);
    if (mask.HalfSize)
        fringes.HalfFringeData();
    if (direction == FringeDirection::Horizontal)
        fringes.TransposeAll();
    return hadRoom;
}

} // namespace morvane::plain
