#include "report/PageText.h"

#include <algorithm>

namespace morvane {
namespace {

constexpr bool IsDigit(char of)
{
    return of >= '0' && of <= '9';
}

// The first place from there on where a character of UTF-8 starts or the text ends.
std::size_t CharacterFrom(std::string_view text, std::size_t at)
{
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xc0) == 0x80)
        ++at;
    return at;
}

// Stops beyond the last one are eight characters apart.
int NextStop(const Device& on, int x, const std::vector<int>& stops)
{
    const int character = on.AverageCharacterWidth();
    for (const int stop : stops)
        if (stop * character > x)
            return stop * character;
    const int apart = std::max(1, 8 * character);
    return (x / apart + 1) * apart;
}

// A line of cells between tabs, the second of which starts at SecondCell.
struct Line {
    std::string Text;
    int SecondCell; // device units from the left edge
};

// Visit takes the left end of a cell, from that of the line, and the cell.
template <typename Visitor>
void ForEachCell(const Device& on, const Line& of, const std::vector<int>& stops, Visitor visit)
{
    std::string_view rest = of.Text;
    for (int x = 0, column = 0;; ++column) {
        const std::size_t tab = rest.find('\t');
        const std::string_view cell = rest.substr(0, tab);
        if (!cell.empty())
            visit(x, cell);
        if (tab == std::string_view::npos)
            return;
        x = column == 0 ? of.SecondCell : NextStop(on, x + on.MeasureText(cell).Width, stops);
        rest.remove_prefix(tab + 1);
    }
}

// Where the second cells of rows start: in one column as far as no empty row comes between, however
// long the first cells are.
std::vector<int> SecondCells(const Device& on, const TextPane& of)
{
    std::vector<int> starts(of.Rows.size());
    for (std::size_t first = 0, end = 0; first < of.Rows.size(); first = end + 1) {
        int longest = 0;
        for (end = first; end < of.Rows.size() && !of.Rows[end].empty(); ++end)
            if (const std::size_t tab = of.Rows[end].find('\t'); tab != std::string::npos)
                longest = std::max(longest, on.MeasureText(of.Rows[end].substr(0, tab)).Width);
        std::fill(starts.begin() + first, starts.begin() + end, NextStop(on, longest, of.TabStops));
    }
    return starts;
}

// A single value that is longer than its line goes on below itself.
std::vector<std::string> WrapValue(const Device& on, const std::string& row, int start, int width)
{
    const std::size_t tab = row.find('\t');
    if (tab == std::string::npos || row.find('\t', tab + 1) != std::string::npos
        || start + on.MeasureText(row.substr(tab + 1)).Width <= width)
        return {row};
    std::vector<std::string> lines =
        WrapWords(on, std::string_view(row).substr(tab + 1), width - start);
    lines.front().insert(0, row, 0, tab);
    for (std::size_t i = 0; i < lines.size(); ++i)
        lines[i].insert(i == 0 ? tab : 0, 1, '\t');
    return lines;
}

std::vector<Line> LinesIn(const Device& on, const TextPane& of, int width)
{
    const std::vector<int> starts = SecondCells(on, of);
    std::vector<Line> lines;
    for (std::size_t i = 0; i < of.Rows.size(); ++i)
        for (std::string& line : of.Wraps ? WrapText(on, of.Rows[i], width)
                                          : WrapValue(on, of.Rows[i], starts[i], width))
            lines.push_back({std::move(line), starts[i]});
    return lines;
}

bool FitsInto(
    const Device& on, const std::vector<Line>& lines, const std::vector<int>& stops, int width)
{
    int right = 0;
    for (const Line& line : lines)
        ForEachCell(on, line, stops, [&](int x, std::string_view cell) {
            right = std::max(right, x + on.MeasureText(cell).Width);
        });
    return right <= width;
}

// What is left out shows by the last line. A heading goes with what stands under it.
void CutOff(std::vector<Line>& lines, std::size_t room)
{
    if (lines.size() <= room)
        return;
    lines.resize(std::max<std::size_t>(room, 1) - 1);
    if (lines.size() >= 2 && lines[lines.size() - 2].Text.empty())
        lines.pop_back();
    lines.push_back({MoreFollows, 0});
}

} // namespace

std::vector<std::string_view> LinesOf(std::string_view Text)
{
    std::vector<std::string_view> lines;
    for (;;) {
        const std::size_t end = Text.find('\n');
        std::string_view line = Text.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos)
            return lines;
        Text.remove_prefix(end + 1);
    }
}

std::size_t FittingLength(const Device& On, std::string_view Text, int Width)
{
    const auto fitsUpTo = [&](std::size_t end) {
        return On.MeasureText(Text.substr(0, end)).Width <= Width;
    };
    std::size_t fits = 0, tooLong = Text.size() + 1;
    // A long text is measured for some lines only, and not whole for each of its lines.
    for (std::size_t length = 64; length < Text.size(); length *= 2) {
        const std::size_t end = CharacterFrom(Text, length);
        if (!fitsUpTo(end)) {
            tooLong = end;
            break;
        }
        fits = end;
    }
    while (fits + 1 < tooLong) {
        const std::size_t half = (fits + tooLong) / 2, middle = CharacterFrom(Text, half);
        if (middle < tooLong && fitsUpTo(middle))
            fits = middle;
        else
            tooLong = half;
    }
    return fits;
}

// Only a blank may go between two lines: a sign or a digit that is lost makes another figure.
std::vector<std::string> WrapText(const Device& On, std::string Text, int Width)
{
    std::vector<std::string> lines;
    do {
        // A digit stands in the column of the digits above it, where there is room for both.
        if (!lines.empty() && IsDigit(Text.front()) && FittingLength(On, " " + Text, Width) > 1)
            Text.insert(0, 1, ' ');
        std::size_t length =
            CharacterFrom(Text, std::max<std::size_t>(FittingLength(On, Text, Width), 1));
        if (length < Text.size() && Text[length - 1] != ' ')
            if (const std::size_t blank = Text.find_last_of(' ', length - 1);
                blank != std::string::npos && blank > 0)
                length = blank + 1;
        lines.push_back(Text.substr(0, length));
        const bool hasBlank = length < Text.size() && Text[length] == ' ';
        Text.erase(0, length + (hasBlank ? 1 : 0));
    } while (!Text.empty());
    return lines;
}

// A word that is longer than a line stays whole.
std::vector<std::string> WrapWords(const Device& On, std::string_view Text, int Width)
{
    std::vector<std::string> lines;
    for (std::string_view rest : LinesOf(Text)) {
        for (;;) {
            const std::size_t fits = FittingLength(On, rest, Width);
            std::size_t end = fits < rest.size() ? rest.find_last_of(' ', fits) : rest.size();
            if (end == std::string_view::npos)
                end = std::min(rest.find(' '), rest.size());
            lines.emplace_back(rest.substr(0, end));
            const std::size_t next = rest.find_first_not_of(' ', end);
            if (next == std::string_view::npos)
                break;
            rest.remove_prefix(next);
        }
    }
    return lines;
}

void DrawTextPane(
    Device& On, const DeviceRect& Box, const std::function<TextPane()>& Make, const TextFont& Style)
{
    constexpr int leastSize = 5; // points; the smallest pane of a sheet holds all coefficients
    const clsClipScope clip(On, Box);
    for (TextFont style = Style;; --style.Size) {
        const clsFontScope font(On, DeviceFont(On, style));
        const TextPane shown = Make();
        std::vector<Line> lines = LinesIn(On, shown, Box.Width());
        const int height = std::max(1, On.MeasureText({}).Height);
        const auto room = static_cast<std::size_t>(std::max(0, Box.Height() / height));
        const bool isWhole = shown.IsWhole && lines.size() <= room
            && FitsInto(On, lines, shown.TabStops, Box.Width());
        if (!isWhole && style.Size > leastSize)
            continue;
        CutOff(lines, room);
        DevicePoint at{Box.Left, Box.Top};
        for (const Line& line : lines) {
            ForEachCell(On, line, shown.TabStops, [&](int x, std::string_view cell) {
                On.DrawText({at.X + x, at.Y}, cell, {}, Style.Ink);
            });
            at.Y += height;
        }
        return;
    }
}

void DrawWords(Device& On, const DeviceRect& Box, std::string_view Text, const TextFont& Style)
{
    DrawTextPane(
        On, Box, [&] { return TextPane{.Rows = WrapWords(On, Text, Box.Width())}; }, Style);
}

} // namespace morvane
