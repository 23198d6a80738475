#include "geometry/StripRaster.h"

namespace morvane {

std::uint8_t* StripRaster::StripRows(PixelPosition place)
{
    return m_cells.data() + static_cast<std::size_t>(place.Column) * m_size.Height
        + static_cast<std::size_t>(place.Row) * StripWidth;
}

void StripRaster::Store(const Tile& tile, RasterSize used, PixelPosition corner)
{
    std::copy_n(tile.begin(), used.Height * StripWidth, StripRows(corner));
}

void StripRaster::StoreTransposed(const Tile& tile, RasterSize used, PixelPosition corner)
{
    std::uint8_t* target = StripRows(corner);
    for (int y = 0; y < used.Width; ++y)
        for (int x = 0; x < StripWidth; ++x)
            target[y * StripWidth + x] = tile[x * StripWidth + y];
}

} // namespace morvane
