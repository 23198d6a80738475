#include "report/TextPanes.h"

#include <algorithm>
#include <string_view>

#include "document/DocumentTexts.h"
#include "platform/Numbers.h"
#include "report/PageText.h"

namespace morvane {
namespace {

// The optic's fields that say something. The first of them stands in the row that the description
// would have, whichever it is.
std::vector<std::string> OpticLines(const UserData& of)
{
    const std::pair<const char*, const std::string*> fields[] = {{"Description", &of.Description},
        {"Date Tested", &of.Date}, {"Operator", &of.Operator}, {"Comments", &of.Comments}};
    std::vector<std::string> lines;
    for (const auto& [name, value] : fields) {
        std::string line;
        for (const std::string_view part : LinesOf(*value))
            line.append(line.empty() ? "" : " ").append(part);
        std::ranges::replace(line, '\t', ' '); // else it would be a row of columns
        if (!line.empty())
            lines.push_back(std::string(name) + "\t" + line);
    }
    return lines;
}

std::string CoefficientLine(const clsDocument& of, int first, int last)
{
    std::string line;
    for (int i = first; i <= last; ++i)
        line += (i > first ? "  " : "") + SignedFixed(of.Zernike(i), 6);
    return line;
}

std::string CriterionRow(const char* name, bool isUsed, double limit)
{
    if (!isUsed)
        return std::string(name) + " criterion disabled.";
    const std::string value = FormatGeneral(limit);
    return std::string("Maximum Acceptable ") + name + ":\t" + (limit < 0 ? "" : " ") + value;
}

// The cells of a printed grid, block beside block, each filled from the top.
struct CellTable {
    int Blocks, RowsPerBlock, BlockWidth; // characters
    bool HoldsAll;

    CellTable(const clsGrid& of, int lines, int characters)
    {
        constexpr int rowsAbove = 11, figures = 36; // lines, characters of a block
        const int cells = of.CellCountX * of.CellCountY;
        RowsPerBlock = std::max(1, lines - rowsAbove);
        Blocks = std::max(1, characters / (CellNameRoom(of) + figures));
        BlockWidth = characters / Blocks;
        if (RowsPerBlock > cells / Blocks)
            Blocks = cells / RowsPerBlock + 1;
        HoldsAll = Blocks * RowsPerBlock >= cells;
        if (!HoldsAll) // the last row is to say so
            --RowsPerBlock;
    }
    std::string Repeated(const char* piece) const
    {
        std::string row;
        for (int block = 0; block < Blocks; ++block)
            row += piece;
        return row;
    }
    std::string RowOf(const clsGrid& of, int row) const
    {
        std::string text;
        for (int block = 0; block < Blocks; ++block) {
            const int cell = block * RowsPerBlock + row;
            if (cell / of.CellCountX >= of.CellCountY)
                break;
            text += GridCellText(of, cell % of.CellCountX, cell / of.CellCountX) + "\t";
        }
        return text;
    }
    std::vector<int> TabStops(const clsGrid& of) const
    {
        std::vector<int> stops;
        for (int block = 0; block < Blocks; ++block) {
            const int name = block * BlockWidth, figures = name + CellNameRoom(of) + 6;
            stops.insert(stops.end(), {name, figures, figures + 10, figures + 20});
        }
        return stops;
    }
};

} // namespace

TextPane AberrationsPane(const clsDocument& Of, const ReportPreferences& Chosen)
{
    const std::vector<std::string_view> rows = LinesOf(Of.ShownAberrations());
    std::vector<std::string> lines(rows.begin(), rows.end());
    const std::vector<std::string> optic = OpticLines(Of.Optic);
    lines.insert(lines.end(), optic.begin(), optic.end());
    const bool selected[] = {true, true, Chosen.ShowRMS, Chosen.ShowPV, Chosen.ShowStrehl,
        Chosen.ShowTilt, Chosen.ShowDefocus, Chosen.ShowAstigmatism, Chosen.ShowComa,
        Chosen.ShowSpherical, true, Chosen.ShowScale, Chosen.ShowWavelength, Chosen.ShowDataPts,
        Chosen.ShowDescription, Chosen.ShowDate, Chosen.ShowOperator, Chosen.ShowComments};
    TextPane pane{.TabStops = {15, 24, 36}};
    for (std::size_t row = 0; row < lines.size() && row < std::size(selected); ++row)
        if (selected[row])
            pane.Rows.push_back(lines[row]);
    return pane;
}

TextPane ZernikesPane(const clsDocument& Of)
{
    constexpr struct {
        const char* Name;
        int First, Last;
    } orders[] = {{"Second Order", 1, 3}, {"Fourth Order", 4, 8}, {"Sixth Order", 9, 15},
        {"Eighth Order", 16, 24}, {"Tenth Order", 25, 35}, {"Twelfth Order", 36, 36}};
    TextPane pane{.Rows = {"Zernike Polynomials"}, .Wraps = true};
    for (const auto& order : orders) {
        pane.Rows.emplace_back();
        pane.Rows.emplace_back(order.Name);
        pane.Rows.push_back(CoefficientLine(Of, order.First, order.Last));
    }
    return pane;
}

TextPane GridResultsPane(const clsGrid& Of, int Lines, int Characters)
{
    TextPane pane{.Rows = {"Grid Analysis Results", "", CriterionRow("RMS", Of.UseRMS, Of.MaxRMS),
                      CriterionRow("P-V", Of.UsePV, Of.MaxPV)},
        .TabStops = {0, 6, 10, 20}};
    if (!Of.IsDefined(GridHasResults))
        return pane;
    const GridStatistics statistics = Of.GetStatistics();
    const CellTable table(Of, Lines, Characters);
    pane.TabStops = table.TabStops(Of);
    pane.Rows.insert(pane.Rows.end(),
        {"", FormatFixed(statistics.PercentAnalysed, 2) + "% of cells analyzed.",
            FormatFixed(statistics.PercentUsable, 2) + "% of cells usable.",
            FormatFixed(statistics.Area, 2) + " mm^2 of area is usable.", "",
            table.Repeated("\t RMS\t P-V\t\t"), table.Repeated("\t ---\t ---\t\t")});
    for (int row = 0; row < table.RowsPerBlock; ++row)
        pane.Rows.push_back(table.RowOf(Of, row));
    pane.IsWhole = table.HoldsAll;
    if (!table.HoldsAll) // under the block that breaks off
        pane.Rows.push_back(std::string(4 * (table.Blocks - 1), '\t') + MoreFollows);
    return pane;
}

} // namespace morvane
