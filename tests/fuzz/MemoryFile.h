// A file in memory that takes new bytes again and again, for readers that want a path.
#pragma once
#include <cstddef>
#include <cstdlib>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

namespace morvane {

class MemoryFile {
public:
    MemoryFile() : m_handle(memfd_create("input", 0)) { }
    ~MemoryFile() { close(m_handle); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    // The path to read the bytes from.
    std::string Write(const void* Bytes, std::size_t Count) const
    {
        if (ftruncate(m_handle, 0) != 0 || pwrite(m_handle, Bytes, Count, 0) < 0)
            std::abort();
        return "/proc/self/fd/" + std::to_string(m_handle);
    }

private:
    int m_handle;
};

} // namespace morvane
