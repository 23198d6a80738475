#include "document/clsGrid.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "TextParser.h"

namespace morvane {
namespace {

constexpr int IsBounded = GridIsCalibrated + GridHasBounds;

// 2 pixels a millimetre: cells of 20 x 10 pixels.
clsGrid Calibrated()
{
    clsGrid grid;
    grid.PhysicalWidth = 100;
    grid.CellWidth = 10;
    grid.CellHeight = 5;
    return grid;
}

// From (40, 30) to (240, 130): 10 by 10 cells.
clsGrid Bounded()
{
    clsGrid grid = Calibrated();
    grid.SetBounds(240, 130, 40, 30);
    return grid;
}

// 2 by 2 cells in the states 1, 2, 0, 1.
clsGrid Analysed()
{
    clsGrid grid = Calibrated();
    grid.CellCountX = grid.CellCountY = 2;
    grid.SetAnalysisResults(std::vector<std::int32_t>{1, 2, 0, 1},
        std::vector<double>{0.05, 0.1, 1.0 / 3, -0.0}, std::vector<double>{0.25, 1.5, 0, 1e-300});
    return grid;
}

clsGrid Read(const std::string& block)
{
    clsGrid grid;
    TextParser parser(block);
    grid.LoadFromFile(parser);
    return grid;
}

TEST(clsGrid, IsDefinedAsksForAllOfItsFlags)
{
    EXPECT_TRUE(clsGrid().IsDefined(0));
    EXPECT_FALSE(clsGrid().IsDefined(GridIsCalibrated));
    EXPECT_TRUE(Calibrated().IsDefined(GridIsCalibrated));
    EXPECT_FALSE(Calibrated().IsDefined(IsBounded));
    EXPECT_TRUE(Bounded().IsDefined(IsBounded));
    EXPECT_FALSE(Bounded().IsDefined(GridHasResults));
    EXPECT_TRUE(Analysed().IsDefined(GridHasResults));
    EXPECT_FALSE(Analysed().IsDefined(GridHasResults + GridHasBounds));

    clsGrid flat = Bounded();
    flat.PixelHeight = 0;
    EXPECT_FALSE(flat.IsDefined(GridHasBounds)) << "a size of 0 is no bounds";
    clsGrid recounted = Analysed();
    recounted.CellCountX = 3;
    EXPECT_FALSE(recounted.IsDefined(GridHasResults)) << "the results are of other cells";
}

TEST(clsGrid, BoundsAreSortedAndCutToWholeRows)
{
    const struct {
        const char* Name;
        double X1, Y1, X2, Y2;
        double Left, Top, Width, Height;
        int CountY;
    } cases[] = {
        {"sorted", 240, 130, 40, 30, 40, 30, 200, 100, 10},
        {"cut", 40, 30, 240, 139.5, 40, 30, 200, 100, 10},
        {"less than a row", 40, 30, 240, 39, 40, 30, 200, 0, 0},
        {"at least a pixel", 40, 30, 40, 31, 40, 30, 1, 1, 20},
    };
    for (const auto& c : cases) {
        clsGrid grid = Calibrated();
        grid.SetBounds(c.X1, c.Y1, c.X2, c.Y2);
        EXPECT_EQ(grid.GetVertex(0), (Point{c.Left, c.Top})) << c.Name;
        EXPECT_DOUBLE_EQ(grid.PixelWidth, c.Width) << c.Name;
        EXPECT_DOUBLE_EQ(grid.PixelHeight, c.Height) << c.Name;
        EXPECT_EQ(grid.CellCountY, c.CountY) << c.Name;
    }
    clsGrid uncalibrated;
    uncalibrated.SetBounds(0, 0, 100, 100);
    EXPECT_FALSE(uncalibrated.IsDefined(GridHasBounds));
}

TEST(clsGrid, ARoundingShortfallLosesNoRow)
{
    clsGrid grid = Bounded();
    grid.PixelHeight = std::nextafter(100.0, 0.0); // 9.99999999999999857 rows
    grid.UpdateCellCounts();
    EXPECT_EQ(grid.CellCountY, 10);
    grid.PixelHeight = 99.99;
    grid.UpdateCellCounts();
    EXPECT_EQ(grid.CellCountY, 9);
}

TEST(clsGrid, ResizeMovesACorner)
{
    const struct {
        int Corner;
        double Left, Top, Width, Height;
    } cases[] = {
        {0, 60, 50, 180, 80},
        {1, 40, 50, 20, 80},
        {2, 40, 30, 180, 80}, // not the mirror of the others
        {3, 60, 30, 180, 20},
        {NoCorner, 40, 30, 200, 100},
    };
    for (const auto& c : cases) {
        clsGrid grid = Bounded();
        grid.Resize(60, 50, c.Corner);
        EXPECT_EQ(grid.GetVertex(0), (Point{c.Left, c.Top})) << c.Corner;
        EXPECT_EQ(grid.PixelWidth, c.Width) << c.Corner;
        EXPECT_EQ(grid.PixelHeight, c.Height) << c.Corner;
        // Columns follow the calibration; rows are a 20th of the width high.
        EXPECT_EQ(grid.CellCountX, 10) << c.Corner;
        EXPECT_EQ(grid.CellCountY, static_cast<int>(c.Height / (c.Width / 20) + 1e-9)) << c.Corner;
    }
}

TEST(clsGrid, CornersAndCenter)
{
    clsGrid grid = Bounded();
    const Point corners[] = {{40, 30}, {240, 30}, {240, 130}, {40, 130}};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(grid.GetVertex(i), corners[i]) << i;
    EXPECT_EQ(grid.GetVertex(-1), Point());
    EXPECT_EQ(grid.GetVertex(4), Point());
    EXPECT_EQ(grid.GetCenter(), (Point{140, 80}));
    grid.SetCenter({100, 100});
    EXPECT_EQ(grid.GetVertex(0), (Point{0, 50}));
    grid.ClearBounds();
    grid.SetCenter({100, 100});
    EXPECT_EQ(grid.GetVertex(0), (Point{0, 0})) << "without bounds there is nothing to move";
}

TEST(clsGrid, FindIsStrictlyWithinThreePixels)
{
    const clsGrid grid = Bounded();
    const struct {
        Point At;
        GridPart Part;
        int Corner;
    } cases[] = {
        {{42.9, 27.1}, GridPart::Corner, 0},
        {{237.1, 32.9}, GridPart::Corner, 1},
        {{240, 130}, GridPart::Corner, 2},
        {{40, 130}, GridPart::Corner, 3},
        {{43, 80}, GridPart::None, NoCorner},
        {{42.9, 80}, GridPart::Border, NoCorner},
        {{237.1, 80}, GridPart::Border, NoCorner},
        {{140, 27.1}, GridPart::Border, NoCorner},
        {{140, 132.9}, GridPart::Border, NoCorner},
        {{140, 133}, GridPart::None, NoCorner},
        {{40, 200}, GridPart::None, NoCorner}, // on the line, but beyond its end
        {{140, 80}, GridPart::None, NoCorner},
    };
    for (const auto& c : cases) {
        const GridHit hit = grid.Find(c.At);
        EXPECT_EQ(hit.Part, c.Part) << c.At.X << ' ' << c.At.Y;
        EXPECT_EQ(hit.Corner, c.Corner) << c.At.X << ' ' << c.At.Y;
    }
    EXPECT_EQ(Calibrated().Find({0, 0}).Part, GridPart::None);
}

TEST(clsGrid, StatisticsAndMeasurements)
{
    const clsGrid grid = Analysed();
    const GridStatistics statistics = grid.GetStatistics();
    EXPECT_DOUBLE_EQ(statistics.PercentAnalysed, 75);
    EXPECT_DOUBLE_EQ(statistics.PercentUsable, 200.0 / 3);
    EXPECT_DOUBLE_EQ(statistics.Area, 100);
    EXPECT_EQ(clsGrid().GetStatistics().PercentAnalysed, -1);
    EXPECT_EQ(clsGrid().GetStatistics().PercentUsable, -1);
    EXPECT_EQ(grid.GetCellMeasurements(1, 0).State, CellFails);
    EXPECT_EQ(grid.GetCellMeasurements(1, 0).PV, 1.5);
    for (const auto& [x, y] : {std::pair{-1, 0}, {2, 0}, {0, 2}})
        EXPECT_EQ(grid.GetCellMeasurements(x, y).State, CellNotAnalysed);
}

TEST(clsGridBlock, ComesBackToTheBit)
{
    clsGrid grid = Analysed();
    grid.UpperLeftX = 0.1;
    grid.UpperLeftY = -1e300;
    grid.PixelWidth = 1.0 / 3;
    grid.PixelHeight = 5e-324;
    grid.MaxRMS = 0.075;
    grid.MaxPV = 2;
    grid.UsePV = false;
    std::string text, again;
    grid.SaveToFile(text);
    EXPECT_TRUE(text.starts_with("Grid\r\nUpperLeftX, 0.1\r\nUpperLeftY,-1e+300\r\n"));
    EXPECT_TRUE(
        text.ends_with("UsePV,False\r\nCells\r\nCell, 1, 0.05, 0.25\r\nCell, 2, 0.1, 1.5\r\n"
                       "Cell, 0, 0.3333333333333333, 0\r\nCell, 1,-0, 1e-300\r\n"
                       "CellsEnd\r\nGridEnd\r\n"))
        << text;
    const clsGrid read = Read(text.substr(text.find('\n') + 1));
    read.SaveToFile(again);
    EXPECT_EQ(again, text);
    EXPECT_EQ(read.CellPV, grid.CellPV);
    EXPECT_FALSE(read.UsePV);
}

TEST(clsGridBlock, WhatResultsAreTaken)
{
    const auto block = [](const char* counts, int numCells) {
        std::string text = counts;
        text += "\nCells\n";
        for (int i = 0; i < numCells; ++i)
            text += "Cell, 1, 0.5, 2\n";
        return text + "CellsEnd\nMaxPV, 7\nGridEnd\n";
    };
    const struct {
        const char* Counts;
        int NumCells, NumTaken, NumUsable;
    } cases[] = {
        {"CellCountX, 25 CellCountY, 25", 625, 625, 625},
        {"CellCountX, 26 CellCountY, 1", 26, 0, 0},
        {"CellCountX, 1 CellCountY, 26", 26, 0, 0},
        {"CellCountX, 2147483647 CellCountY, 2147483647", 1, 0, 0},
        {"CellCountX, -2 CellCountY, -2", 4, 0, 0},
        {"CellCountX, 2 CellCountY, 2", 9, 4, 4},
        {"CellCountX, 3 CellCountY, 2", 4, 6, 4},
        {"", 4, 0, 0},
    };
    for (const auto& c : cases) {
        const clsGrid grid = Read(block(c.Counts, c.NumCells));
        EXPECT_EQ(static_cast<int>(grid.CellState.size()), c.NumTaken) << c.Counts;
        EXPECT_EQ(std::count(grid.CellState.begin(), grid.CellState.end(), CellUsable), c.NumUsable)
            << c.Counts;
        EXPECT_LE(grid.CellCountX * grid.CellCountY, MaxGridCells * MaxGridCells) << c.Counts;
        EXPECT_EQ(grid.MaxPV, 7) << c.Counts;
    }
}

TEST(clsGridBlock, LinesMayStandInAnyOrder)
{
    const clsGrid grid = Read("useRMS=false, nonsense UsePV, True\n\nwhat is this\n"
                              "cells cell, 1, 0.5, 2\nCELL 2; 0.25; 3\ncell 9 1 1\n"
                              "CellCountY, 1 CellCountX, 3\nGridEnd\nMaxPV, 7\n");
    EXPECT_FALSE(grid.UseRMS);
    EXPECT_EQ(grid.CellState, (std::vector<std::int32_t>{1, 2, 0}));
    EXPECT_EQ(grid.CellRMS, (std::vector<double>{0.5, 0.25, 1}));
    EXPECT_EQ(grid.MaxPV, 1) << "behind the end of the block";
}

} // namespace
} // namespace morvane
