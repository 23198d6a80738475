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
        << "a word is not broken";
    EXPECT_THAT(WrapWords(device, "12345678 9", 80), ElementsAre("12345678", "9"));
    EXPECT_THAT(WrapWords(device, "see " + std::string(40, 'x') + " there", 250),
        ElementsAre("see", std::string(25, 'x'), std::string(15, 'x') + " there"))
        << "but for one that is longer than any figure";
    const std::string eight = "\xe5\xb9\xb2\xe6\xb8\x89\xe7\xb8\x9e\xe3\x82\x92"
                              "\xe8\xa6\x8b\xe3\x81\xbe\xe3\x81\x97\xe3\x81\x9f";
    EXPECT_THAT(WrapWords(device, eight + eight, 250), ElementsAre(eight, eight))
        << "at a whole character";
    EXPECT_THAT(WrapWords(device, "one two three four", 80, 2), ElementsAre("one two", "three"));
    EXPECT_THAT(WrapWords(device, " 0.25 mm", 40), ElementsAre(" 0.25", "mm"));
    EXPECT_THAT(WrapWords(device, "a:\n" + std::string(24, ' ') + "-0.123456 waves and so on", 300),
        ElementsAre("a:", " -0.123456 waves and so on"))
        << "an indentation goes before a figure does";
    EXPECT_THAT(WrapWords(device, "   ", 20), ElementsAre("   "));
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
    const std::string remark(500, 'x');
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
        {"a remark that no size holds leaves the figures theirs",
            {{"RMS\t0.1", "by\t" + remark, "", "Data\t9"}, {5}}, {350, 5 * 24},
            {"0,0 RMS", "50,0 0.1", "0,24 by", "50,24 " + remark.substr(0, 30),
                "50,48 " + remark.substr(0, 27) + "...", "0,96 Data", "50,96 9"}},
        {"nor does one that only a tiny size holds make them tiny",
            {{"RMS\t0.1 waves", "by\t" + remark.substr(0, 120)}, {5}}, {350, 2 * 24},
            {"0,0 RMS", "50,0 0.1 waves", "0,24 by", "50,24 " + remark.substr(0, 27) + "..."}},
        {"a figure is not cut for it", {{"RMS\t 0.123 waves", "by\t" + remark}, {5}}, {150, 24},
            {"0,0 RMS", "25,0  0.123 waves", "0,12 by", "25,12 " + remark.substr(0, 22) + "..."}},
        {"too narrow for 5 points", {{"RMS\t0.1\t0.2\t0.3"}, {4, 8}}, {52, 48},
            {"0,0 RMS", "20,0 0.1..."}},
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

TEST_F(PageText, WordsThatNoSizeHoldsAreCutInTheirOwn)
{
    std::string text = "Comments:";
    for (int i = 0; i < 1000; ++i)
        text += "\tto be read";
    DrawWords(device, {0, 0, 200, 50}, text, style);
    EXPECT_THAT(Drawn(), ElementsAre("0,0 Comments: to be read", "0,24 to be read to be..."));

    device.Calls.clear();
    DrawWords(device, {0, 0, 80, 24}, text, style); // 9 letters of 8 points, which are 8 wide
    EXPECT_THAT(Drawn(), ElementsAre("0,0 Comment...")) << "where its words fit";

    device.Calls.clear();
    DrawWords(device, {0, 0, 200, 24}, "all fits\r\n\r\n", style);
    EXPECT_THAT(Drawn(), ElementsAre("0,0 all fits"));
}

struct CountingDevice : RecordingDevice {
    mutable std::size_t Times = 0, Bytes = 0;

    DeviceSize MeasureText(std::string_view text) const override
    {
        ++Times;
        Bytes += text.size();
        return RecordingDevice::MeasureText(text);
    }
};

// On a printer each measurement takes microseconds, and a letter of it some tenths of one.
TEST(PageTextSpeed, LongTextsInLargeFontsAreNotMeasuredWhole)
{
    constexpr std::size_t length = 256 * 1024, mostTimes = 5000, mostBytes = length;
    std::string words;
    while (words.size() < length)
        words += "fringe ";
    std::string columns;
    for (int i = 0; i < 2500; ++i)
        columns += "0.1\t";
    const std::string lineEnds(length, '\n'), word(length, 'x');
    const TextPane coefficients{.Rows = std::vector<std::string>(6,
                                    " 0.123456 -1.234567"
                                    " 2.345678 -3.456789"),
        .Wraps = true};
    const struct {
        const char* Name;
        TextPane Pane;
    } cases[] = {{"words", {{"RMS\t0.1", "Comments\t" + words}, {15}}},
        {"one word", {{"RMS\t0.1", "Comments\t" + word}, {15}}},
        {"line ends", {{"RMS\t0.1", "Comments\t" + lineEnds}, {15}}},
        {"coefficients", coefficients}, {"columns", {{columns}, {15}}}};
    for (const int size : {10, 72, 1000})
        for (const auto& c : cases) {
            CountingDevice device;
            device.Shape.PixelsPerInchX = device.Shape.PixelsPerInchY = 600;
            DrawTextPane(device, {0, 0, 2000, 1800}, [&] { return c.Pane; }, {.Size = size});
            EXPECT_LT(device.Times, mostTimes) << c.Name << " in " << size;
            EXPECT_LT(device.Bytes, mostBytes) << c.Name << " in " << size;
        }
    for (const std::string& text : {words, word, std::string(length, ' ') + word, lineEnds + word})
        for (const DeviceRect& box : {DeviceRect{0, 0, 2000, 1800}, DeviceRect{0, 0, 0, 0}}) {
            CountingDevice device;
            DrawWords(device, box, text, {.Size = 72});
            EXPECT_LT(device.Times, mostTimes) << text.substr(0, 8);
            EXPECT_LT(device.Bytes, mostBytes) << text.substr(0, 8);
        }
}

} // namespace
} // namespace morvane
