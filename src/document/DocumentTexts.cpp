#include "document/DocumentTexts.h"

#include "document/clsDocument.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

constexpr const char* LineEnd = "\r\n";

std::string PaddedLeft(std::string Text, std::size_t Width, char Fill)
{
    if (Text.size() < Width)
        Text.insert(0, Width - Text.size(), Fill);
    return Text;
}

// One aberration: name, amount in display units, and with AngleIndex the angle in degrees.
std::string AberrationLine(
    const clsDocument& Of, const char* Name, int Index, bool Removed, int AngleIndex = 0)
{
    std::string line = std::string(Name) + "\t";
    if (Removed)
        return line + " Removed" + LineEnd;
    line += SignedFixed(Of.Kingslake(Index) * Of.DisplayScale, 2);
    if (AngleIndex != 0)
        line += "\t" + PaddedLeft(SignedFixed(Of.Kingslake(AngleIndex), 1) + " deg", 10, ' ');
    return line + LineEnd;
}

const char* VerdictOn(std::int32_t state)
{
    switch (state) {
    case CellNotAnalysed:
        return "N/A";
    case CellUsable:
        return "PASS";
    case CellFails:
        return "FAIL";
    default:
        return "";
    }
}

std::string CriterionLine(const char* name, const char* none, bool isUsed, double limit)
{
    if (!isUsed)
        return std::string(none) + LineEnd;
    return std::string("Maximum Acceptable ") + name + ":\t" + SignedFixed(limit, 4) + LineEnd;
}

} // namespace

const char* UnitName(DisplayUnit Unit)
{
    switch (Unit) {
    case DisplayUnit::Micrometers:
        return "Micrometers";
    case DisplayUnit::Microinches:
        return "Microinches";
    case DisplayUnit::Waves:
        break;
    }
    return "Waves";
}

std::string SignedFixed(double Value, int Decimals)
{
    std::string text = FormatFixed(Value, Decimals);
    if (text.front() != '-')
        text.insert(0, 1, ' ');
    return text;
}

std::string AberrationsText(const clsDocument& Of)
{
    const FiguresOfMerit& figures = Of.Figures;
    std::string text = std::string("Output Units: ") + UnitName(Of.ScaleMode) + LineEnd + LineEnd;
    text += "RMS\t" + SignedFixed(figures.RMS * Of.DisplayScale, 3) + LineEnd;
    text += "Peak-Valley\t" + SignedFixed(figures.PV * Of.DisplayScale, 2) + LineEnd;
    text += "Strehl Ratio\t" + SignedFixed(figures.Strehl, 2) + LineEnd;
    text += AberrationLine(Of, "Tilt", 1, Of.Removed.Tilt, 2);
    text += AberrationLine(Of, "Defocus", 3, Of.Removed.Focus);
    text += AberrationLine(Of, "Astigmatism", 4, Of.Removed.Astigmatism, 5);
    text += AberrationLine(Of, "Coma", 6, Of.Removed.Coma, 7);
    text += AberrationLine(Of, "Spherical", 8, Of.Removed.Spherical);
    text += LineEnd;
    text += "Scale\t" + FormatFixed(Of.InvertWavefront ? -Of.ZScale : Of.ZScale, 2) + LineEnd;
    text += "Wavelength\t" + PaddedLeft(FormatFixed(Of.OutWL, 1), 5, '0') + " nm" + LineEnd;
    text += Of.Averaged ? "Data Sets\t" : "Data Points\t";
    return text + std::to_string(Of.nDataPts);
}

std::string ZernikesText(const clsDocument& Of)
{
    constexpr int rows = NumZernikes / 2;
    std::string text;
    for (int left = 1; left <= rows; ++left) {
        const int right = left + rows;
        if (left > 1)
            text += LineEnd;
        text += PaddedLeft(std::to_string(left), 2, ' ') + "\t" + SignedFixed(Of.Zernike(left), 6);
        text += "\t" + std::to_string(right) + "\t" + SignedFixed(Of.Zernike(right), 6);
    }
    return text;
}

std::string GridResultsText(const clsGrid& Of)
{
    std::string text = CriterionLine("RMS", "RMS Measurement Not Considered", Of.UseRMS, Of.MaxRMS)
        + CriterionLine("P-V", "P-V Measurement Not Considered", Of.UsePV, Of.MaxPV) + LineEnd;
    if (!Of.IsDefined(GridHasResults))
        return text;
    const GridStatistics statistics = Of.GetStatistics();
    text += FormatFixed(statistics.PercentAnalysed, 2) + "% of cells analyzed" + LineEnd;
    text += FormatFixed(statistics.PercentUsable, 2) + "% of cells usable" + LineEnd;
    text += FormatFixed(statistics.Area, 2) + " mm^2 of area is usable." + LineEnd;
    text += LineEnd;
    text += std::string("\t RMS\t P-V") + LineEnd + "\t ---\t ---";
    for (int y = 0; y < Of.CellCountY; ++y)
        for (int x = 0; x < Of.CellCountX; ++x)
            text += LineEnd + GridCellText(Of, x, y);
    return text;
}

int CellNameRoom(const clsGrid& Of)
{
    const auto digits = [](int count) { return std::to_string(count - 1).size() + 1; };
    return static_cast<int>(digits(Of.CellCountX) + digits(Of.CellCountY));
}

std::array<int, 3> GridResultsTabStops(const clsGrid& Of)
{
    const int name = 4 * (CellNameRoom(Of) + 4);
    return {name, name + 40, name + 80};
}

std::string GridCellText(const clsGrid& Of, int X, int Y)
{
    const CellMeasurements cell = Of.GetCellMeasurements(X, Y);
    return "(" + std::to_string(X) + ", " + std::to_string(Y) + ") \t" + SignedFixed(cell.RMS, 4)
        + "\t" + SignedFixed(cell.PV, 4) + "\t" + VerdictOn(cell.State);
}

} // namespace morvane
