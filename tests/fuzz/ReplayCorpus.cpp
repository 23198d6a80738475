// Hands each file of a folder to a fuzz target, as the fuzzer would.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size);

int main(int argc, char** argv)
{
    int count = 0;
    for (int i = 1; i < argc; ++i)
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
            LLVMFuzzerTestOneInput(
                reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++count;
        }
    std::printf("%d files\n", count);
    return count > 0 ? 0 : 1;
}
