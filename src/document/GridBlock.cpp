// The block of a document file that holds the grid.
#include <algorithm>
#include <string_view>

#include "document/clsGrid.h"
#include "document/clsParser.h"
#include "platform/Numbers.h"

namespace morvane {

void clsGrid::SaveToFile(std::string& Text) const
{
    Text.append("Grid\r\n");
    AppendNumberLine(Text, "UpperLeftX,", UpperLeftX);
    AppendNumberLine(Text, "UpperLeftY,", UpperLeftY);
    AppendNumberLine(Text, "PixelWidth,", PixelWidth);
    AppendNumberLine(Text, "PixelHeight,", PixelHeight);
    AppendNumberLine(Text, "CellCountX,", CellCountX);
    AppendNumberLine(Text, "CellCountY,", CellCountY);
    AppendNumberLine(Text, "PhysicalWidth,", PhysicalWidth);
    AppendNumberLine(Text, "CellWidth,", CellWidth);
    AppendNumberLine(Text, "CellHeight,", CellHeight);
    AppendNumberLine(Text, "MaxRMS,", MaxRMS);
    AppendNumberLine(Text, "MaxPV,", MaxPV);
    AppendFlagLine(Text, "UseRMS,", UseRMS);
    AppendFlagLine(Text, "UsePV,", UsePV);
    if (IsDefined(GridHasResults)) {
        Text.append("Cells\r\n");
        for (std::size_t cell = 0; cell < CellState.size(); ++cell) {
            Text.append("Cell,");
            AppendNumberField(Text, CellState[cell]);
            Text.append(",");
            AppendNumberField(Text, CellRMS[cell]);
            AppendNumberLine(Text, ",", CellPV[cell]);
        }
        Text.append("CellsEnd\r\n");
    }
    Text.append("GridEnd\r\n");
}

// Reads keyword groups. The cells wait until the end of the block, because the counts may stand
// behind them.
class clsGrid::BlockReader {
public:
    BlockReader(clsGrid& grid, clsParser& parser) : m_grid(grid), m_parser(parser) { }

    void Read()
    {
        m_parser.ReadBlock([this](std::string_view keyword) { return ReadGroup(keyword); });
    }

    // Cells that the block does not name have not been analysed. Counts that no analysis takes are
    // refused.
    void TakeCells()
    {
        if (m_grid.CellCountX > MaxGridCells || m_grid.CellCountY > MaxGridCells)
            m_grid.CellCountX = m_grid.CellCountY = 0;
        if (!m_hasCells)
            return;
        const auto numCells = static_cast<std::size_t>(m_grid.NumCells());
        m_state.resize(numCells, CellNotAnalysed);
        m_rms.resize(numCells);
        m_pv.resize(numCells);
        m_grid.SetAnalysisResults(m_state, m_rms, m_pv);
    }

private:
    BlockWord ReadGroup(std::string_view keyword)
    {
        if (double* const number = Number(keyword))
            *number = m_parser.GetNumber();
        else if (int* const count = Count(keyword))
            *count = std::max(m_parser.GetLong(), 0);
        else if (bool* const flag = Flag(keyword))
            *flag = m_parser.GetKeyword() == "true";
        else if (keyword == "cells")
            m_hasCells = true;
        else if (keyword == "cell" && m_state.size() < MaxGridCells * MaxGridCells)
            ReadCell();
        else
            return keyword == "gridend" ? BlockWord::Last : BlockWord::Unknown;
        return BlockWord::Read;
    }

    double* Number(std::string_view keyword)
    {
        const struct {
            std::string_view Keyword;
            double& Value;
        } numbers[] = {{"upperleftx", m_grid.UpperLeftX}, {"upperlefty", m_grid.UpperLeftY},
            {"pixelwidth", m_grid.PixelWidth}, {"pixelheight", m_grid.PixelHeight},
            {"physicalwidth", m_grid.PhysicalWidth}, {"cellwidth", m_grid.CellWidth},
            {"cellheight", m_grid.CellHeight}, {"maxrms", m_grid.MaxRMS}, {"maxpv", m_grid.MaxPV}};
        for (const auto& number : numbers)
            if (number.Keyword == keyword)
                return &number.Value;
        return nullptr;
    }

    int* Count(std::string_view keyword)
    {
        return keyword == "cellcountx" ? &m_grid.CellCountX
            : keyword == "cellcounty"  ? &m_grid.CellCountY
                                       : nullptr;
    }

    bool* Flag(std::string_view keyword)
    {
        return keyword == "userms" ? &m_grid.UseRMS : keyword == "usepv" ? &m_grid.UsePV : nullptr;
    }

    void ReadCell()
    {
        m_hasCells = true;
        const int state = m_parser.GetLong();
        const bool isKnown = state == CellUsable || state == CellFails;
        m_state.push_back(isKnown ? state : CellNotAnalysed);
        m_rms.push_back(m_parser.GetNumber());
        m_pv.push_back(m_parser.GetNumber());
    }

    clsGrid& m_grid;
    clsParser& m_parser;
    bool m_hasCells = false;
    std::vector<std::int32_t> m_state;
    std::vector<double> m_rms, m_pv;
};

void clsGrid::LoadFromFile(clsParser& Parser)
{
    BlockReader reader(*this, Parser);
    reader.Read();
    reader.TakeCells();
}

} // namespace morvane
