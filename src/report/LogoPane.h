// The logo of a report, with the comments on the test below it.
#pragma once
#include <string>
#include <vector>

#include "document/Bitmap.h"
#include "document/TextFont.h"

namespace morvane {

// The colours of a picture as LoadPicture gives it, rows top-down.
std::vector<Color> ColorsOf(const Bitmap& Source);

// Into the upper half of a pane whose right and bottom are included; without such a picture it
// stays empty.
void DrawLogo(Device& On, const DeviceRect& Pane, int Gap, const std::string& Path);

// Into the lower half.
void DrawComments(Device& On, const DeviceRect& Pane, int Gap, const std::string& Comments,
    const TextFont& Style);

} // namespace morvane
