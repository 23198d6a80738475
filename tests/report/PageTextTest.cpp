#include "report/PageText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RecordingDevice.h"

namespace morvane {
namespace {

using ::testing::ElementsAre;

// Each character is 10 units wide, a line 24 high.
class PageText : public ::testing::Test {
protected:
    PageText()
    {
        device.Shape.PixelsPerInchX = device.Shape.PixelsPerInchY = 144;
        device.SetFont(DeviceFont(device, style));
    }
    void Draw(const DeviceRect& box, const TextPane& pane)
    {
        DrawTextPane(
            device, box, [&] { return pane; }, style);
    }
    // "12,0 text": where each text was drawn.
    std::vector<std::string> Drawn() const
    {
        std::vector<std::string> texts;
        for (const DeviceCall& call : device.Calls)
            texts.push_back(std::to_string(call.Points[0].X) + ","
                + std::to_string(call.Points[0].Y) + " " + call.Text);
        return texts;
    }

    const TextFont style{.FaceName = "Courier New", .Size = 10, .Ink = Cyan};
    RecordingDevice device;
};

TEST_F(PageText, FiguresWrapWithoutLosingAnyPart)
{
    const struct {
        const char* Row;
        int Columns;
        std::vector<std::string> Lines;
    } cases[] = {
        {"", 10, {""}},
        {" 0.25  -1.50", 12, {" 0.25  -1.50"}},
        {"cut within a figure", 12, {"cut within ", "a figure"}},
        {" 0.25  -1.50   2.75", 12, {" 0.25  ", "-1.50   2.75"}},
        {" 0.25  -1.50   2.75", 13, {" 0.25  -1.50 ", " 2.75"}},
        {" 0.25  -1.50   2.75", 14, {" 0.25  -1.50  ", " 2.75"}}, // its sign column comes back
        {" 0.25  -1.50   2.75", 16, {" 0.25  -1.50   ", " 2.75"}},
        {" 0.25  -1.50   2.75", 7, {" 0.25  ", "-1.50  ", " 2.75"}},
        {" 0.25  -1.50   2.75", 9, {" 0.25  ", "-1.50   ", " 2.75"}},
        {"1234567", 3, {"123", " 45", " 67"}}, // nothing to cut at
        {"123", 1, {"1", "2", "3"}},
        {"\xc3\xa4\xc3\xb6\xc3\xbc", 0, {"\xc3\xa4", "\xc3\xb6", "\xc3\xbc"}},
    };
    for (const auto& c : cases)
        EXPECT_THAT(WrapText(device, c.Row, 10 * c.Columns), ::testing::ElementsAreArray(c.Lines))
            << c.Row << " in " << c.Columns;
}

TEST_F(PageText, WordsWrapAndKeepTheirOwnLineEnds)
{
    EXPECT_THAT(WrapWords(device, "one two three\r\n\r\nfour", 80),
        ElementsAre("one two", "three", "", "four"));
    EXPECT_THAT(WrapWords(device, "interferometer on a stand", 80),
        ElementsAre("interferometer", "on a", "stand"))
        << "a word is never broken";
    EXPECT_THAT(WrapWords(device, "12345678 9", 80), ElementsAre("12345678", "9"));
    EXPECT_THAT(WrapWords(device, "", 80), ElementsAre(""));
}

TEST_F(PageText, TabsGoToTheNextStop)
{
    const TextPane pane{
        .Rows = {"a\tb\tc", "", "0123456\td", "", "\te\tf\tg"}, .TabStops = {0, 5, 7}};
    Draw({100, 50, 1000, 1000}, pane);
    EXPECT_THAT(Drawn(),
        ElementsAre("100,50 a", "150,50 b", "170,50 c", "100,98 0123456", "180,98 d", "150,146 e",
            "170,146 f", "260,146 g"));
    EXPECT_EQ(device.Calls[0].In, (Font{.FaceName = "Courier New", .Height = 20}));
    EXPECT_EQ(device.Calls[0].Fill, Cyan);
    EXPECT_EQ(device.Calls[0].Clip, (DeviceRect{100, 50, 1000, 1000}));
}

TEST_F(PageText, SecondCellsOfAGroupStandInOneColumn)
{
    Draw({0, 0, 1000, 1000},
        {.Rows = {"Maximum RMS:\t1", "Max P-V:\t2\t3", "", "P-V\t4"}, .TabStops = {10, 20, 30}});
    EXPECT_THAT(Drawn(),
        ElementsAre("0,0 Maximum RMS:", "200,0 1", "0,24 Max P-V:", "200,24 2", "300,24 3",
            "0,72 P-V", "100,72 4"));
}

TEST_F(PageText, TheFontShrinksUntilAllRowsFit)
{
    // At 9 points a character is 9 units wide and a line 21 high, at 5 points 5 and 12.
    const struct {
        const char* Name;
        TextPane Pane;
        DeviceSize Room;
        std::vector<std::string> Drawn;
    } cases[] = {
        {"all of it", {{"one", "two"}}, {60, 48}, {"0,0 one", "0,24 two"}},
        {"too low", {{"one", "two"}}, {60, 47}, {"0,0 one", "0,21 two"}},
        {"too narrow", {{"one\t2\t3"}, {4, 6}}, {64, 48}, {"0,0 one", "36,0 2", "54,0 3"}},
        {"too low for what wraps", {.Rows = {" 1.5  -2.5  -3.5"}, .Wraps = true}, {110, 47},
            {"0,0  1.5  -2.5  ", "0,21 -3.5"}},
        {"a long remark", {{"by\tAda and Bob"}, {4}}, {110, 60},
            {"0,0 by", "40,0 Ada and", "40,24 Bob"}},
        {"never below 5 points", {{"one", "two", "three"}}, {60, 35}, {"0,0 one", "0,12 ..."}},
        {"no bare heading", {{"one", "", "Order", "1", "2"}}, {60, 59}, {"0,0 one", "0,24 ..."}},
        {"no room at all", {{"one", "two"}}, {60, 10}, {"0,0 ..."}},
    };
    for (const auto& c : cases) {
        device.Calls.clear();
        Draw({0, 0, c.Room.Width, c.Room.Height}, c.Pane);
        EXPECT_EQ(Drawn(), c.Drawn) << c.Name;
    }
}

} // namespace
} // namespace morvane
