#include "report/ReportPage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace morvane {
namespace {

using ::testing::ElementsAreArray;
using ::testing::UnorderedElementsAreArray;

// 100 dots per inch; the box is 951 by 1001 and starts at (25, 55).
DeviceFigures PlainSheet()
{
    return {100, 100, {1001, 1081}, {1001, 1081}, {}};
}
constexpr int TitleHeight = 23;
constexpr int L = 25, T = 55, R = 975, B = 1055, CX = 500; // CX: half of 951 and 25, to even

TEST(ReportPage, PanesAndLinesGoByTheirNumber)
{
    constexpr int third = 389, twoFifths = 455, half = 556, threeFifths = 656, twoThirds = 722,
                  sevenTenths = 756;
    const struct {
        int NumPanes;
        std::vector<DeviceRect> Panes;
        std::vector<PageLine> Lines;
    } cases[] = {
        {0, {}, {}},
        {1, {{L, T, R, B}}, {}},
        {2, {{L, T, R, threeFifths}, {L, threeFifths, R, B}},
            {{{L, threeFifths}, {R, threeFifths}}}},
        {3, {{L, T, R, threeFifths}, {L, threeFifths, CX, B}, {CX, threeFifths, R, B}},
            {{{CX, threeFifths}, {CX, B}}, {{L, threeFifths}, {R, threeFifths}}}},
        {4, {{L, T, CX, half}, {CX, T, R, half}, {L, half, CX, B}, {CX, half, R, B}},
            {{{CX, T}, {CX, B}}, {{L, half}, {R, half}}}},
        {5,
            {{L, T, R, twoFifths}, {L, twoFifths, CX, sevenTenths}, {CX, twoFifths, R, sevenTenths},
                {L, sevenTenths, CX, B}, {CX, sevenTenths, R, B}},
            {{{CX, twoFifths}, {CX, B}}, {{L, twoFifths}, {R, twoFifths}},
                {{L, sevenTenths}, {R, sevenTenths}}}},
        {6,
            {{L, T, CX, third}, {CX, T, R, third}, {L, third, CX, twoThirds},
                {CX, third, R, twoThirds}, {L, twoThirds, CX, B}, {CX, twoThirds, R, B}},
            {{{CX, T}, {CX, B}}, {{L, third}, {R, third}}, {{L, twoThirds}, {R, twoThirds}}}},
        {7, {}, {}},
    };
    for (const auto& c : cases) {
        const ReportPage page = LayOutPage(PlainSheet(), TitleHeight, c.NumPanes);
        EXPECT_EQ(page.Box, (DeviceRect{L, T, R, B}));
        EXPECT_THAT(page.Panes, ElementsAreArray(c.Panes)) << c.NumPanes << " panes";
        EXPECT_THAT(page.InnerLines, UnorderedElementsAreArray(c.Lines)) << c.NumPanes << " panes";
    }
}

TEST(ReportPage, MarginsComeFromTheEdgesOfThePrinter)
{
    const struct {
        const char* Name;
        DeviceSize Printable, Physical;
        DevicePoint Offset;
        int TitleTop, Left, Bottom; // bottom above the last printable line
    } cases[] = {
        {"none: a fifth of an inch", {1000, 1000}, {1000, 1000}, {}, 20, 25, 25},
        {"in one axis only: none", {1000, 1000}, {1100, 1000}, {10, 0}, 20, 25, 25},
        {"narrow: the quarter inch rules", {1000, 1000}, {1020, 1020}, {10, 10}, 10, 25, 25},
        {"wide ones count", {1000, 1000}, {1080, 1100}, {40, 50}, 50, 40, 50},
        {"half of what the offsets leave over", {1000, 1000}, {1080, 1100}, {10, 20}, 50, 40, 50},
        {"offsets beyond the half stay", {1000, 1000}, {1080, 1100}, {60, 70}, 70, 60, 70},
    };
    for (const auto& c : cases) {
        const ReportPage page =
            LayOutPage({100, 100, c.Printable, c.Physical, c.Offset}, TitleHeight, 1);
        EXPECT_EQ(page.Title, (DevicePoint{500, c.TitleTop})) << c.Name; // 499.5, to even
        EXPECT_EQ(page.Box,
            (DeviceRect{c.Left, c.TitleTop + TitleHeight + page.Gap, 999 - c.Left, 999 - c.Bottom}))
            << c.Name;
    }
}

TEST(ReportPage, ResolutionsMayDiffer)
{
    const ReportPage page = LayOutPage({600, 300, {4800, 3000}, {4800, 3000}, {}}, 60, 1);
    EXPECT_EQ(page.Gap, 75);
    EXPECT_EQ(page.Box, (DeviceRect{150, 60 + 60 + 75, 4649, 2999 - 75}));
    EXPECT_EQ(page.Inside(page.Panes[0]), (DeviceRect{225, 270, 4575, 2850}));
}

} // namespace
} // namespace morvane
