#include "platform/File.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace morvane {

class FileDescriptor {
public:
    FileDescriptor() = default;
    FileDescriptor(const std::string& path, int flags) { Open(path, flags); }
    ~FileDescriptor() { Close(); }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    void Open(const std::string& path, int flags, mode_t mode = 0)
    {
        Close();
        m_handle = open(path.c_str(), flags | O_CLOEXEC, mode);
    }
    bool IsOpen() const { return m_handle >= 0; }
    int Get() const { return m_handle; }
    // False if the system could not keep what was written.
    bool Close()
    {
        const int handle = std::exchange(m_handle, -1);
        return handle < 0 || close(handle) == 0;
    }

private:
    int m_handle = -1;
};

namespace {

namespace fs = std::filesystem;

FileResult Failure(int error)
{
    return {std::generic_category().message(error)};
}

FileResult LastFailure()
{
    return Failure(errno);
}

FileResult OnlyRegular(const struct stat& status)
{
    if (S_ISREG(status.st_mode))
        return {};
    return S_ISDIR(status.st_mode) ? Failure(EISDIR) : FileResult{"Not a regular file"};
}

constexpr int ReadAtOnce = O_RDONLY | O_NONBLOCK; // a pipe must not wait for a writer

FileResult OnlyRegular(const FileDescriptor& file, struct stat& status)
{
    return file.IsOpen() && fstat(file.Get(), &status) == 0 ? OnlyRegular(status) : LastFailure();
}

// Reads until the buffer is full or the file ends; negative on a read error.
ssize_t ReadFully(int handle, std::span<std::byte> buffer)
{
    std::size_t filled = 0;
    while (filled < buffer.size()) {
        const ssize_t count = read(handle, buffer.data() + filled, buffer.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return count;
        if (count == 0)
            break;
        filled += static_cast<std::size_t>(count);
    }
    return static_cast<ssize_t>(filled);
}

bool WriteFully(int handle, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(handle, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return false;
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

// The file that a chain of symbolic links ends at, whether it exists or not.
fs::path FollowLinks(fs::path path)
{
    constexpr int longestChain = 40; // as the kernel has it
    std::error_code error;
    for (int i = 0; i < longestChain && fs::is_symlink(path, error); ++i)
        path = path.parent_path() / fs::read_symlink(path, error);
    return path;
}

// A name that a process before this one may have left a file of.
std::string TemporaryName(const fs::path& folder)
{
    static std::atomic<unsigned> counter = 0;
    return folder / (".morvane-" + std::to_string(getpid()) + "-" + std::to_string(++counter));
}

// A path to the open file itself, through which it can be given a name.
std::string PathOfHandle(const FileDescriptor& file)
{
    return "/proc/self/fd/" + std::to_string(file.Get());
}

// Permissions come before the bytes, so that nobody reads what the old file kept from them. Some
// file systems have none: there the call fails, and nothing is lost by that.
FileResult FillFile(const FileDescriptor& file, const struct stat* replaced, std::string_view bytes)
{
    constexpr mode_t permissionBits = 07777;
    if (replaced != nullptr && fchmod(file.Get(), replaced->st_mode & permissionBits) != 0
        && errno != EPERM && errno != ENOTSUP)
        return LastFailure();
    if (!WriteFully(file.Get(), bytes) || fsync(file.Get()) != 0)
        return LastFailure();
    return {};
}

// In a folder such as /tmp only the owner may put another file in the place of one.
bool IsKeptForOwner(const fs::path& folder, const struct stat& file)
{
    struct stat place { };
    const uid_t self = geteuid();
    return stat(folder.c_str(), &place) == 0 && (place.st_mode & S_ISVTX) != 0 && self != 0
        && self != place.st_uid && self != file.st_uid;
}

} // namespace

LineReader::LineReader(const std::string& Path)
    : m_file(std::make_unique<FileDescriptor>(Path, ReadAtOnce))
{
    struct stat status { };
    m_opened = OnlyRegular(*m_file, status);
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    if (FillBlock() && std::string_view(m_block.data(), m_end).starts_with(byteOrderMark))
        m_next = byteOrderMark.size();
}

LineReader::~LineReader() = default;

bool LineReader::ReadLine(std::string& Line)
{
    Line.clear();
    if (m_next == m_end && !FillBlock())
        return false;
    const char* lineEnd = nullptr;
    do {
        const char* const start = m_block.data() + m_next;
        const std::size_t inBlock = m_end - m_next;
        lineEnd = static_cast<const char*>(std::memchr(start, '\n', inBlock));
        const std::size_t length = lineEnd ? static_cast<std::size_t>(lineEnd - start) : inBlock;
        Line.append(start, std::min(length, MaxLineLength - Line.size()));
        m_next += lineEnd ? length + 1 : length;
    } while (!lineEnd && FillBlock());
    if (Line.ends_with('\r'))
        Line.pop_back();
    return true;
}

bool LineReader::FillBlock()
{
    constexpr std::size_t blockSize = 1 << 16;
    m_next = m_end = 0;
    if (!m_opened)
        return false;
    try {
        m_block.resize(blockSize);
    } catch (const std::bad_alloc&) {
        return false;
    }
    const ssize_t count = ReadFully(m_file->Get(), std::as_writable_bytes(std::span(m_block)));
    m_end = static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    return m_end > 0;
}

FileResult ReadWholeFile(
    const std::string& Path, std::uint64_t MaxBytes, std::vector<std::uint8_t>& Bytes)
{
    Bytes.clear();
    const FileDescriptor file(Path, ReadAtOnce);
    struct stat status { };
    if (FileResult result = OnlyRegular(file, status); !result)
        return result;
    if (static_cast<std::uint64_t>(status.st_size) > MaxBytes)
        return Failure(EFBIG);
    try {
        Bytes.resize(static_cast<std::size_t>(status.st_size));
    } catch (const std::exception&) { // no memory, or more than a vector can hold
        return Failure(ENOMEM);
    }
    const ssize_t count = ReadFully(file.Get(), std::as_writable_bytes(std::span(Bytes)));
    const int error = errno;
    Bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return count < 0 ? Failure(error) : FileResult{};
}

StagedFile::StagedFile(const std::string& Path, std::string_view Bytes)
    : m_file(std::make_unique<FileDescriptor>())
{
    const fs::path target = FollowLinks(Path);
    m_target = target;
    m_folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    m_prepared = Prepare(Bytes);
}

StagedFile::~StagedFile()
{
    if (!m_temporary.empty())
        unlink(m_temporary.c_str());
}

FileResult StagedFile::Prepare(std::string_view bytes)
{
    struct stat existing { };
    const bool replaces = stat(m_target.c_str(), &existing) == 0;
    if (!replaces && (errno != ENOENT || !fs::path(m_target).has_filename()))
        return LastFailure();
    if (replaces) {
        if (FileResult result = OnlyRegular(existing); !result)
            return result;
        // Renaming would get round the write protection of the file itself.
        if (faccessat(AT_FDCWD, m_target.c_str(), W_OK, AT_EACCESS) != 0)
            return LastFailure();
        if (IsKeptForOwner(m_folder, existing))
            return Failure(EPERM);
    }
    if (FileResult result = Create(); !result)
        return result;
    return FillFile(*m_file, replaces ? &existing : nullptr, bytes);
}

// Without a name where the file system and the kernel can give one later, otherwise with one.
FileResult StagedFile::Create()
{
    constexpr mode_t everyone = 0666; // less what the process masks
    m_file->Open(m_folder, O_WRONLY | O_TMPFILE, everyone);
    if (m_file->IsOpen() && access(PathOfHandle(*m_file).c_str(), F_OK) == 0)
        return {};
    std::string name;
    do {
        name = TemporaryName(m_folder);
        m_file->Open(name, O_WRONLY | O_CREAT | O_EXCL, everyone);
    } while (!m_file->IsOpen() && errno == EEXIST);
    if (!m_file->IsOpen())
        return LastFailure();
    m_temporary = name;
    return {};
}

FileResult StagedFile::GiveName()
{
    const std::string handle = PathOfHandle(*m_file);
    std::string name;
    int result = 0;
    do {
        name = TemporaryName(m_folder);
        result = linkat(AT_FDCWD, handle.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW);
    } while (result != 0 && errno == EEXIST);
    if (result != 0)
        return LastFailure();
    m_temporary = name;
    return {};
}

FileResult StagedFile::Commit()
{
    if (!m_prepared)
        return m_prepared;
    if (m_temporary.empty())
        if (FileResult result = GiveName(); !result)
            return result;
    if (!m_file->Close() || rename(m_temporary.c_str(), m_target.c_str()) != 0)
        return LastFailure();
    m_temporary.clear();
    // The new file is in place; a folder that cannot be synced changes nothing about that.
    const FileDescriptor entries(m_folder, O_RDONLY | O_DIRECTORY);
    if (entries.IsOpen())
        fsync(entries.Get());
    return {};
}

FileResult WriteWholeFile(const std::string& Path, std::string_view Bytes)
{
    return StagedFile(Path, Bytes).Commit();
}

} // namespace morvane
