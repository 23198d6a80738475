#include "geometry/InsideRuns.h"

#include <random>

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(InsideRuns, ContainTheCellsInsideUprightAndTransposed)
{
    std::mt19937 random(8);
    for (const auto [width, height] :
        {RasterSize{1, 1}, {1, 9}, {9, 1}, {8, 8}, {17, 5}, {64, 40}, {75, 33}}) {
        std::vector<std::uint8_t> cells(width * height);
        for (std::size_t i = 0; i < cells.size(); ++i)
            cells[i] = i > 0 && random() % 4 ? cells[i - 1] : random() % 3;
        const MaskView mask{cells, width, height};
        const InsideRuns upright(mask, Orientation::Upright);
        const InsideRuns transposed(mask, Orientation::Transposed);
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column) {
                ASSERT_EQ(upright.Contains({column, row}), mask.IsInside(column, row));
                ASSERT_EQ(transposed.Contains({row, column}), mask.IsInside(column, row));
            }
    }
}

TEST(InsideRuns, EndAtGapsAndBorders)
{
    const std::vector<std::uint8_t> cells{1, 1, 1, 2, 0, 1, 1, 0, 1, 2, 2, 1};
    const InsideRuns runs({cells, 12, 1}, Orientation::Upright);
    const int expected[][2]{{0, 3}, {5, 7}, {8, 9}, {11, 12}};
    ASSERT_EQ(runs.Row(0).size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(runs.Row(0)[i].First, expected[i][0]);
        EXPECT_EQ(runs.Row(0)[i].End, expected[i][1]);
    }
    EXPECT_EQ(runs.RunAt({6, 0}).First, 5);
    EXPECT_EQ(runs.RunAt({4, 0}).End, 0);
}

} // namespace
} // namespace morvane
