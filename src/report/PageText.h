// Texts of the printed page: rows with tab stops, rows that wrap at blanks, and running text.
#pragma once
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "document/TextFont.h"
#include "report/TextPanes.h"

namespace morvane {

inline constexpr int AllLines = std::numeric_limits<int>::max();

// Between its line ends, LF or CR LF; the first Most of them.
std::vector<std::string_view> LinesOf(std::string_view Text, int Most = AllLines);

// As many bytes of Text as fit into Width with the font that is set, whole characters.
std::size_t FittingLength(const Device& On, std::string_view Text, int Width);

// The lines of one row of figures, the first Most of them. A continuation keeps room for the sign
// of its first figure.
std::vector<std::string> WrapText(
    const Device& On, std::string Text, int Width, int Most = AllLines);

// The first Most lines of a text of words, which may have line ends of its own.
std::vector<std::string> WrapWords(
    const Device& On, std::string_view Text, int Width, int Most = AllLines);

// From the top left corner of the box, in the user's font or, where not all of it has room, in a
// smaller size. What not even the least legible size holds is cut, running text before all else,
// so that a long comment leaves the figures their size; MoreFollows stands where something is
// missing. Make gives the pane for the font that is set.
void DrawTextPane(Device& On, const DeviceRect& Box, const std::function<TextPane()>& Make,
    const TextFont& Style);
void DrawWords(Device& On, const DeviceRect& Box, std::string_view Text, const TextFont& Style);

} // namespace morvane
