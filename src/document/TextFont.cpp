#include "document/TextFont.h"

#include "platform/Numbers.h"

namespace morvane {

Font DeviceFont(const Device& On, const TextFont& Of, TextRotation Rotation)
{
    constexpr double pointsPerInch = 72;
    const int height = RoundToLong(Of.Size * On.Figures().PixelsPerInchY / pointsPerInch);
    return {Of.FaceName, height, Of.Bold, Of.Italic, Of.Underline, Rotation};
}

std::string FixedFaceName(std::string_view Name)
{
    constexpr int longest = 32;
    std::size_t end = 0;
    int numCharacters = 0;
    for (; end < Name.size(); ++end) {
        // The bytes behind the first of a character in UTF-8 are 10xxxxxx.
        const bool isFirst = (static_cast<unsigned char>(Name[end]) & 0xc0) != 0x80;
        if (isFirst && ++numCharacters > longest)
            break;
    }
    Name = Name.substr(0, end);
    return std::string(Name.substr(0, Name.find_last_not_of(" \r\n") + 1));
}

std::int32_t ColorToLong(Color Value)
{
    return Value.Red | Value.Green << 8 | Value.Blue << 16;
}

Color ColorFromLong(std::int32_t Value)
{
    return {static_cast<std::uint8_t>(Value & 0xff), static_cast<std::uint8_t>(Value >> 8 & 0xff),
        static_cast<std::uint8_t>(Value >> 16 & 0xff)};
}

} // namespace morvane
