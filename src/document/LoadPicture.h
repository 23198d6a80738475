// The picture decoder: BMP (1, 4, 8, 16, 24, 32 bits, bit fields, RLE4, RLE8, both row orders) and
// JPEG, told apart by content. The size a header claims is believed only when the file can hold
// it.
//
// A picture comes in its own depth: up to 8 bits with the palette as 8, 16 bits as 5-5-5 whatever
// its bit fields, JPEG and 32 bits as 24.
//
// A damaged file is refused as a whole: a wavefront measured on half a picture would look as good
// as a true one.
#pragma once
#include <cstdint>
#include <span>
#include <string>

#include "document/Bitmap.h"
#include "document/PictureLimits.h"

namespace morvane {

enum class PictureError {
    None,
    NotAPicture, // content is no known picture
    Invalid, // a known kind, but damaged, lying or beyond the limits
    Unreadable, // the system refused the file, or the memory
};

struct PictureResult {
    PictureError Error = PictureError::None;
    std::string Reason; // in words, of every error
    Bitmap Picture;
};

PictureResult LoadPicture(const std::string& Path);
PictureResult DecodePicture(std::span<const std::uint8_t> File);

} // namespace morvane
