// The results of a document as texts: exact words, order, columns and number formats are its
// record of the test. Lines end in CR LF, the last one without.
#pragma once
#include <array>
#include <string>

namespace morvane {

class clsDocument;

std::string AberrationsText(const clsDocument& Of);
std::string ZernikesText(const clsDocument& Of);

inline constexpr std::array AberrationsTabStops{60, 96};
inline constexpr std::array ZernikesTabStops{16, 68, 84};

} // namespace morvane
