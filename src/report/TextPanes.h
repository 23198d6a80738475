// What a text pane of the printed report holds: its rows, and where their tabs stop. The report
// shows more, and other, than the views on the screen: which rows is the user's choice.
#pragma once
#include <string>
#include <vector>

#include "document/clsDocument.h"

namespace morvane {

inline constexpr const char* MoreFollows = "...";

struct TextPane {
    std::vector<std::string> Rows{}; // from the top; an empty one takes a line all the same
    std::vector<int> TabStops{}; // average characters
    bool Wraps = false; // its rows go on below themselves, at blanks
    bool IsWhole = true; // else the last row is MoreFollows
};

TextPane AberrationsPane(const clsDocument& Of, const ReportPreferences& Chosen);
// Grouped by radial order.
TextPane ZernikesPane(const clsDocument& Of);
// The cells in as many blocks side by side as a pane of so many lines and average characters takes.
TextPane GridResultsPane(const clsGrid& Of, int Lines, int Characters);

} // namespace morvane
