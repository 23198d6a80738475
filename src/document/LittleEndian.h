// Numbers in the byte order of BMP files and DIB blocks. The caller has checked that the bytes are
// there.
#pragma once
#include <cstddef>
#include <cstdint>

namespace morvane {

inline std::uint16_t LoadU16(const std::uint8_t* From)
{
    return static_cast<std::uint16_t>(From[0] | From[1] << 8);
}

inline std::uint32_t LoadU32(const std::uint8_t* From)
{
    return LoadU16(From) | static_cast<std::uint32_t>(LoadU16(From + 2)) << 16;
}

inline std::int32_t LoadI32(const std::uint8_t* From)
{
    return static_cast<std::int32_t>(LoadU32(From));
}

inline void StoreU16(std::uint8_t* To, std::uint16_t Value)
{
    To[0] = static_cast<std::uint8_t>(Value);
    To[1] = static_cast<std::uint8_t>(Value >> 8);
}

inline void StoreU32(std::uint8_t* To, std::uint32_t Value)
{
    StoreU16(To, static_cast<std::uint16_t>(Value));
    StoreU16(To + 2, static_cast<std::uint16_t>(Value >> 16));
}

} // namespace morvane
