#include "document/LoadPicture.h"

#include <new>
#include <optional>
#include <utility>

#include "document/BmpDecoder.h"
#include "document/JpegDecoder.h"
#include "platform/File.h"

namespace morvane {

namespace {

// An uncompressed picture of the largest size at 32 bits, with a mebibyte for what stands around
// it.
constexpr std::uint64_t MaxPictureFileBytes = MaxPicturePixels * 4 + (1 << 20);

PictureResult resultOf(std::optional<Bitmap>&& picture, const char* kind)
{
    if (picture)
        return {PictureError::None, {}, std::move(*picture)};
    return {PictureError::Invalid, std::string("damaged, incomplete or unsupported ") + kind, {}};
}

} // namespace

PictureResult LoadPicture(const std::string& Path)
{
    try {
        std::vector<std::uint8_t> bytes;
        if (const FileResult read = ReadWholeFile(Path, MaxPictureFileBytes, bytes); !read)
            return {PictureError::Unreadable, read.Error, {}};
        return DecodePicture(bytes);
    } catch (const std::bad_alloc&) {
        return {PictureError::Unreadable, "Out of memory", {}};
    }
}

PictureResult DecodePicture(std::span<const std::uint8_t> File)
{
    try {
        if (IsBmp(File))
            return resultOf(DecodeBmp(File), "BMP picture");
        if (IsJpeg(File))
            return resultOf(DecodeJpeg(File), "JPEG picture");
        return {PictureError::NotAPicture, "neither BMP nor JPEG", {}};
    } catch (const std::bad_alloc&) {
        return {PictureError::Unreadable, "Out of memory", {}};
    }
}

} // namespace morvane
