#include "interferogram/ReducedPicture.h"

#include <algorithm>
#include <cstddef>

namespace morvane {
namespace {

// The first of the pixels that pixel At of Size stands for, of Full in all.
std::size_t FirstOf(int at, int size, int full)
{
    return static_cast<std::size_t>(static_cast<std::int64_t>(at) * full / size);
}

} // namespace

void ReducedPicture::Prepare(std::span<const std::uint8_t> Pixels, RasterSize Full, RasterSize Size)
{
    Clear();
    if (Pixels.size() < static_cast<std::size_t>(Full.Width) * Full.Height || Size.Width < 1
        || Size.Height < 1)
        return;
    m_full = Full;
    m_size = Size;
    m_pixels.resize(static_cast<std::size_t>(Size.Width) * Size.Height);
    m_isMade.resize(static_cast<std::size_t>(Size.Height));
    m_sums.resize(static_cast<std::size_t>(Full.Width));
}

void ReducedPicture::MakeRows(std::span<const std::uint8_t> Pixels, int First, int End)
{
    for (int row = std::max(First, 0); row < std::min(End, m_size.Height); ++row)
        if (!m_isMade[static_cast<std::size_t>(row)])
            MakeRow(Pixels, row);
}

void ReducedPicture::MakeRow(std::span<const std::uint8_t> Pixels, int Row)
{
    m_isMade[static_cast<std::size_t>(Row)] = 1;
    const std::size_t top = FirstOf(Row, m_size.Height, m_full.Height);
    const std::size_t bottom = FirstOf(Row + 1, m_size.Height, m_full.Height);
    std::ranges::fill(m_sums, 0);
    for (std::size_t y = top; y < bottom; ++y) {
        const std::uint8_t* const from = Pixels.data() + y * m_sums.size();
        for (std::size_t x = 0; x < m_sums.size(); ++x)
            m_sums[x] += from[x];
    }
    std::uint8_t* const to =
        m_pixels.data() + static_cast<std::size_t>(Row) * static_cast<std::size_t>(m_size.Width);
    std::size_t left = 0;
    for (int column = 0; column < m_size.Width; ++column) {
        const std::size_t right = FirstOf(column + 1, m_size.Width, m_full.Width);
        std::uint32_t sum = 0;
        for (std::size_t x = left; x < right; ++x)
            sum += m_sums[x];
        const auto count = static_cast<std::uint32_t>((right - left) * (bottom - top));
        to[column] = static_cast<std::uint8_t>((sum + count / 2) / count);
        left = right;
    }
}

} // namespace morvane
