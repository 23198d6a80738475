#include "geometry/InsideRuns.h"

#include <cstdint>
#include <cstring>

namespace morvane {

namespace {

constexpr int Unended = -1; // the end of a run that is still being followed

// Calls found(i) for each i below count at which one of two stretches of cells is inside and the
// other is not. They are alike nearly everywhere, so whole words are compared first.
template <typename Function>
void forEachChange(const std::uint8_t* cells, const std::uint8_t* others, int count, Function found)
{
    using Word = std::uint64_t;
    constexpr int WordSize = sizeof(Word);
    for (int i = 0; i < count;) {
        if (count - i >= WordSize) {
            Word word, other;
            std::memcpy(&word, cells + i, WordSize);
            std::memcpy(&other, others + i, WordSize);
            if (word == other) {
                i += WordSize;
                continue;
            }
        }
        const int end = std::min(i + WordSize, count);
        for (; i < end; ++i)
            if ((cells[i] == MaskInside) != (others[i] == MaskInside))
                found(i);
    }
}

} // namespace

InsideRuns::InsideRuns(const MaskView& Mask, Orientation Turn)
    : m_rows(Turn == Orientation::Upright ? Mask.Height : Mask.Width)
{
    if (Turn == Orientation::Upright)
        FindInRows(Mask);
    else
        FindInColumns(Mask);
}

void InsideRuns::BeginOrEnd(int row, int column)
{
    auto& runs = m_rows[row];
    if (!runs.empty() && runs.back().End == Unended)
        runs.back().End = column;
    else
        runs.push_back({column, Unended});
}

// A run begins and ends where a cell differs from its left neighbour.
void InsideRuns::FindInRows(const MaskView& mask)
{
    for (int row = 0; row < mask.Height; ++row) {
        const std::uint8_t* cells = &mask.Cells[static_cast<std::size_t>(row) * mask.Width];
        if (cells[0] == MaskInside)
            BeginOrEnd(row, 0);
        forEachChange(cells + 1, cells, mask.Width - 1, [&](int i) { BeginOrEnd(row, i + 1); });
        if (cells[mask.Width - 1] == MaskInside)
            BeginOrEnd(row, mask.Width);
    }
}

// Where a cell differs from its upper neighbour.
void InsideRuns::FindInColumns(const MaskView& mask)
{
    const std::vector<std::uint8_t> outside(mask.Width, MaskOutside);
    const std::uint8_t* above = outside.data();
    for (int row = 0; row <= mask.Height; ++row) {
        const std::uint8_t* cells = row < mask.Height
            ? &mask.Cells[static_cast<std::size_t>(row) * mask.Width]
            : outside.data();
        forEachChange(cells, above, mask.Width, [&](int i) { BeginOrEnd(i, row); });
        above = cells;
    }
}

} // namespace morvane
