// Files, read whole or line by line, and written so that a failure leaves the old file.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

// The outcome of a file operation: an empty Error is success, otherwise the system's reason.
struct FileResult {
    std::string Error;
    explicit operator bool() const { return Error.empty(); }
};

class FileDescriptor;

// Lines of a regular text file, ended by LF or CR LF; the ends are not part of the line, nor is a
// byte order mark at the start. Memory holds one line and one block of the file; a line longer than
// MaxLineLength is cut there, so that no file can fill memory.
class LineReader {
public:
    static constexpr std::size_t MaxLineLength = 1 << 20;

    explicit LineReader(const std::string& Path);
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    // Without an error if there are lines to read.
    const FileResult& Opened() const { return m_opened; }

    // False at the end of the file or on a read error.
    bool ReadLine(std::string& Line);

private:
    bool FillBlock();

    std::unique_ptr<FileDescriptor> m_file;
    FileResult m_opened;
    std::vector<char> m_block; // of the file, read ahead
    std::size_t m_next = 0, m_end = 0; // what is left of it
};

// The whole of a regular file of at most MaxBytes; the reason in Error otherwise (a folder, no
// permission, too large).
FileResult ReadWholeFile(
    const std::string& Path, std::uint64_t MaxBytes, std::vector<std::uint8_t>& Bytes);

// A file on its way: written and synced in the folder of Path by the constructor, but without the
// name until Commit, so that several files can be ready before the first takes its place. A file
// that is not committed is given up. Where the file system can hold a file without a name, a
// program that is killed meanwhile leaves nothing behind.
//
// A symbolic link stays, the file that it leads to is replaced; permissions stay, and a file that
// must not be written to is not replaced.
class StagedFile {
public:
    StagedFile(const std::string& Path, std::string_view Bytes);
    ~StagedFile();
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    // Whether the file can be committed.
    const FileResult& Prepared() const { return m_prepared; }

    // Renames over Path, once: afterwards Path is the old file or the new one, whole.
    FileResult Commit();

private:
    FileResult Prepare(std::string_view bytes);
    FileResult Create();
    FileResult GiveName();

    std::string m_target, m_folder; // the links followed
    std::unique_ptr<FileDescriptor> m_file;
    std::string m_temporary; // the name in the folder; empty while there is none
    FileResult m_prepared;
};

// Stages and commits in one.
FileResult WriteWholeFile(const std::string& Path, std::string_view Bytes);

} // namespace morvane
