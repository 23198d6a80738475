#include "document/clsParser.h"

#include <algorithm>

#include "platform/Numbers.h"

namespace morvane {

namespace {

constexpr std::string_view Separators = "\t ,;:=";

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

bool clsParser::ReadLine()
{
    m_position = 0;
    return m_lines.ReadLine(m_line);
}

std::string_view clsParser::GetToken()
{
    const std::string_view line = m_line;
    const auto orEnd = [&line](std::size_t position) { return std::min(position, line.size()); };
    std::size_t start = orEnd(m_position);
    while (start < line.size() && Separators.find(line[start]) != Separators.npos) {
        if (line[start] == '=') {
            SkipLine();
            return line.substr(orEnd(line.find_first_not_of(' ', start + 1)));
        }
        ++start;
    }
    m_position = orEnd(line.find_first_of(Separators, start));
    return line.substr(start, m_position - start);
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

int clsParser::TokenCount()
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
