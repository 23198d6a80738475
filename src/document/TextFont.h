// The font of a text, as settings, documents and views carry it.
#pragma once
#include <string>

#include "platform/Device.h"

namespace morvane {

struct TextFont {
    std::string FaceName = "Courier New";
    int Size = 10; // points
    Color Ink = Black;
    bool Bold = false, Italic = false, Underline = false;
    friend bool operator==(const TextFont&, const TextFont&) = default;
};

} // namespace morvane
