#include "analysis/modSurface.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/ModMathLib.h"

namespace morvane {

namespace {

constexpr int MaskSize = 101;
const Pupil Frame{50, 50, 1.0 / 50, 1.0 / 40, ShapeKind::Circle}; // an oval of 50 by 40 cells

std::vector<std::uint8_t> ovalCells()
{
    std::vector<std::uint8_t> cells;
    for (int row = 0; row < MaskSize; ++row)
        for (int column = 0; column < MaskSize; ++column)
            cells.push_back(std::hypot((column - 50) / 50.0, (row - 50) / 40.0) <= 1 ? 1 : 0);
    return cells;
}

ZernikeSet someWavefront()
{
    ZernikeSet coefficients;
    for (int i = 0; i < NumZernikes; ++i)
        coefficients[i] = 0.3 - 0.05 * i;
    return coefficients;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

double numberOf(std::string_view text)
{
    double value = NAN;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ptr == text.data() + text.size() ? value : NAN;
}

} // namespace

TEST(EvalSurface, CoversTheSquareAroundThePupil)
{
    const auto cells = ovalCells();
    const MaskView mask{cells, MaskSize, MaskSize};
    const ZernikeSet coefficients = someWavefront();
    constexpr int width = 41, height = 31;
    std::vector<double> map(width * height, 77);
    EvalSurface(coefficients, mask, Frame, width, height, MapContent::Wavefront, map);
    for (int j = 0; j < height; ++j) {
        for (int i = 0; i < width; ++i) {
            const double x = (i - 20) / 20.0, y = (j - 15) / 15.0, r = std::hypot(x, y);
            if (std::abs(r - 1) < 0.03) // the rounding to a cell decides
                continue;
            const double expected = r < 1 ? EvalZernike(x, y, coefficients) : NoData;
            EXPECT_EQ(map[j * width + i], expected) << i << ", " << j;
        }
    }
    EXPECT_EQ(map[15 * width + 20], EvalZernike(0, 0, coefficients));
}

TEST(EvalSurface, TakesEachCornerOfTwoByTwoAndRowsBesideTheMaskAsNoData)
{
    const auto cells = ovalCells();
    std::vector<double> corners(4, 1);
    EvalSurface(
        someWavefront(), {cells, MaskSize, MaskSize}, Frame, 2, 2, MapContent::Wavefront, corners);
    EXPECT_EQ(corners, std::vector<double>(4, NoData));

    const Pupil aside{50, 500, 1.0 / 50, 1.0 / 40, ShapeKind::Circle};
    std::vector<double> map(100, 1);
    EvalSurface(
        someWavefront(), {cells, MaskSize, MaskSize}, aside, 10, 10, MapContent::Fringes, map);
    EXPECT_EQ(map, std::vector<double>(100, NoData));
}

TEST(EvalSurface, FringesAreDarkAtWholeWaves)
{
    // Tilt of 2: w = 2 x, at the nodes of 9 columns -2, -1.5, ... 2.
    const auto cells = ovalCells();
    ZernikeSet tilt{};
    tilt[0] = 2;
    std::vector<double> map(81);
    EvalSurface(tilt, {cells, MaskSize, MaskSize}, Frame, 9, 9, MapContent::Fringes, map);
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(map[4 * 9 + i], i % 2 == 0 ? 0 : 2, 1e-14) << i;
}

TEST(EvalSurface, DoesNothingWithoutMaskPupilOrSize)
{
    const auto cells = ovalCells();
    const MaskView mask{cells, MaskSize, MaskSize};
    std::vector<double> map(9, 7);
    EvalSurface({}, {}, Frame, 3, 3, MapContent::Wavefront, map);
    EvalSurface({}, mask, {}, 3, 3, MapContent::Wavefront, map);
    EvalSurface({}, mask, Frame, 1, 9, MapContent::Wavefront, map);
    EvalSurface({}, mask, Frame, 9, 1, MapContent::Wavefront, map);
    EXPECT_EQ(map, std::vector<double>(9, 7));
}

TEST(EvalProfile, RunsThroughThePupilCenterClockwise)
{
    const auto cells = ovalCells();
    const MaskView mask{cells, MaskSize, MaskSize};
    const ZernikeSet coefficients = someWavefront();
    std::vector<double> x(21), y(21), back(21);
    EvalProfile(coefficients, mask, Frame, Pi / 6, x, y);
    for (int k = 1; k < 20; ++k) {
        const double t = (k - 10) / 10.0;
        EXPECT_EQ(x[k], t);
        EXPECT_NEAR(y[k], EvalZernike(t * std::sqrt(0.75), t * 0.5, coefficients), 1e-13) << k;
    }
    EXPECT_EQ(x.front(), -1);
    EXPECT_EQ(x.back(), 1);

    EvalProfile(coefficients, mask, Frame, 0, x, y);
    EvalProfile(coefficients, mask, Frame, Pi, x, back);
    for (int k = 0; k < 21; ++k)
        EXPECT_NEAR(back[k], y[20 - k], 1e-13) << k;
}

TEST(EvalProfile, HasNoDataOnTheObstruction)
{
    auto cells = ovalCells();
    cells[50 * MaskSize + 50] = MaskObstruction;
    std::vector<double> x(3), y(3, 1);
    EvalProfile(someWavefront(), {cells, MaskSize, MaskSize}, Frame, 0, x, y);
    EXPECT_NE(y[0], NoData);
    EXPECT_EQ(y[1], NoData);

    std::vector<double> one(1, 7);
    EvalProfile(someWavefront(), {cells, MaskSize, MaskSize}, Frame, 0, one, one);
    EXPECT_EQ(one[0], 7);
}

TEST(MapText, WritesPlainNumbersThatReadBack)
{
    const double values[] = {0, -0.1, 1.0 / 3, 1e-17, -2.5e-9, 123456789.125, 1e22, NoData,
        std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::lowest(), 5, 0.25};
    const std::string text = MapText(values, 4);
    EXPECT_EQ(
        text.substr(0, text.find('\n') + 1), "0,-0.1,0.3333333333333333,0.00000000000000001\r\n");
    EXPECT_EQ(text.find_first_not_of("0123456789.,-\r\n"), std::string::npos);
    const auto lines = linesOf(text);
    ASSERT_EQ(lines.size(), 3U);
    std::size_t index = 0;
    for (const std::string& line : lines) {
        ASSERT_EQ(line.back(), '\r');
        std::istringstream cells(line.substr(0, line.size() - 1));
        for (std::string cell; std::getline(cells, cell, ',');) {
            const double value = values[index++];
            EXPECT_EQ(numberOf(cell), value != NoData ? value : 0) << cell;
        }
    }
    EXPECT_EQ(index, std::size(values));
}

TEST(ZernikesText, HasALineForEachCoefficientInFifteenDigits)
{
    ZernikeSet coefficients{};
    coefficients[0] = 0.1 + 0.2; // 17 digits
    coefficients[1] = -12.5;
    coefficients[2] = 1e-300;
    coefficients[3] = -1.0 / 3e7;
    coefficients[35] = std::nextafter(1.0, 2.0);
    const auto lines = linesOf(ZernikesText(coefficients));
    ASSERT_EQ(lines.size(), 36U);
    EXPECT_EQ(lines[0], "0.3\r");
    EXPECT_EQ(lines[1], "-12.5\r");
    EXPECT_EQ(lines[4], "0\r");
    for (int i = 0; i < NumZernikes; ++i) {
        ASSERT_EQ(lines[i].back(), '\r');
        const double read = numberOf(lines[i].substr(0, lines[i].size() - 1));
        EXPECT_NEAR(read, coefficients[i], 5e-15 * std::abs(coefficients[i])) << i + 1;
    }
}

} // namespace morvane
