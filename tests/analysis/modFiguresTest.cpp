#include "analysis/modFigures.h"

#include <cmath>
#include <vector>

#include <gtest/gtest.h>

namespace morvane {

namespace {

constexpr int MaskSize = 201;
constexpr int GridSize = MaskSize; // its nodes are the cells
const Pupil Frame{100, 100, 0.01, 0.01, ShapeKind::Circle}; // radius 100 cells
constexpr double GridError = 0.006; // of RMS: the cells make the circle only nearly
constexpr double Rounding = 1e-12;

// A circle that fills the pupil, with a disk of obstruction in its middle.
std::vector<std::uint8_t> diskCells(double obstruction = -1)
{
    std::vector<std::uint8_t> cells;
    for (int row = 0; row < MaskSize; ++row) {
        for (int column = 0; column < MaskSize; ++column) {
            const double r = std::hypot(row - 100, column - 100);
            cells.push_back(r > 100    ? MaskOutside
                    : r <= obstruction ? MaskObstruction
                                       : MaskInside);
        }
    }
    return cells;
}

FiguresOfMerit figuresOf(const ZernikeSet& coefficients, const std::vector<std::uint8_t>& cells)
{
    FiguresOfMerit figures;
    EvalAberrations(coefficients, {cells, MaskSize, MaskSize}, Frame, GridSize, GridSize, figures);
    return figures;
}

// The terms of A, the others 0.
ZernikeSet coefficientsOf(std::initializer_list<std::pair<int, double>> terms)
{
    ZernikeSet coefficients{};
    for (const auto& [term, value] : terms)
        coefficients[term - 1] = value;
    return coefficients;
}

} // namespace

TEST(AToW, GivesMagnitudesAndAngles)
{
    const struct {
        const char* Name;
        ZernikeSet A;
        WNotation W;
    } cases[] = {
        {"nothing", coefficientsOf({}), {0, 0, 0, 0, 0, 0, 0, 0}},
        {"tilt up", coefficientsOf({{2, -0.5}}), {0.5, -90, 0, 0, 0, 0, 0, 0}},
        {"tilt down", coefficientsOf({{2, 0.5}}), {0.5, 90, 0, 0, 0, 0, 0, 0}},
        {"tilt left", coefficientsOf({{1, -1}}), {1, 180, 0, 0, 0, 0, 0, 0}},
        {"tilt, second quadrant", coefficientsOf({{1, -3}, {2, 3}}),
            {std::sqrt(18.0), 135, 0, 0, 0, 0, 0, 0}},
        {"tilt, third quadrant", coefficientsOf({{1, -3}, {2, -3}}),
            {std::sqrt(18.0), -135, 0, 0, 0, 0, 0, 0}},
        {"tilt, fourth quadrant", coefficientsOf({{1, 3}, {2, -3}}),
            {std::sqrt(18.0), -45, 0, 0, 0, 0, 0, 0}},
        {"defocus", coefficientsOf({{3, -1.5}}), {0, 0, -3, 0, 0, 0, 0, 0}},
        {"astigmatism", coefficientsOf({{5, 1}}), {0, 0, 0, 2, 45, 0, 0, 0}},
        {"astigmatism across", coefficientsOf({{4, -1}}), {0, 0, 0, 2, 90, 0, 0, 0}},
        {"coma", coefficientsOf({{6, 3}, {7, 4}}),
            {0, 0, 0, 0, 0, 15, std::atan(4.0 / 3) * 180 / std::acos(-1.0), 0}},
        {"spherical", coefficientsOf({{8, -0.25}}), {0, 0, 0, 0, 0, 0, 0, -1.5}},
    };
    for (const auto& c : cases) {
        const WNotation w = AToW(c.A);
        for (std::size_t i = 0; i < w.size(); ++i)
            EXPECT_NEAR(w[i], c.W[i], Rounding) << c.Name << " " << i + 1;
    }
}

TEST(EvalAberrations, OfNoAberrationIsPerfect)
{
    const FiguresOfMerit figures = figuresOf({}, diskCells());
    EXPECT_EQ(figures.RMS, 0);
    EXPECT_EQ(figures.PV, 0);
    EXPECT_EQ(figures.Strehl, 1);
}

// Over the full circle the variance of a term is 1 / (n + 1) without angle and 1 / (2 (n + 1))
// with, n its degree; P-V is that of the term's extremes.
TEST(EvalAberrations, OfOneTermIsThatOfItsIntegral)
{
    const struct {
        int Term;
        double Variance, PV;
    } cases[] = {
        {1, 1 / 4.0, 2},
        {3, 1 / 3.0, 2},
        {4, 1 / 6.0, 2},
        {6, 1 / 8.0, 2},
        {8, 1 / 5.0, 1.5},
    };
    for (const auto& c : cases) {
        const FiguresOfMerit figures = figuresOf(coefficientsOf({{c.Term, 1}}), diskCells());
        EXPECT_NEAR(figures.RMS, std::sqrt(c.Variance), GridError) << c.Term;
        EXPECT_NEAR(figures.PV, c.PV, Rounding) << c.Term;
    }
}

TEST(EvalAberrations, StrehlFollowsFromRms)
{
    const ZernikeSet one = coefficientsOf({{4, 1}, {8, -0.4}});
    const double rmsOfOne = figuresOf(one, diskCells()).RMS;
    const struct {
        double RMS, Strehl;
    } cases[] = {{0.07, 0.824}, {0.25, 0.085}, {1 / 14.0, 0.818}}; // exp(-(2 pi RMS)^2)
    for (const auto& c : cases) {
        ZernikeSet scaled = one;
        for (double& coefficient : scaled)
            coefficient *= c.RMS / rmsOfOne;
        const FiguresOfMerit figures = figuresOf(scaled, diskCells());
        EXPECT_NEAR(figures.RMS, c.RMS, Rounding);
        EXPECT_NEAR(figures.Strehl, c.Strehl, 5e-4) << c.RMS;
    }
}

TEST(EvalAberrations, LeavesTheObstructionOut)
{
    // Defocus runs from -1 in the middle to 1 at the edge; at r = 0.5 it is -0.5.
    const FiguresOfMerit figures = figuresOf(coefficientsOf({{3, 1}}), diskCells(50));
    EXPECT_NEAR(figures.PV, 1.5, 0.02); // the first cell beyond
    EXPECT_NEAR(figures.RMS, 1.5 / std::sqrt(12.0), GridError); // even in r^2
}

TEST(EvalAberrations, DividesByOneLessThanTheNodes)
{
    // Of the 3 by 3 nodes, at 0, 100 and 200, only two lie inside, at x = -1 and 1.
    std::vector<std::uint8_t> cells(MaskSize * MaskSize, MaskOutside);
    cells[100 * MaskSize] = cells[100 * MaskSize + 200] = MaskInside;
    FiguresOfMerit figures;
    EvalAberrations(coefficientsOf({{1, 3}}), {cells, MaskSize, MaskSize}, Frame, 3, 3, figures);
    EXPECT_NEAR(figures.RMS, std::sqrt(18.0), Rounding);
    EXPECT_EQ(figures.PV, 6);
}

TEST(EvalAberrations, IsZeroWithFewerThanTwoNodes)
{
    std::vector<std::uint8_t> cells(MaskSize * MaskSize, MaskOutside);
    for (const int numNodes : {0, 1}) {
        cells[100 * MaskSize + 100] = numNodes == 1 ? MaskInside : MaskObstruction;
        FiguresOfMerit figures{5, 5, 5};
        EvalAberrations(
            coefficientsOf({{3, 1}}), {cells, MaskSize, MaskSize}, Frame, 3, 3, figures);
        EXPECT_EQ(figures.RMS, 0) << numNodes;
        EXPECT_EQ(figures.Strehl, 0) << numNodes;
        EXPECT_EQ(figures.PV, 0) << numNodes;
    }
}

TEST(EvalAberrations, IsNoNumberWhereTheNumbersLeaveTheirRange)
{
    const FiguresOfMerit figures = figuresOf(coefficientsOf({{3, 1e200}}), diskCells());
    for (const double figure : {figures.RMS, figures.Strehl, figures.PV})
        EXPECT_TRUE(std::isnan(figure));
}

TEST(EvalAberrations, WritesNothingWithoutGridMaskOrPupil)
{
    const std::vector<std::uint8_t> cells = diskCells();
    const MaskView mask{cells, MaskSize, MaskSize};
    const struct {
        const char* Name;
        MaskView Mask;
        Pupil Frame;
        int Width, Height;
    } cases[] = {
        {"no mask", {}, Frame, 100, 100},
        {"no pupil", mask, {}, 100, 100},
        {"one column", mask, Frame, 1, 100},
        {"one row", mask, Frame, 100, 1},
    };
    for (const auto& c : cases) {
        FiguresOfMerit figures{5, 6, 7};
        EvalAberrations({}, c.Mask, c.Frame, c.Width, c.Height, figures);
        EXPECT_EQ(figures.RMS, 5) << c.Name;
        EXPECT_EQ(figures.Strehl, 6) << c.Name;
        EXPECT_EQ(figures.PV, 7) << c.Name;
    }
}

} // namespace morvane
