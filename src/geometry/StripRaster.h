// A byte picture cut into strips of 64 columns, each stored row after row. Who follows a fringe
// down the picture walks through a strip from one cache line to the next; in a plain picture, each
// row would be a page of its own.
#pragma once
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "geometry/modRaster.h"

namespace morvane {

enum class Orientation { Upright, Transposed };

class StripRaster {
public:
    // Takes the pixels of a source of this size, or exchanges its rows and columns.
    // ReadRow(row, firstColumn, target) fills target with the pixels of a row of the source.
    // Throws std::bad_alloc.
    template <typename RowReader>
    StripRaster(RasterSize Source, Orientation Turn, RowReader ReadRow);

    int Width() const { return m_size.Width; }
    int Height() const { return m_size.Height; }

    // The pixels of one row, by column.
    class RowView {
    public:
        int operator[](int Column) const
        {
            const auto column = static_cast<unsigned>(Column);
            return m_cells[column / StripWidth * m_stripSize + column % StripWidth];
        }

    private:
        friend StripRaster;
        RowView(const std::uint8_t* cells, std::size_t stripSize)
            : m_cells(cells), m_stripSize(stripSize)
        {
        }

        const std::uint8_t* m_cells; // of the first strip
        std::size_t m_stripSize;
    };
    RowView Row(int Index) const
    {
        return {m_cells.data() + static_cast<std::size_t>(Index) * StripWidth,
            static_cast<std::size_t>(m_size.Height) * StripWidth};
    }

private:
    static constexpr int StripWidth = 64;
    using Tile = std::array<std::uint8_t, StripWidth * StripWidth>; // row by row

    void Store(const Tile& tile, RasterSize used, PixelPosition corner);
    void StoreTransposed(const Tile& tile, RasterSize used, PixelPosition corner);
    // The rows of a strip from Row on; Column is its first column.
    std::uint8_t* StripRows(PixelPosition place);

    RasterSize m_size;
    std::vector<std::uint8_t> m_cells;
};

// Tile by tile, so that few lines and pages of both pictures are in use at a time.
template <typename RowReader>
StripRaster::StripRaster(RasterSize Source, Orientation Turn, RowReader ReadRow)
    : m_size(Turn == Orientation::Upright ? Source : RasterSize{Source.Height, Source.Width}),
      m_cells((std::size_t{0} + m_size.Width + StripWidth - 1) / StripWidth * StripWidth
          * m_size.Height)
{
    Tile tile{};
    for (int top = 0; top < Source.Height; top += StripWidth) {
        for (int left = 0; left < Source.Width; left += StripWidth) {
            const RasterSize used{std::min(StripWidth, Source.Width - left),
                std::min(StripWidth, Source.Height - top)};
            for (int y = 0; y < used.Height; ++y)
                ReadRow(top + y, left,
                    std::span<std::uint8_t>(tile).subspan(y * StripWidth, used.Width));
            if (Turn == Orientation::Upright)
                Store(tile, used, {left, top});
            else
                StoreTransposed(tile, used, {top, left});
        }
    }
}

} // namespace morvane
