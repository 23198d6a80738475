#include "platform/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace morvane {

namespace {

constexpr int SignificantDigits = 15; // a decimal number of so many digits survives in a double

// Longest texts: shortest form 24 characters, general and scientific forms of 15 digits 22.
using NumberBuffer = std::array<char, 32>;

bool IsBlank(char character)
{
    return character == ' ' || character == '\t';
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

std::int64_t ExponentOf(std::string_view digits)
{
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    std::int64_t exponent = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    if (result.ec == std::errc::result_out_of_range)
        exponent = digits.starts_with('-') ? std::numeric_limits<int>::min()
                                           : std::numeric_limits<int>::max();
    return exponent;
}

// Whether an unsigned number that no double can hold is too large rather than too small.
bool IsTooLarge(std::string_view number)
{
    const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto leading = static_cast<std::int64_t>(mantissa.find_first_not_of("0."));
    const std::int64_t exponent =
        mantissaEnd < number.size() ? ExponentOf(number.substr(mantissaEnd + 1)) : 0;
    return point - leading + exponent > 0;
}

struct ParsedNumber {
    double Value = 0;
    std::size_t Length = 0; // characters up to its end; 0: the text does not begin with a number
};

ParsedNumber ParseNumber(std::string_view text)
{
    std::size_t start = 0;
    while (start < text.size() && IsBlank(text[start]))
        ++start;
    const bool negative = start < text.size() && text[start] == '-';
    if (start < text.size() && (negative || text[start] == '+'))
        ++start;
    // Keeps out a second sign and the words for infinity and not-a-number.
    if (start == text.size() || !(IsDigit(text[start]) || text[start] == '.'))
        return {};

    const char* const first = text.data() + start;
    double value = 0;
    const auto [end, error] = std::from_chars(first, text.data() + text.size(), value);
    if (error == std::errc::invalid_argument)
        return {};
    if (error == std::errc::result_out_of_range) {
        const std::string_view number(first, static_cast<std::size_t>(end - first));
        value = IsTooLarge(number) ? std::numeric_limits<double>::max() : 0.0;
    }
    return {negative ? -value : value, static_cast<std::size_t>(end - text.data())};
}

template <typename... Form>
std::string_view Write(NumberBuffer& buffer, double value, Form... form)
{
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, form...);
    return {buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data())};
}

} // namespace

std::int32_t RoundToLong(double Value)
{
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(Value))
        return 0;
    return static_cast<std::int32_t>(std::lrint(std::clamp(Value, lowest, highest)));
}

double LeadingNumber(std::string_view Text)
{
    return ParseNumber(Text).Value;
}

bool IsNumeric(std::string_view Text)
{
    while (!Text.empty() && IsBlank(Text.back()))
        Text.remove_suffix(1);
    const std::size_t length = ParseNumber(Text).Length;
    return length > 0 && length == Text.size();
}

std::string FormatGeneral(double Value)
{
    NumberBuffer buffer;
    const double unsignedZero = Value == 0 ? 0.0 : Value;
    return std::string(Write(buffer, unsignedZero, std::chars_format::general, SignificantDigits));
}

std::string FormatShortest(double Value)
{
    NumberBuffer buffer;
    return std::string(Write(buffer, Value));
}

std::string FormatFixed(double Value, int Decimals)
{
    if (!std::isfinite(Value))
        return FormatGeneral(Value);
    DecimalForm form = ToDecimal(Value);
    form.RoundTo(form.Exponent + 1 + Decimals);
    std::string text = form.PlainText();
    if (Decimals <= 0)
        return text;
    std::size_t point = text.find('.');
    if (point == std::string::npos) {
        point = text.size();
        text += '.';
    }
    text.resize(point + 1 + static_cast<std::size_t>(Decimals), '0');
    return text;
}

void AppendWholeField(std::string& Text, std::int32_t Value)
{
    if (Value >= 0)
        Text += ' ';
    Text += std::to_string(Value);
    Text += ' ';
}

void AppendNumberField(std::string& Text, double Value)
{
    NumberBuffer buffer;
    const std::string_view number = Write(buffer, Value);
    if (!number.starts_with('-'))
        Text += ' ';
    Text += number;
}

void AppendWholeLine(std::string& Text, std::string_view Key, std::int32_t Value)
{
    Text += Key;
    AppendWholeField(Text, Value);
    Text += "\r\n";
}

void AppendNumberLine(std::string& Text, std::string_view Key, double Value)
{
    Text += Key;
    AppendNumberField(Text, Value);
    Text += "\r\n";
}

void AppendFlagLine(std::string& Text, std::string_view Key, bool Value)
{
    Text += Key;
    Text += Value ? "True\r\n" : "False\r\n";
}

void DecimalForm::RoundTo(int Count)
{
    if (Count >= static_cast<int>(Digits.size()))
        return;
    const bool up = Count >= 0 && Digits[static_cast<std::size_t>(Count)] >= '5';
    Digits.resize(static_cast<std::size_t>(std::max(Count, 0)));
    if (up) {
        while (!Digits.empty() && Digits.back() == '9')
            Digits.pop_back();
        if (!Digits.empty()) {
            ++Digits.back();
            return;
        }
        Digits.assign(1, '1');
        ++Exponent;
        return;
    }
    Digits.resize(Digits.find_last_not_of('0') + 1);
    if (Digits.empty())
        *this = DecimalForm();
}

std::string DecimalForm::PlainText() const
{
    const int count = static_cast<int>(Digits.size());
    const int zerosBefore = -1 - Exponent;
    const int zerosBehind = Exponent + 1 - count;
    std::string text = Digits;
    if (Exponent < 0)
        text.insert(0, "0." + std::string(static_cast<std::size_t>(zerosBefore), '0'));
    else if (zerosBehind > 0)
        text.append(static_cast<std::size_t>(zerosBehind), '0');
    else if (zerosBehind < 0)
        text.insert(text.end() + zerosBehind, '.');
    if (Negative)
        text.insert(text.begin(), '-');
    return text;
}

DecimalForm ToDecimal(double Value)
{
    if (Value == 0 || !std::isfinite(Value))
        return {};
    NumberBuffer buffer;
    std::string_view text =
        Write(buffer, std::abs(Value), std::chars_format::scientific, SignificantDigits - 1);
    const std::size_t mark = text.find('e');
    DecimalForm form{Value < 0, {}, static_cast<int>(ExponentOf(text.substr(mark + 1)))};
    form.Digits = text.substr(0, 1);
    form.Digits += text.substr(2, mark - 2);
    form.Digits.resize(form.Digits.find_last_not_of('0') + 1);
    return form;
}

} // namespace morvane
