// A picture scaled down for its window, each pixel the mean of those it stands for, so that fine
// fringes turn grey instead of into false ones. Rows are made when they are first shown: a zoom
// step costs what the window shows, whatever the size of the picture.
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "geometry/modRaster.h"

namespace morvane {

class ReducedPicture {
public:
    // Forgets what was made. Size must not be larger than the picture in either axis.
    void Prepare(std::span<const std::uint8_t> Pixels, RasterSize Full, RasterSize Size);
    // Frees the memory.
    void Clear() { *this = {}; }
    RasterSize Size() const { return m_size; }
    // Makes sure of the rows First to End; held to those that there are. Pixels must be the same
    // picture as at Prepare.
    void MakeRows(std::span<const std::uint8_t> Pixels, int First, int End);
    // All rows; those never asked for are 0.
    std::span<const std::uint8_t> Pixels() const { return m_pixels; }

private:
    void MakeRow(std::span<const std::uint8_t> Pixels, int Row);

    RasterSize m_full, m_size;
    std::vector<std::uint8_t> m_pixels;
    std::vector<std::uint8_t> m_isMade; // a flag a row
    std::vector<std::uint32_t> m_sums; // of the columns of the row in work
};

} // namespace morvane
