// Texts of the printed page: rows with tab stops, rows that wrap at blanks, and running text.
#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "document/TextFont.h"
#include "report/TextPanes.h"

namespace morvane {

// Between its line ends, LF or CR LF.
std::vector<std::string_view> LinesOf(std::string_view Text);

// As many bytes of Text as fit into Width with the font that is set, whole characters.
std::size_t FittingLength(const Device& On, std::string_view Text, int Width);

// The lines of one row of figures. A continuation keeps room for the sign of its first figure.
std::vector<std::string> WrapText(const Device& On, std::string Text, int Width);

// The lines of a text of words, which may have line ends of its own.
std::vector<std::string> WrapWords(const Device& On, std::string_view Text, int Width);

// From the top left corner of the box, in the user's font or, where not all of it has room, in a
// smaller size; below the least legible one the last line tells that there is more. Make gives the
// pane for the font that is set.
void DrawTextPane(Device& On, const DeviceRect& Box, const std::function<TextPane()>& Make,
    const TextFont& Style);
void DrawWords(Device& On, const DeviceRect& Box, std::string_view Text, const TextFont& Style);

} // namespace morvane
