// A grid of equal cells laid over the optic, its calibration in millimetres, and the verdict on
// each cell. Positions are image pixels, origin top left, y down; the vertical scale is that of the
// horizontal, PixelWidth / PhysicalWidth pixels a millimetre.
//
// A grid goes from empty over calibrated and bounded to analysed, as IsDefined tells. New bounds
// leave the results where they are; other cell counts make them void.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/Device.h"
#include "platform/Point.h"

namespace morvane {

class clsParser;

inline constexpr int MaxGridCells = 25; // in each axis, for an analysis and in a file

// What IsDefined asks for; may be added up.
inline constexpr int GridIsCalibrated = 1, GridHasBounds = 2, GridHasResults = 4;

// States of a cell.
inline constexpr std::int32_t CellNotAnalysed = 0, CellUsable = 1, CellFails = 2;

enum class GridPart { None = 0, Border = 1, Corner = 2 };
inline constexpr int NoCorner = 4;

struct GridHit {
    GridPart Part = GridPart::None;
    int Corner = NoCorner; // as of GetVertex
};

struct CellMeasurements {
    std::int32_t State = CellNotAnalysed;
    double RMS = 0, PV = 0; // waves
};

// Percentages are -1 without cells.
struct GridStatistics {
    double PercentAnalysed = -1;
    double PercentUsable = -1; // of those analysed
    double Area = 0; // usable, square millimetres
};

class clsGrid {
public:
    double UpperLeftX = 0, UpperLeftY = 0;
    double PixelWidth = -1, PixelHeight = -1; // not above 0: no bounds
    double PhysicalWidth = 0, CellWidth = 0, CellHeight = 0; // millimetres
    double MaxRMS = 0.09, MaxPV = 1.0; // waves
    bool UseRMS = true, UsePV = true;
    int CellCountX = 0, CellCountY = 0;
    // Row by row, cell (X, Y) at CellCountX * Y + X.
    std::vector<std::int32_t> CellState;
    std::vector<double> CellRMS, CellPV;

    // Whether all that Flags asks for holds.
    bool IsDefined(int Flags) const;

    void ClearBounds();
    // The rectangle between two opposite corners, at least 1 by 1, its height cut down to whole
    // rows of cells. Only of a calibrated grid.
    void SetBounds(double X1, double Y1, double X2, double Y2);
    // Moves a corner; of corner 2 both sides become shorter by the step from the upper left.
    void Resize(double X, double Y, int Corner);
    // From the calibration and the bounds; without both, the counts stay.
    void UpdateCellCounts();

    Point GetCenter() const;
    // Moves the grid; only if it has bounds.
    void SetCenter(Point Center);
    // 0 upper left, 1 upper right, 2 lower right, 3 lower left; else NoPoint twice.
    Point GetVertex(int Index) const;
    // Closer than 3 image pixels; corners come before the border.
    GridHit Find(Point At) const;

    // Of a cell that does not exist: not analysed.
    CellMeasurements GetCellMeasurements(int X, int Y) const;
    GridStatistics GetStatistics() const;
    // Nothing happens unless each has an entry a cell.
    void SetAnalysisResults(std::span<const std::int32_t> State, std::span<const double> RMS,
        std::span<const double> PV);

    // White lines around all cells; only of a grid with calibration and bounds.
    void Draw(Device& On, const ImageMapping& Map, RasterOp Op) const;

    // The "Grid" block of a document file, appended to Text, lines ended by CR LF.
    void SaveToFile(std::string& Text) const;
    // Reads the block whose first line has been taken from Parser already. Counts above
    // MaxGridCells are refused: both become 0, and there are no results.
    void LoadFromFile(clsParser& Parser);

private:
    std::int64_t NumCells() const { return std::int64_t{CellCountX} * CellCountY; }
    double RowHeight() const { return PixelWidth / PhysicalWidth * CellHeight; } // pixels

    class BlockReader;
};

} // namespace morvane
