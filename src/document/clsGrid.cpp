#include "document/clsGrid.h"

#include <algorithm>
#include <cmath>

#include "platform/Numbers.h"

namespace morvane {

namespace {

// Whole part, saturating.
int Whole(double value)
{
    return RoundToLong(std::floor(value));
}

bool IsNear(double a, double b)
{
    constexpr double tolerance = 3; // image pixels
    return std::abs(a - b) < tolerance;
}

bool IsBetween(double value, double low, double high)
{
    return value >= low && value <= high;
}

} // namespace

bool clsGrid::IsDefined(int Flags) const
{
    if ((Flags & GridIsCalibrated) && !(PhysicalWidth > 0 && CellWidth > 0 && CellHeight > 0))
        return false;
    if ((Flags & GridHasBounds) && !(PixelWidth > 0 && PixelHeight > 0))
        return false;
    const auto isWhole = [this](const auto& cells) {
        return static_cast<std::int64_t>(cells.size()) == NumCells();
    };
    return !(Flags & GridHasResults)
        || (CellCountX > 0 && CellCountY > 0 && isWhole(CellState) && isWhole(CellRMS)
            && isWhole(CellPV));
}

void clsGrid::ClearBounds()
{
    UpperLeftX = UpperLeftY = 0;
    PixelWidth = PixelHeight = -1;
}

void clsGrid::SetBounds(double X1, double Y1, double X2, double Y2)
{
    if (!IsDefined(GridIsCalibrated))
        return;
    UpperLeftX = std::min(X1, X2);
    UpperLeftY = std::min(Y1, Y2);
    PixelWidth = std::max(std::abs(X2 - X1), 1.0);
    PixelHeight = std::max(std::abs(Y2 - Y1), 1.0);
    PixelHeight = std::floor(PixelHeight / RowHeight()) * RowHeight();
    UpdateCellCounts();
}

void clsGrid::Resize(double X, double Y, int Corner)
{
    const double right = X - UpperLeftX, down = Y - UpperLeftY;
    switch (Corner) {
    case 0:
        UpperLeftX = X;
        UpperLeftY = Y;
        PixelWidth -= right;
        PixelHeight -= down;
        break;
    case 1:
        PixelWidth = right;
        UpperLeftY = Y;
        PixelHeight -= down;
        break;
    case 2:
        PixelWidth -= right;
        PixelHeight -= down;
        break;
    case 3:
        UpperLeftX = X;
        PixelWidth -= right;
        PixelHeight = down;
        break;
    default:
        break;
    }
    UpdateCellCounts();
}

void clsGrid::UpdateCellCounts()
{
    if (!IsDefined(GridIsCalibrated + GridHasBounds)) {
        // Bounds that hold no row have no cells; a grid that never had any keeps its counts.
        if (PixelWidth == 0 || PixelHeight == 0)
            CellCountX = CellCountY = 0;
        return;
    }
    // A rounding shortfall must not lose a row.
    constexpr double almostOne = 0.99999999999999;
    CellCountX = Whole(PhysicalWidth / CellWidth);
    const double rows = PixelHeight / RowHeight();
    CellCountY = Whole(rows) + (rows - std::floor(rows) >= almostOne ? 1 : 0);
}

Point clsGrid::GetCenter() const
{
    return {UpperLeftX + PixelWidth / 2, UpperLeftY + PixelHeight / 2};
}

void clsGrid::SetCenter(Point Center)
{
    if (!IsDefined(GridHasBounds))
        return;
    UpperLeftX = Center.X - PixelWidth / 2;
    UpperLeftY = Center.Y - PixelHeight / 2;
}

Point clsGrid::GetVertex(int Index) const
{
    if (Index < 0 || Index >= NoCorner)
        return {};
    const bool isRight = Index == 1 || Index == 2, isLower = Index >= 2;
    return {UpperLeftX + (isRight ? PixelWidth : 0), UpperLeftY + (isLower ? PixelHeight : 0)};
}

GridHit clsGrid::Find(Point At) const
{
    if (!IsDefined(GridIsCalibrated + GridHasBounds))
        return {};
    const Point low = GetVertex(0), high = GetVertex(2);
    const bool nearLeft = IsNear(At.X, low.X), nearRight = IsNear(At.X, high.X);
    const bool nearTop = IsNear(At.Y, low.Y), nearBottom = IsNear(At.Y, high.Y);
    if (nearLeft && (nearTop || nearBottom))
        return {GridPart::Corner, nearTop ? 0 : 3};
    if (nearRight && (nearTop || nearBottom))
        return {GridPart::Corner, nearTop ? 1 : 2};
    if ((nearLeft || nearRight) && IsBetween(At.Y, low.Y, high.Y))
        return {GridPart::Border, NoCorner};
    if ((nearTop || nearBottom) && IsBetween(At.X, low.X, high.X))
        return {GridPart::Border, NoCorner};
    return {};
}

CellMeasurements clsGrid::GetCellMeasurements(int X, int Y) const
{
    if (!IsDefined(GridHasResults) || X < 0 || X >= CellCountX || Y < 0 || Y >= CellCountY)
        return {};
    const std::size_t cell = static_cast<std::size_t>(CellCountX) * Y + X;
    return {CellState[cell], CellRMS[cell], CellPV[cell]};
}

GridStatistics clsGrid::GetStatistics() const
{
    if (CellState.empty())
        return {};
    const auto numCells = static_cast<double>(CellState.size());
    const auto numLeftOut = std::count(CellState.begin(), CellState.end(), CellNotAnalysed);
    const double numAnalysed = numCells - static_cast<double>(numLeftOut);
    const auto numUsable =
        static_cast<double>(std::count(CellState.begin(), CellState.end(), CellUsable));
    return {.PercentAnalysed = numAnalysed / numCells * 100,
        .PercentUsable = numAnalysed < 1 ? 0 : numUsable / numAnalysed * 100,
        .Area = numUsable * CellWidth * CellHeight};
}

void clsGrid::SetAnalysisResults(
    std::span<const std::int32_t> State, std::span<const double> RMS, std::span<const double> PV)
{
    const auto isWhole = [this](const auto& cells) {
        return static_cast<std::int64_t>(cells.size()) == NumCells();
    };
    if (!isWhole(State) || !isWhole(RMS) || !isWhole(PV))
        return;
    CellState.assign(State.begin(), State.end());
    CellRMS.assign(RMS.begin(), RMS.end());
    CellPV.assign(PV.begin(), PV.end());
}

} // namespace morvane
