#include "report/TextPanes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FringePicture.h"
#include "PlainHost.h"

namespace morvane {
namespace {

using ::testing::ElementsAre;

class TextPanes : public ::testing::Test {
protected:
    // So many cells, cell n with RMS n / 100, all usable.
    void SetGrid(int Columns, int Rows)
    {
        clsGrid& grid = document.Grid;
        grid.CellCountX = Columns;
        grid.CellCountY = Rows;
        grid.CellWidth = grid.CellHeight = 5;
        std::vector<double> values;
        for (int i = 0; i < Columns * Rows; ++i)
            values.push_back(i / 100.0);
        const std::vector<std::int32_t> states(values.size(), CellUsable);
        grid.SetAnalysisResults(states, values, values);
    }

    PlainHost host;
    clsDocument document{host};
    ReportPreferences chosen;
};

TEST_F(TextPanes, AberrationRowsAreChosenByTheirNumber)
{
    document.Optic = {
        .Description = {}, .Date = "Mar 7, 2026", .Operator = "Ada", .Comments = "c\r\nd"};
    chosen = {.ShowPV = false,
        .ShowStrehl = false,
        .ShowAstigmatism = false,
        .ShowComa = false,
        .ShowSpherical = false,
        .ShowWavelength = false,
        .ShowDescription = true,
        .ShowDate = false,
        .ShowOperator = true};
    document.LoadBlankImage(100, 100);
    SetCircle(document.Aperture, 50, 50, 40);
    document.Averaged = true; // of nothing: all figures are 0
    ASSERT_TRUE(document.CreateOutputViews() && document.UpdateAnalysis(true, true));
    const TextPane pane = AberrationsPane(document, chosen);
    EXPECT_THAT(pane.Rows,
        ElementsAre("Output Units: Waves", "", "RMS\t 0.000", "", "Date Tested\tMar 7, 2026",
            "Comments\tc d"))
        << "the date stands in the row of the description";
    EXPECT_THAT(pane.TabStops, ElementsAre(15, 24, 36));
}

TEST_F(TextPanes, CoefficientsAreGroupedByRadialOrder)
{
    ZernikeSet coefficients{};
    coefficients[0] = -0.25;
    coefficients[2] = 1;
    coefficients[35] = 0.5;
    document.SetZernikes(coefficients);
    const TextPane pane = ZernikesPane(document);
    ASSERT_EQ(pane.Rows.size(), 19u);
    EXPECT_EQ(pane.Rows[0], "Zernike Polynomials");
    EXPECT_EQ(pane.Rows[2], "Second Order");
    EXPECT_EQ(pane.Rows[3], "-0.250000   0.000000   1.000000");
    EXPECT_EQ(pane.Rows[5], "Fourth Order");
    EXPECT_EQ(pane.Rows[17], "Twelfth Order");
    EXPECT_EQ(pane.Rows[18], " 0.500000");
    EXPECT_TRUE(pane.Wraps);
}

TEST_F(TextPanes, AGridWithoutResultsTellsItsCriteria)
{
    document.Grid.MaxRMS = 0.075;
    document.Grid.UsePV = false;
    EXPECT_THAT(GridResultsPane(document.Grid, 50, 100).Rows,
        ElementsAre("Grid Analysis Results", "", "Maximum Acceptable RMS:\t 0.075",
            "P-V criterion disabled."));
}

TEST_F(TextPanes, CellsFillBlocksSideBySide)
{
    const struct {
        const char* Name;
        int Columns, Rows, Lines, Characters;
        std::size_t Blocks, RowsOfCells;
        int SecondBlockAt; // characters
    } cases[] = {
        {"one block", 3, 2, 40, 60, 1, 29, 0},
        {"five", 10, 10, 30, 200, 5, 19, 40},
        {"five would fit, three hold all", 10, 10, 51, 200, 3, 40, 40},
        {"two", 10, 10, 61, 100, 2, 50, 50},
        {"neither lines nor room", 3, 2, 5, 10, 1, 1, 0},
    };
    for (const auto& c : cases) {
        SetGrid(c.Columns, c.Rows);
        const TextPane pane = GridResultsPane(document.Grid, c.Lines, c.Characters);
        const bool holdsAll = c.Blocks * c.RowsOfCells >= std::size_t(c.Columns) * c.Rows;
        EXPECT_EQ(pane.IsWhole, holdsAll) << c.Name;
        EXPECT_EQ(pane.Rows.back().ends_with("..."), !holdsAll) << c.Name;
        EXPECT_EQ(pane.TabStops.size(), 4 * c.Blocks) << c.Name;
        EXPECT_EQ(pane.Rows.size(), 11 + c.RowsOfCells) << c.Name;
        if (c.Blocks > 1) {
            EXPECT_EQ(pane.TabStops[4], c.SecondBlockAt) << c.Name;
        }
    }
}

TEST_F(TextPanes, ARowHoldsTheCellsOfAllBlocks)
{
    SetGrid(10, 10);
    const TextPane pane = GridResultsPane(document.Grid, 61, 100);
    EXPECT_EQ(pane.Rows[5], "100.00% of cells analyzed.");
    EXPECT_EQ(pane.Rows[7], "2500.00 mm^2 of area is usable.");
    EXPECT_EQ(pane.Rows[9], "\t RMS\t P-V\t\t\t RMS\t P-V\t\t");
    EXPECT_EQ(pane.Rows[11], "(0, 0) \t 0.0000\t 0.0000\tPASS\t(0, 5) \t 0.5000\t 0.5000\tPASS\t");
    EXPECT_THAT(pane.TabStops, ElementsAre(0, 10, 20, 30, 50, 60, 70, 80));
}

} // namespace
} // namespace morvane
