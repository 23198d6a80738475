#include "report/PageText.h"

#include <algorithm>
#include <optional>

namespace morvane {
namespace {

constexpr bool IsDigit(char of)
{
    return of >= '0' && of <= '9';
}

// Of UTF-8: the first byte of a character, or the end of the text.
bool StartsCharacter(std::string_view text, std::size_t at)
{
    return at >= text.size() || (static_cast<unsigned char>(text[at]) & 0xc0) != 0x80;
}

// The lines of a box from its top, in the font that is set. One that would be cut through by the
// lower edge has no place.
class LinePlaces {
public:
    LinePlaces(const Device& on, const DeviceRect& box)
        : m_height(on.MeasureText({}).Height), m_next{box.Left, box.Top}, m_bottom(box.Bottom)
    {
    }
    std::optional<DevicePoint> Next()
    {
        const DevicePoint at = m_next;
        m_next.Y += m_height;
        return m_next.Y <= m_bottom ? std::optional(at) : std::nullopt;
    }

private:
    const int m_height;
    DevicePoint m_next;
    const int m_bottom;
};

void DrawLines(Device& on, LinePlaces& places, const std::vector<std::string>& lines, Color ink)
{
    for (const std::string& line : lines)
        if (const auto at = places.Next(); at && !line.empty())
            on.DrawText(*at, line, {}, ink);
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

void DrawTabbed(
    Device& on, DevicePoint at, std::string_view row, const std::vector<int>& stops, Color ink)
{
    int x = 0;
    for (;;) {
        const std::size_t tab = row.find('\t');
        const std::string_view cell = row.substr(0, tab);
        if (!cell.empty())
            on.DrawText({at.X + x, at.Y}, cell, {}, ink);
        if (tab == std::string_view::npos)
            return;
        x = NextStop(on, x + on.MeasureText(cell).Width, stops);
        row.remove_prefix(tab + 1);
    }
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
    std::size_t fits = 0, tooLong = Text.size() + 1;
    while (fits + 1 < tooLong) {
        std::size_t middle = (fits + tooLong) / 2;
        while (!StartsCharacter(Text, middle))
            ++middle;
        if (middle < tooLong && On.MeasureText(Text.substr(0, middle)).Width <= Width) {
            fits = middle;
        } else {
            tooLong = (fits + tooLong) / 2;
        }
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
        std::size_t length = std::max<std::size_t>(FittingLength(On, Text, Width), 1);
        while (!StartsCharacter(Text, length))
            ++length;
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

void DrawTextPane(Device& On, const DeviceRect& Box, const TextPane& Shown, const TextFont& Style)
{
    const clsFontScope font(On, DeviceFont(On, Style));
    const clsClipScope clip(On, Box);
    LinePlaces places(On, Box);
    for (const std::string& row : Shown.Rows) {
        if (!Shown.Wraps) {
            if (const auto at = places.Next())
                DrawTabbed(On, *at, row, Shown.TabStops, Style.Ink);
        } else {
            DrawLines(On, places, WrapText(On, row, Box.Width()), Style.Ink);
        }
    }
}

void DrawWords(Device& On, const DeviceRect& Box, std::string_view Text, const TextFont& Style)
{
    const clsFontScope font(On, DeviceFont(On, Style));
    const clsClipScope clip(On, Box);
    LinePlaces places(On, Box);
    DrawLines(On, places, WrapWords(On, Text, Box.Width()), Style.Ink);
}

} // namespace morvane
