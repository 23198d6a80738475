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
    const TextPane pane{.Rows = {"a\tb\tc", "", "0123456\td", "\te\tf\tg"}, .TabStops = {0, 5, 7}};
    DrawTextPane(device, {100, 50, 1000, 1000}, pane, style);
    EXPECT_THAT(Drawn(),
        ElementsAre("100,50 a", "150,50 b", "170,50 c", "100,98 0123456", "180,98 d", "150,122 e",
            "170,122 f", "260,122 g"));
    EXPECT_EQ(device.Calls[0].In, (Font{.FaceName = "Courier New", .Height = 20}));
    EXPECT_EQ(device.Calls[0].Fill, Cyan);
    EXPECT_EQ(device.Calls[0].Clip, (DeviceRect{100, 50, 1000, 1000}));
}

TEST_F(PageText, NoLineIsCutThroughByTheLowerEdge)
{
    const TextPane pane{.Rows = {"first row", "second", "third"}, .Wraps = true};
    DrawTextPane(device, {0, 0, 60, 4 * 24 - 1}, pane, style);
    EXPECT_THAT(Drawn(), ElementsAre("0,0 first ", "0,24 row", "0,48 second"));
}

} // namespace
} // namespace morvane
