// How large a picture may be. Whoever decodes asks here before memory is taken, so that a few
// bytes of lies cannot fill it.
#pragma once
#include <cstddef>
#include <cstdint>

namespace morvane {

inline constexpr int MaxPictureSide = 32767;
inline constexpr std::int64_t MaxPicturePixels = 268435456; // 16384 x 16384

// What one byte of a compressed file is believed to hold. Run lengths reach 127 pixels a byte as
// long as nothing is skipped, a progressive JPEG of one colour 512 (a bit for 8 x 8 pixels); the
// rest is room for pictures that skip their black ground.
inline constexpr std::int64_t MaxPixelsPerByte = 1024;

constexpr bool IsAllowedSize(std::int64_t Width, std::int64_t Height)
{
    return Width > 0 && Height > 0 && Width <= MaxPictureSide && Height <= MaxPictureSide
        && Width * Height <= MaxPicturePixels;
}

constexpr bool CanHoldCompressed(std::size_t Bytes, std::int64_t Width, std::int64_t Height)
{
    return IsAllowedSize(Width, Height)
        && static_cast<std::uint64_t>(Width * Height) / MaxPixelsPerByte <= Bytes;
}

} // namespace morvane
