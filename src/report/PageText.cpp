#include "report/PageText.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace morvane {
namespace {

constexpr std::size_t LongestFigure = 24; // bytes; of 15 digits with sign, point and exponent

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

struct Cell {
    int X; // device units from the left edge
    std::string Text;
};
using Line = std::vector<Cell>;

// The cells between the tabs of a row, the second of which starts at SecondCell, up to the first
// beyond the width.
Line CellsOf(const Device& on, std::string_view row, int secondCell, const std::vector<int>& stops,
    int width)
{
    Line cells;
    for (int x = 0, column = 0;; ++column) {
        const std::size_t tab = row.find('\t');
        const std::string_view cell = row.substr(0, tab);
        if (!cell.empty())
            cells.push_back({x, std::string(cell)});
        if (tab == std::string_view::npos || (!cells.empty() && cells.back().X > width))
            return cells;
        x = column == 0 ? secondCell : NextStop(on, x + on.MeasureText(cell).Width, stops);
        row.remove_prefix(tab + 1);
    }
}

bool FitsInto(const Device& on, const Line& line, int width)
{
    return std::ranges::all_of(line, [&](const Cell& cell) {
        return FittingLength(on, cell.Text, width - cell.X) == cell.Text.size();
    });
}

// As much of the line as leaves room for the sign that there is more.
void EndWithMore(const Device& on, Line& line, int width)
{
    const int room = width - on.MeasureText(MoreFollows).Width;
    while (line.size() > 1 && line.back().X > room)
        line.pop_back();
    if (line.empty())
        line.push_back({0, {}});
    Cell& last = line.back();
    last.Text.resize(FittingLength(on, last.Text, room - last.X));
    last.Text += MoreFollows;
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

// The lines of a pane in one size.
struct Layout {
    TextFont Style{};
    int LineHeight = 1; // device units
    std::vector<Line> Lines{};
    bool HoldsRows = true; // all there is but the ends of running texts
    bool IsWhole = true;
};

// A running text from left on, behind what stands in the first of its lines. False if it was cut
// because it takes more lines than so many.
bool AddWords(
    const Device& on, Layout& to, Line first, int left, std::string_view text, int width, int most)
{
    std::vector<std::string> lines = WrapWords(on, text, width - left, most + 1);
    const bool isWhole = std::ssize(lines) <= most;
    if (!isWhole)
        lines.pop_back();
    for (std::string& line : lines) {
        if (!line.empty())
            first.push_back({left, std::move(line)});
        to.Lines.push_back(std::exchange(first, {}));
    }
    if (!isWhole && FitsInto(on, to.Lines.back(), width)) // else a smaller size may take its word
        EndWithMore(on, to.Lines.back(), width);
    return isWhole;
}

// A single value that is longer than its line goes on below itself, as far as the other rows leave
// room. Stops as soon as there are more lines than have room.
void AddRows(const Device& on, Layout& to, const TextPane& of, int width, int room)
{
    const std::vector<int> starts = SecondCells(on, of);
    int spare = std::max(0, room - static_cast<int>(of.Rows.size())); // lines
    for (std::size_t i = 0; i < of.Rows.size() && std::ssize(to.Lines) <= room; ++i) {
        const std::string_view row = of.Rows[i];
        const std::size_t tab = row.find('\t');
        const auto before = std::ssize(to.Lines);
        if (of.Wraps) {
            const int most = room + 1 - static_cast<int>(before);
            for (const std::string& line : WrapText(on, std::string(row), width, most))
                to.Lines.push_back(CellsOf(on, line, starts[i], of.TabStops, width));
        } else if (tab == std::string_view::npos || row.find('\t', tab + 1) != row.npos) {
            to.Lines.push_back(CellsOf(on, row, starts[i], of.TabStops, width));
        } else {
            const std::string_view value = row.substr(tab + 1);
            Line name = CellsOf(on, row.substr(0, tab), starts[i], of.TabStops, width);
            if (!AddWords(on, to, std::move(name), starts[i], value, width, 1 + spare)) {
                to.IsWhole = false;
                // A line that is shorter than a figure may have cut one.
                if (FittingLength(on, value, width - starts[i]) < LongestFigure)
                    to.HoldsRows = false;
            }
            spare -= static_cast<int>(std::ssize(to.Lines) - before) - 1;
        }
    }
    to.HoldsRows = to.HoldsRows && of.IsWhole;
}

// What is left out shows by the last line. A heading goes with what stands under it.
void CutOff(std::vector<Line>& lines, std::size_t room)
{
    if (lines.size() <= room)
        return;
    lines.resize(std::max<std::size_t>(room, 1) - 1);
    if (lines.size() >= 2 && lines[lines.size() - 2].empty())
        lines.pop_back();
    lines.push_back({{0, MoreFollows}});
}

// The user's size or the next smaller one that holds all; else the largest that cuts nothing but
// running text, and the least if there is none. Running text alone makes it smaller by a fifth at
// most. AddLines takes the layout and how many lines have room.
template <typename Adder>
Layout FittedInto(Device& on, const DeviceRect& box, const TextFont& style, Adder addLines)
{
    constexpr int leastSize = 5; // points; the smallest pane of a sheet holds all coefficients
    std::optional<Layout> cut;
    for (TextFont smaller = style;;
         smaller.Size = std::max(leastSize, smaller.Size - std::max(1, smaller.Size / 10))) {
        const bool isLeast = smaller.Size <= leastSize;
        if (cut && 5 * smaller.Size < 4 * cut->Style.Size)
            return *std::move(cut);
        const clsFontScope font(on, DeviceFont(on, smaller));
        Layout layout{.Style = smaller, .LineHeight = std::max(1, on.MeasureText({}).Height)};
        const int room = std::max(0, box.Height() / layout.LineHeight);
        if (room == 0 && !isLeast)
            continue;
        addLines(layout, room);
        layout.HoldsRows = layout.HoldsRows && std::ssize(layout.Lines) <= room
            && std::ranges::all_of(
                layout.Lines, [&](const Line& line) { return FitsInto(on, line, box.Width()); });
        if (layout.HoldsRows && layout.IsWhole)
            return layout;
        if (!cut && (layout.HoldsRows || isLeast)) {
            CutOff(layout.Lines, static_cast<std::size_t>(room));
            cut = std::move(layout);
        }
        if (isLeast)
            return *std::move(cut);
    }
}

void DrawLayout(Device& on, const DeviceRect& box, Layout layout)
{
    const clsClipScope clip(on, box);
    const clsFontScope font(on, DeviceFont(on, layout.Style));
    DevicePoint at{box.Left, box.Top};
    for (Line& line : layout.Lines) {
        if (!FitsInto(on, line, box.Width()))
            EndWithMore(on, line, box.Width());
        for (const Cell& cell : line)
            on.DrawText({at.X + cell.X, at.Y}, cell.Text, {}, layout.Style.Ink);
        at.Y += layout.LineHeight;
    }
}

} // namespace

std::vector<std::string_view> LinesOf(std::string_view Text, int Most)
{
    std::vector<std::string_view> lines;
    for (;;) {
        const std::size_t end = Text.find('\n');
        std::string_view line = Text.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos || std::ssize(lines) >= Most)
            return lines;
        Text.remove_prefix(end + 1);
    }
}

std::size_t FittingLength(const Device& On, std::string_view Text, int Width)
{
    const auto fitsUpTo = [&](std::size_t end) {
        return On.MeasureText(Text.substr(0, end)).Width <= Width;
    };
    constexpr std::size_t shortLength = 64;
    if (Text.size() <= shortLength && fitsUpTo(Text.size()))
        return Text.size();
    std::size_t fits = 0, tooLong = Text.size() + 1;
    // A long text is measured for some lines only, and not whole for each of its lines.
    for (std::size_t length = shortLength; length < Text.size(); length *= 2) {
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
std::vector<std::string> WrapText(const Device& On, std::string Text, int Width, int Most)
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
    } while (!Text.empty() && std::ssize(lines) < Most);
    return lines;
}

// A word that is longer than a line breaks, unless it may be a figure: those stay whole, and a
// smaller size takes them.
std::vector<std::string> WrapWords(const Device& On, std::string_view Text, int Width, int Most)
{
    std::vector<std::string> lines;
    for (std::string_view rest : LinesOf(Text, Most)) {
        for (;;) {
            if (std::ssize(lines) >= Most)
                return lines;
            const std::size_t fits = FittingLength(On, rest, Width);
            const std::size_t word = rest.find_first_not_of(' '); // its sign may be a blank
            std::size_t end = fits < rest.size() ? rest.find_last_of(' ', fits) : rest.size();
            const bool isTooLong = end == std::string_view::npos || end < word;
            if (isTooLong && word > 1 && word != std::string_view::npos) {
                rest.remove_prefix(word - 1); // without its indentation there may be room
                continue;
            }
            if (isTooLong)
                end = fits >= LongestFigure ? fits : std::min(rest.find(' ', word), rest.size());
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
    DrawLayout(On, Box, FittedInto(On, Box, Style, [&](Layout& layout, int room) {
        AddRows(On, layout, Make(), Box.Width(), room);
    }));
}

void DrawWords(Device& On, const DeviceRect& Box, std::string_view Text, const TextFont& Style)
{
    std::string words(Text);
    std::ranges::replace(words, '\t', ' ');
    words.erase(words.find_last_not_of(" \r\n") + 1);
    DrawLayout(On, Box, FittedInto(On, Box, Style, [&](Layout& layout, int room) {
        layout.IsWhole = AddWords(On, layout, {}, 0, words, Box.Width(), std::max(1, room));
    }));
}

} // namespace morvane
