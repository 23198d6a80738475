// The line tokenizer of every text file reader. One parser is made per file and handed from block
// to block, so that a block can stop on a line that it does not know and give the line back.
//
// Separators are tab, blank and the characters , ; : =. A "=" met while skipping makes the rest of
// the line, less its leading blanks, one token: so a text after ":= " keeps its separators.
#pragma once
#include <string>
#include <string_view>

#include "platform/File.h"

namespace morvane {

class clsParser {
public:
    explicit clsParser(LineReader& Lines) : m_lines(Lines) { }

    // False at the end of the file; a read error ends the file.
    bool Readline();
    // Empty at the end of the line.
    std::string_view GetToken();
    // GetToken in lower case, for keywords.
    std::string GetKeyword();
    // The number at the start of the next token; 0 if there is none.
    double GetNumber();
    // GetNumber rounded to nearest.
    int GetLong();

    void ReReadLine() { m_position = 0; }
    void SkipLine() { m_position = m_line.size(); }
    // The number of tokens of the line; leaves the position at its end.
    int Tokencount();

    // A number other than 0, or one of "#TRUE#", "TRUE", "YES", "ON" in any case.
    static bool BooleanParse(std::string_view Text);

private:
    LineReader& m_lines;
    std::string m_line;
    std::size_t m_position = 0;
};

} // namespace morvane
