#include "shell/CommandLine.h"

#include <algorithm>

namespace morvane {

CommandLine ParseCommandLine(std::span<const char* const> Words)
{
    std::string text;
    for (const char* word : Words) {
        if (!text.empty())
            text += ' ';
        text += word;
    }
    if (text == "-Embedding")
        return {.Embedding = true, .File = {}};
    if (text.starts_with('"')) {
        text.erase(0, 1);
        text.resize(std::min(text.find('"'), text.size()));
    }
    return {.File = text};
}

} // namespace morvane
