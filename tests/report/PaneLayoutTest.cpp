#include "report/PaneLayout.h"

#include <gtest/gtest.h>

#include "RecordingDevice.h"

namespace morvane {
namespace {

// Both limits of a rectangle or line, as its numbers stand in the table of the page.
DeviceRect Closed(int Left, int Top, int Right, int Bottom)
{
    return {Left, Top, Right + 1, Bottom + 1};
}

TEST(PaneLayout, DividesThePageByTheNumberOfPanes)
{
    constexpr int L = 10, T = 20, R = 609, B = 3019, M = 310; // 600 by 3000
    constexpr int third = 1020, twoFifths = 1220, half = 1520, threeFifths = 1820, twoThirds = 2020,
                  sevenTenths = 2120;
    const struct {
        int NumPanes;
        std::vector<DeviceRect> Panes, Lines;
    } cases[] = {
        {0, {}, {}},
        {1, {Closed(L, T, R, B)}, {}},
        {2, {Closed(L, T, R, threeFifths), Closed(L, threeFifths, R, B)},
            {{L, threeFifths, R, threeFifths}}},
        {3,
            {Closed(L, T, R, threeFifths), Closed(L, threeFifths, M, B),
                Closed(M, threeFifths, R, B)},
            {{L, threeFifths, R, threeFifths}, {M, threeFifths, M, B}}},
        {4,
            {Closed(L, T, M, half), Closed(M, T, R, half), Closed(L, half, M, B),
                Closed(M, half, R, B)},
            {{L, half, R, half}, {M, T, M, B}}},
        {5,
            {Closed(L, T, R, twoFifths), Closed(L, twoFifths, M, sevenTenths),
                Closed(M, twoFifths, R, sevenTenths), Closed(L, sevenTenths, M, B),
                Closed(M, sevenTenths, R, B)},
            {{L, twoFifths, R, twoFifths}, {L, sevenTenths, R, sevenTenths}, {M, twoFifths, M, B}}},
        {6,
            {Closed(L, T, M, third), Closed(M, T, R, third), Closed(L, third, M, twoThirds),
                Closed(M, third, R, twoThirds), Closed(L, twoThirds, M, B),
                Closed(M, twoThirds, R, B)},
            {{L, third, R, third}, {L, twoThirds, R, twoThirds}, {M, T, M, B}}},
        {7, {}, {}},
    };
    for (const auto& c : cases) {
        const PaneLayout layout = LayOutPanes(Closed(L, T, R, B), c.NumPanes);
        EXPECT_EQ(layout.Panes, c.Panes) << c.NumPanes;
        std::vector<DeviceRect> lines;
        for (const auto& [from, to] : layout.Lines)
            lines.push_back({from.X, from.Y, to.X, to.Y});
        EXPECT_EQ(lines, c.Lines) << c.NumPanes;
    }
}

TEST(PaneLayout, PicturesKeepTheirProportionsInTheMiddle)
{
    const struct {
        const char* Name;
        DeviceSize Picture;
        DeviceRect Drawn;
    } cases[] = {
        {"as wide as the box", {400, 100}, {100, 75, 300, 125}},
        {"as high", {50, 100}, {175, 50, 225, 150}},
        {"of its proportions", {4, 2}, {100, 50, 300, 150}},
        {"none", {0, 100}, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FitInto({100, 50, 300, 150}, c.Picture), c.Drawn) << c.Name;
    EXPECT_EQ(FitInto({10, 20, 110, 220}, {50, 40}), (DeviceRect{10, 80, 110, 160}));
    EXPECT_EQ(FitInto({10, 20, 110, 220}, {40, 800}), (DeviceRect{55, 20, 65, 220}));
    EXPECT_EQ(FitInto({5, 5, 5, 9}, {1, 1}), DeviceRect{}) << "no room";
}

} // namespace
} // namespace morvane
