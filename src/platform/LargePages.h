// Memory for whole pictures. The system hands out fresh memory in pages of 4 KiB, each on its first
// touch; for the 48 MiB of a decoded picture that takes half as long as decoding it. In large pages
// it takes a tenth of that.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

namespace morvane {

// Bytes.resize(Count), in large pages where the system has them.
void ResizeInLargePages(std::vector<std::uint8_t>& Bytes, std::size_t Count);

} // namespace morvane
