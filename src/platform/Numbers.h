// Numbers and their texts. The locale never shows: the decimal mark is a point, always.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace morvane {

// Nearest whole number, halves to even. Beyond the range of the type it saturates; NaN gives 0.
std::int32_t RoundToLong(double Value);

// The number at the start of Text: blanks, sign, digits, point, exponent, as much of it as makes a
// number; whatever follows is ignored. 0 if Text does not begin with a number; never NaN, and a
// number beyond the range of double becomes +-1.7976931348623157e308.
double LeadingNumber(std::string_view Text);

// As LeadingNumber, but only if all of Text, blanks around it aside, is a number.
bool IsNumeric(std::string_view Text);

// General form with at most 15 significant digits ("0.5", "1E-05" written as "1e-05"): no blanks,
// never "-0".
std::string FormatGeneral(double Value);

// Shortest text that reads back to the same double, in plain form where that is not longer.
std::string FormatShortest(double Value);

// Fixed number of decimals, halves away from zero as a person rounds the decimal text; never "-0".
std::string FormatFixed(double Value, int Decimals);

// The numbers of a line of a document file. A whole number has a blank or its minus sign before and
// a blank after it; another number has a blank before it when it has no minus sign, none after, and
// reads back to the same double.
void AppendWholeField(std::string& Text, std::int32_t Value);
void AppendNumberField(std::string& Text, double Value);

// A line of such a file: Key, which brings its own separator, the value, CR LF.
void AppendWholeLine(std::string& Text, std::string_view Key, std::int32_t Value);
void AppendNumberLine(std::string& Text, std::string_view Key, double Value);
void AppendFlagLine(std::string& Text, std::string_view Key, bool Value);

// A finite number as its decimal digits: D.DDD * 10^Exponent, no zeros at the end; zero is "0".
struct DecimalForm {
    bool Negative = false;
    std::string Digits = "0";
    int Exponent = 0;

    // Keeps the first Count digits; the digit that follows decides, 5 and up away from zero.
    void RoundTo(int Count);
    // Without an exponent: "-0.05", "1200".
    std::string PlainText() const;
};
// At most 15 significant digits, which is what double holds of any decimal number.
DecimalForm ToDecimal(double Value);

} // namespace morvane
