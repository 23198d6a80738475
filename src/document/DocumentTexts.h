// The results of a document as texts: exact words, order, columns and number formats are its
// record of the test. Lines end in CR LF, the last one without.
#pragma once
#include <array>
#include <cstdint>
#include <string>

namespace morvane {

class clsDocument;
class clsGrid;
enum class DisplayUnit : std::int32_t;

std::string AberrationsText(const clsDocument& Of);
std::string ZernikesText(const clsDocument& Of);
// The criteria, and with results the statistics and a line a cell.
std::string GridResultsText(const clsGrid& Of);

inline constexpr std::array AberrationsTabStops{60, 96};
inline constexpr std::array ZernikesTabStops{16, 68, 84};
// They make room for the longest cell name.
std::array<int, 3> GridResultsTabStops(const clsGrid& Of);

// --- What charts and printed tables share with these
const char* UnitName(DisplayUnit Unit);
// With so many decimals, a blank in the place of the sign.
std::string SignedFixed(double Value, int Decimals);
// Characters of a cell's column and row number with room for one digit more.
int CellNameRoom(const clsGrid& Of);
// "(3, 12) ", and its figures and verdict behind tabs.
std::string GridCellText(const clsGrid& Of, int X, int Y);

} // namespace morvane
