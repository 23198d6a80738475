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

// What a block makes of a keyword.
enum class BlockWord { Read, Unknown, Last };

class clsParser {
public:
    // Of a file that knows the keywords IsKeyword, in lower case, outside of its blocks.
    using KeywordTest = bool (*)(std::string_view Keyword);
    explicit clsParser(LineReader& Lines, KeywordTest IsKeyword = nullptr)
        : m_lines(Lines), m_isKeyword(IsKeyword)
    {
    }

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

    // Hands the keywords of a block to Take, which reads the values behind each and answers with a
    // BlockWord. The rest of the line behind the last one, and a line that begins with a word of
    // the file around the block, are the file's to read: so a block without an end costs no more
    // than itself. Any other unknown word drops the rest of its line.
    template <typename Take>
    void ReadBlock(Take take)
    {
        while (Readline()) {
            bool isFirst = true;
            for (std::string word = GetKeyword(); !word.empty(); word = GetKeyword()) {
                const BlockWord answer = take(word);
                if (answer == BlockWord::Last)
                    return;
                if (answer == BlockWord::Unknown && isFirst && m_isKeyword && m_isKeyword(word))
                    return ReReadLine();
                if (answer == BlockWord::Unknown)
                    SkipLine();
                isFirst = false;
            }
        }
    }

    void ReReadLine() { m_position = 0; }
    void SkipLine() { m_position = m_line.size(); }
    // The number of tokens of the line; leaves the position at its end.
    int Tokencount();

    // A number other than 0, or one of "#TRUE#", "TRUE", "YES", "ON" in any case.
    static bool BooleanParse(std::string_view Text);

private:
    LineReader& m_lines;
    KeywordTest m_isKeyword;
    std::string m_line;
    std::size_t m_position = 0;
};

} // namespace morvane
