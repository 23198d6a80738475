// Any bytes as a file of reference coefficients, and as a document that holds some. Built with
// clang++ -fsanitize=fuzzer,address,undefined.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

#include <unistd.h>

#include "MemoryFile.h"
#include "analysis/modSurface.h"
#include "shell/modFileLib.h"

namespace {

using namespace morvane;

// The extension decides how a file is read, so each kind has a link of its own to the bytes.
class Links {
public:
    Links()
    {
        std::string pattern = std::filesystem::temp_directory_path() / "coefficients-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr)
            std::abort();
        m_folder = pattern;
        for (const char* name : {"reference.zrn", "reference.mvd"})
            std::filesystem::create_symlink(m_file.Write("", 0), m_folder / name);
    }
    ~Links() { std::filesystem::remove_all(m_folder); }

    std::filesystem::path operator/(const char* Name) const { return m_folder / Name; }
    void Write(const void* Bytes, std::size_t Count) const { m_file.Write(Bytes, Count); }

private:
    MemoryFile m_file;
    std::filesystem::path m_folder;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size)
{
    static const Links links;
    links.Write(Data, Size);
    for (const char* name : {"reference.zrn", "reference.mvd"}) {
        const std::optional<ZernikeSet> read = LoadReferenceFile(links / name);
        if (!read)
            continue;
        for (const double coefficient : *read)
            if (!std::isfinite(coefficient))
                std::abort();
        // What has been written is read and written again the same.
        const std::string text = ZernikesText(*read);
        links.Write(text.data(), text.size());
        const std::optional<ZernikeSet> again = LoadReferenceFile(links / "reference.zrn");
        if (!again || ZernikesText(*again) != text)
            std::abort();
        links.Write(Data, Size);
    }
    return 0;
}
