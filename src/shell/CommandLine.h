// What the program was started with.
#pragma once
#include <span>
#include <string>

namespace morvane {

struct CommandLine {
    bool Embedding = false; // idle with no document, to serve scripts
    std::string File; // to open; empty if none
};

// Words are those behind the program's name. All of them, joined by blanks, are one file at most;
// a double quote before it and all from the next one on are cut.
CommandLine ParseCommandLine(std::span<const char* const> Words);

} // namespace morvane
