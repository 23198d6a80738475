// Files, read whole or line by line, and written so that a failure leaves the old file.
#pragma once
#include <cstdint>
#include <fstream>
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

// Lines of a regular text file, ended by LF or CR LF; the ends are not part of the line. Memory
// holds one line and one block of the file; a line longer than MaxLineLength is cut there, so that
// no file can fill memory.
class LineReader {
public:
    static constexpr std::size_t MaxLineLength = 1 << 20;

    explicit LineReader(const std::string& Path);
    bool IsOpen() const { return m_stream.is_open(); }

    // False at the end of the file or on a read error.
    bool ReadLine(std::string& Line);

private:
    bool FillBlock();

    std::ifstream m_stream;
    std::vector<char> m_block; // of the file, read ahead
    std::size_t m_next = 0, m_end = 0; // what is left of it
};

// The whole of a regular file of at most MaxBytes; the reason in Error otherwise (a folder, no
// permission, too large).
FileResult ReadWholeFile(
    const std::string& Path, std::uint64_t MaxBytes, std::vector<std::uint8_t>& Bytes);

// Writes Bytes beside Path, syncs, and renames over Path: afterwards Path is the old file or the
// new one, whole. A symbolic link stays, the file that it leads to is replaced; permissions stay,
// and a file that must not be written to is not replaced.
FileResult WriteWholeFile(const std::string& Path, std::string_view Bytes);

} // namespace morvane
