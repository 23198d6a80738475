#include "platform/DynamicLibrary.h"

#include <cstring>
#include <filesystem>
#include <fstream>

#include <dlfcn.h>
#include <link.h>

namespace morvane {

namespace {

namespace fs = std::filesystem;

// The system's loader maps what the headers promise and dies of a file that has been cut short, so
// the promise is checked first: the bytes of every segment lie in the file. What is no library at
// all is left to the loader, which has the better words for it.
bool IsCutShort(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    ElfW(Ehdr) header{};
    if (!file.read(reinterpret_cast<char*>(&header), sizeof header)
        || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0
        || header.e_phentsize != sizeof(ElfW(Phdr)))
        return false;
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    file.seekg(static_cast<std::streamoff>(header.e_phoff));
    for (int i = 0; i < header.e_phnum; ++i) {
        ElfW(Phdr) segment{};
        if (!file.read(reinterpret_cast<char*>(&segment), sizeof segment) || segment.p_offset > size
            || segment.p_filesz > size - segment.p_offset)
            return true;
    }
    return false;
}

std::string LastFailure()
{
    const char* const text = dlerror();
    return text ? text : "Unknown error";
}

} // namespace

void* FunctionOfLibrary(const std::string& Path, const char* Function, std::string& Error)
{
    std::error_code ignored; // opening a pipe would wait for somebody to write
    if (!fs::is_regular_file(Path, ignored)) {
        Error = Path + ": not a file";
        return nullptr;
    }
    if (IsCutShort(Path)) {
        Error = Path + ": file is incomplete";
        return nullptr;
    }
    void* const library = dlopen(fs::absolute(Path, ignored).c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const function = library ? dlsym(library, Function) : nullptr;
    if (!function)
        Error = LastFailure();
    return function;
}

} // namespace morvane
