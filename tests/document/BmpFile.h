// BMP files put together field by field, right ones and wrong ones.
#pragma once
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace morvane::test {

using Bytes = std::vector<std::uint8_t>;

inline void append(Bytes& to, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        to.push_back(static_cast<std::uint8_t>(value >> 8 * i));
}

struct BmpFile {
    int Width = 1, Height = 1; // negative height: top-down
    int BitCount = 8;
    std::uint32_t Compression = 0;
    std::uint32_t HeaderSize = 40; // 12 is OS/2's
    std::uint32_t NumColors = 0; // as stated in the header
    std::vector<std::uint32_t> Behind; // masks or colours, four bytes each
    Bytes Pixels;
    std::int64_t Offset = -1; // -1: the true one

    Bytes Make() const
    {
        Bytes header;
        append(header, HeaderSize, 4);
        const int sizeBytes = HeaderSize == 12 ? 2 : 4;
        append(header, static_cast<std::uint32_t>(Width), sizeBytes);
        append(header, static_cast<std::uint32_t>(Height), sizeBytes);
        append(header, 1, 2);
        append(header, static_cast<std::uint32_t>(BitCount), 2);
        if (HeaderSize > 12) {
            append(header, Compression, 4);
            for (const std::uint32_t field : {0U, 0U, 0U, NumColors, 0U})
                append(header, field, 4);
        }
        for (const std::uint32_t entry : Behind)
            append(header, entry, HeaderSize == 12 ? 3 : 4);
        if (HeaderSize > 40 && header.size() < HeaderSize)
            header.resize(HeaderSize);

        Bytes file{'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0};
        append(file,
            Offset >= 0 ? static_cast<std::uint32_t>(Offset)
                        : static_cast<std::uint32_t>(14 + header.size()),
            4);
        file.insert(file.end(), header.begin(), header.end());
        file.insert(file.end(), Pixels.begin(), Pixels.end());
        return file;
    }
};

} // namespace morvane::test
