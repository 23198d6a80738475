#include "geometry/StripRaster.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(StripRaster, HoldsThePixelsUprightAndTransposed)
{
    const auto level = [](int column, int row) {
        return static_cast<std::uint8_t>(31 * row + column);
    };
    for (const auto [width, height] :
        {RasterSize{1, 1}, {63, 64}, {64, 65}, {65, 1}, {1, 130}, {200, 131}}) {
        const auto read = [&](int row, int firstColumn, std::span<std::uint8_t> target) {
            for (std::uint8_t& pixel : target)
                pixel = level(firstColumn++, row);
        };
        const StripRaster upright({width, height}, Orientation::Upright, read);
        const StripRaster transposed({width, height}, Orientation::Transposed, read);
        ASSERT_EQ(upright.Width(), width);
        ASSERT_EQ(transposed.Width(), height);
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column) {
                ASSERT_EQ(upright.Row(row)[column], level(column, row));
                ASSERT_EQ(transposed.Row(column)[row], level(column, row));
            }
    }
}

} // namespace
} // namespace morvane
