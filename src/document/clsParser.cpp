#include "document/clsParser.h"

#include <algorithm>
#include <array>

#include "platform/Numbers.h"

namespace morvane {

namespace {

constexpr std::array<bool, 256> Separators = [] {
    std::array<bool, 256> isOne{};
    for (const char separator : {'\t', ' ', ',', ';', ':', '='})
        isOne[static_cast<unsigned char>(separator)] = true;
    return isOne;
}();

bool IsSeparator(char character)
{
    return Separators[static_cast<unsigned char>(character)];
}

// Of the basic letters only, whatever the locale.
char LowerCase(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string LowerCase(std::string_view text)
{
    std::string lower(text);
    std::transform(
        lower.begin(), lower.end(), lower.begin(), [](char letter) { return LowerCase(letter); });
    return lower;
}

} // namespace

bool clsParser::Readline()
{
    m_position = 0;
    return m_lines.ReadLine(m_line);
}

std::string_view clsParser::GetToken()
{
    const std::string_view line = m_line;
    std::size_t start = m_position;
    for (; start < line.size() && IsSeparator(line[start]); ++start)
        if (line[start] == '=') {
            SkipLine();
            return line.substr(std::min(line.find_first_not_of(' ', start + 1), line.size()));
        }
    std::size_t end = start;
    while (end < line.size() && !IsSeparator(line[end]))
        ++end;
    m_position = end;
    return line.substr(start, end - start);
}

std::string clsParser::GetKeyword()
{
    return LowerCase(GetToken());
}

double clsParser::GetNumber()
{
    return LeadingNumber(GetToken());
}

int clsParser::GetLong()
{
    return RoundToLong(GetNumber());
}

int clsParser::Tokencount()
{
    ReReadLine();
    int count = 0;
    while (!GetToken().empty())
        ++count;
    return count;
}

bool clsParser::BooleanParse(std::string_view Text)
{
    if (LeadingNumber(Text) != 0)
        return true;
    const std::string text = LowerCase(Text);
    return text == "#true#" || text == "true" || text == "yes" || text == "on";
}

} // namespace morvane
