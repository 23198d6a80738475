// What a command asks of the platform's file dialogs.
#pragma once
#include <optional>
#include <string>
#include <vector>

namespace morvane {

struct FileRequest {
    std::string Title;
    std::string Filter; // "name|pattern|name|pattern ..."
    int FilterIndex = 1; // which of them is chosen at first, from 1
    std::string Directory; // empty: wherever the dialog was last
    std::string FileName;
};

struct FileChoice {
    std::vector<std::string> Paths; // full; of a save dialog exactly one
    int FilterIndex = 1;
};

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    // None if the user cancels. The save dialog does not ask about a file that exists: the command
    // does.
    virtual std::optional<FileChoice> AskOpen(const FileRequest& Request) = 0;
    virtual std::optional<FileChoice> AskSave(const FileRequest& Request) = 0;
};

} // namespace morvane
