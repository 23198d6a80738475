#include "document/RleDecoder.h"

#include <algorithm>
#include <cstddef>

namespace morvane {

namespace {

constexpr int EndOfRow = 0, EndOfPicture = 1, Delta = 2; // after a count of 0; above: literal run

class RleReader {
public:
    RleReader(std::span<const std::uint8_t> Data, int BitsPerPixel, Bitmap& Target)
        : m_data(Data), m_bitsPerPixel(BitsPerPixel), m_target(Target)
    {
    }

    bool Read();

private:
    std::size_t left() const { return m_data.size() - m_next; }
    bool fits(int count) const { return m_y < m_target.Height && count <= m_target.Width - m_x; }
    bool isFull() const
    {
        return m_y == m_target.Height || (m_y == m_target.Height - 1 && m_x == m_target.Width);
    }
    void put(int value);
    bool command(int code);
    bool endRow();
    bool move();
    bool repeat(int count, std::uint8_t value);
    bool copy(int count);

    std::span<const std::uint8_t> m_data;
    int m_bitsPerPixel;
    Bitmap& m_target;
    std::size_t m_next = 0;
    int m_x = 0, m_y = 0; // y upward, as the rows lie
};

bool RleReader::Read()
{
    while (left() >= 2) {
        const int count = m_data[m_next];
        const std::uint8_t value = m_data[m_next + 1];
        m_next += 2;
        if (count == 0 && value == EndOfPicture)
            return true;
        if (!(count == 0 ? command(value) : repeat(count, value)))
            return false;
    }
    return isFull();
}

bool RleReader::command(int code)
{
    switch (code) {
    case EndOfRow:
        return endRow();
    case Delta:
        return move();
    default:
        return copy(code);
    }
}

bool RleReader::endRow()
{
    m_x = 0;
    return ++m_y <= m_target.Height;
}

bool RleReader::move()
{
    if (left() < 2)
        return false;
    m_x += m_data[m_next];
    m_y += m_data[m_next + 1];
    m_next += 2;
    return m_x <= m_target.Width && m_y <= m_target.Height;
}

void RleReader::put(int value)
{
    m_target
        .Rows[static_cast<std::size_t>(m_y) * m_target.Stride() + static_cast<std::size_t>(m_x++)] =
        static_cast<std::uint8_t>(value);
}

// In 4 bits the two halves of the value take turns, the high one first.
bool RleReader::repeat(int count, std::uint8_t value)
{
    if (!fits(count))
        return false;
    for (int i = 0; i < count; ++i)
        put(m_bitsPerPixel == 8 ? value : i % 2 == 0 ? value >> 4 : value & 15);
    return true;
}

// Literal runs are padded to an even number of bytes.
bool RleReader::copy(int count)
{
    const std::size_t bytes = static_cast<std::size_t>((count * m_bitsPerPixel + 7) / 8);
    if (!fits(count) || left() < bytes)
        return false;
    const std::uint8_t* source = m_data.data() + m_next;
    for (int i = 0; i < count; ++i)
        put(m_bitsPerPixel == 8 ? source[i] : i % 2 == 0 ? source[i / 2] >> 4 : source[i / 2] & 15);
    m_next += std::min(left(), bytes + bytes % 2);
    return true;
}

} // namespace

bool DecodeRle(std::span<const std::uint8_t> Data, int BitsPerPixel, Bitmap& Target)
{
    return RleReader(Data, BitsPerPixel, Target).Read();
}

} // namespace morvane
