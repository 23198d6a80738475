#include "document/DocumentTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FringePicture.h"
#include "RecordingFrame.h"

namespace morvane {
namespace {

// A document whose results are set, not computed: an average takes its coefficients as they are.
class ReportedDocument : public ::testing::Test {
protected:
    void Report(const ZernikeSet& Coefficients)
    {
        document.LoadBlankImage(400, 400);
        SetCircle(document.Aperture, 200, 200, 150);
        document.Averaged = true;
        document.ZScale = 1;
        document.SetZernikes(Coefficients);
        ASSERT_TRUE(document.UpdateAnalysis(false, true));
        document.Figures = {.RMS = 0.0704, .Strehl = 0.824, .PV = 1.5};
        document.nDataPts = 3;
    }

    SilentSession session;
    clsDocument document{session.Main};
};

TEST_F(ReportedDocument, AberrationsToTheCharacter)
{
    ZernikeSet coefficients{};
    coefficients[1] = -0.5; // tilt 0.5 at -90 degrees
    coefficients[2] = -0.1; // defocus -0.2
    coefficients[4] = 1; // astigmatism 2 at 45 degrees
    coefficients[5] = -0.05; // coma 0.15 at 180 degrees
    coefficients[7] = 0.125; // spherical 0.75
    Report(coefficients);
    EXPECT_EQ(AberrationsText(document),
        "Output Units: Waves\r\n"
        "\r\n"
        "RMS\t 0.070\r\n"
        "Peak-Valley\t 1.50\r\n"
        "Strehl Ratio\t 0.82\r\n"
        "Tilt\t 0.50\t -90.0 deg\r\n"
        "Defocus\t-0.20\r\n"
        "Astigmatism\t 2.00\t  45.0 deg\r\n"
        "Coma\t 0.15\t 180.0 deg\r\n"
        "Spherical\t 0.75\r\n"
        "\r\n"
        "Scale\t1.00\r\n"
        "Wavelength\t632.8 nm\r\n"
        "Data Sets\t3");
}

TEST_F(ReportedDocument, RemovedRowsLoseTheirAngle)
{
    Report({});
    document.Removed = {.Tilt = true, .Coma = true, .Spherical = true};
    document.Averaged = false;
    document.InvertWavefront = true;
    document.ZScale = 0.5;
    document.ScaleMode = DisplayUnit::Microinches;
    document.DisplayScale = 10;
    document.OutWL = 50;
    EXPECT_EQ(AberrationsText(document),
        "Output Units: Microinches\r\n"
        "\r\n"
        "RMS\t 0.704\r\n"
        "Peak-Valley\t 15.00\r\n"
        "Strehl Ratio\t 0.82\r\n"
        "Tilt\t Removed\r\n"
        "Defocus\t 0.00\r\n"
        "Astigmatism\t 0.00\t   0.0 deg\r\n"
        "Coma\t Removed\r\n"
        "Spherical\t Removed\r\n"
        "\r\n"
        "Scale\t-0.50\r\n"
        "Wavelength\t050.0 nm\r\n"
        "Data Points\t3");
}

TEST_F(ReportedDocument, ZernikesInTwoColumns)
{
    ZernikeSet coefficients{};
    coefficients[0] = 1.2345678;
    coefficients[8] = -0.5;
    coefficients[26] = 2e-7; // term 27, beside term 9
    coefficients[35] = -1e-9;
    Report(coefficients);
    const std::string text = ZernikesText(document);
    EXPECT_EQ(text.find(" 1\t 1.234568\t19\t 0.000000\r\n"), 0u);
    EXPECT_NE(text.find("\r\n 9\t-0.500000\t27\t 0.000000\r\n10\t"), std::string::npos);
    const std::string last = "\r\n18\t 0.000000\t36\t 0.000000";
    EXPECT_EQ(text.substr(text.size() - last.size()), last);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 17);
}

TEST(GridResultsTextOf, TellsCriteriaStatisticsAndEachCell)
{
    clsGrid grid;
    grid.MaxRMS = 0.075;
    grid.UsePV = false;
    grid.CellWidth = 10;
    grid.CellHeight = 5;
    EXPECT_EQ(GridResultsText(grid),
        "Maximum Acceptable RMS:\t 0.0750\r\nP-V Measurement Not Considered\r\n\r\n");
    grid.CellCountX = 11;
    grid.CellCountY = 1;
    std::vector<std::int32_t> states(11, CellNotAnalysed);
    std::vector<double> values(11);
    states[1] = CellUsable;
    states[10] = CellFails;
    values[1] = 0.05;
    values[10] = 0.1234567;
    grid.SetAnalysisResults(states, values, values);
    const std::string text = GridResultsText(grid);
    EXPECT_THAT(text,
        testing::HasSubstr(
            "\r\n\r\n18.18% of cells analyzed\r\n50.00% of cells usable\r\n"
            "50.00 mm^2 of area is usable.\r\n\r\n\t RMS\t P-V\r\n\t ---\t ---\r\n"
            "(0, 0) \t 0.0000\t 0.0000\tN/A\r\n(1, 0) \t 0.0500\t 0.0500\tPASS\r\n"));
    EXPECT_TRUE(text.ends_with("\r\n(10, 0) \t 0.1235\t 0.1235\tFAIL"));
    EXPECT_EQ(GridResultsTabStops(grid), (std::array{36, 76, 116})) << "patterns ##0 and #0";
}

} // namespace
} // namespace morvane
