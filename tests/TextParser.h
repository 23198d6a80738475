// A parser over a text, which is written to a file for it.
#pragma once
#include <fstream>
#include <string_view>

#include "TemporaryFolder.h"
#include "document/clsParser.h"

namespace morvane {

class TextParser {
public:
    explicit TextParser(std::string_view Text) : m_lines(Written(Text)), m_parser(m_lines) { }

    operator clsParser&() { return m_parser; }
    clsParser* operator->() { return &m_parser; }

private:
    std::string Written(std::string_view Text) const
    {
        std::ofstream(m_folder / "text", std::ios::binary) << Text;
        return m_folder / "text";
    }

    TemporaryFolder m_folder;
    LineReader m_lines;
    clsParser m_parser;
};

} // namespace morvane
