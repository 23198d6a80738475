// The font of a text, as settings, documents and views carry it.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Device.h"

namespace morvane {

struct TextFont {
    std::string FaceName = "Courier New";
    int Size = 10; // points
    Color Ink = Black;
    bool Bold = false, Italic = false, Underline = false;
    friend bool operator==(const TextFont&, const TextFont&) = default;
};

// The font of a device for such a text.
Font DeviceFont(
    const Device& On, const TextFont& Of, TextRotation Rotation = TextRotation::Horizontal);

// The name as a record of 32 characters keeps it: cut there, without the blanks and line
// ends behind it.
std::string FixedFaceName(std::string_view Name);

// A colour as files and settings keep it: red + 256 green + 65536 blue. Of a number, only those 24
// bits count.
std::int32_t ColorToLong(Color Value);
Color ColorFromLong(std::int32_t Value);

} // namespace morvane
