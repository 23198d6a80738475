#include "platform/LargePages.h"

#include <memory>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace morvane {

void ResizeInLargePages(std::vector<std::uint8_t>& Bytes, std::size_t Count)
{
#ifdef __linux__
    constexpr std::size_t pageSize = 2 << 20; // x86-64 and ARM with small pages of 4 KiB
    if (Count > Bytes.capacity() && Count >= 2 * pageSize) {
        Bytes.reserve(Count);
        void* start = Bytes.data();
        std::size_t room = Count;
        // Only whole small pages can be advised on. A refusal costs time and nothing else.
        if (std::align(4096, pageSize, start, room) != nullptr)
            madvise(start, room / 4096 * 4096, MADV_HUGEPAGE);
    }
#endif
    Bytes.resize(Count);
}

} // namespace morvane
