#include "platform/memory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>

namespace {

// Every redraw needs the blocks of the last one again. Giving them back to the kernel in between, page by
// page, would cost more than turning and stretching what they hold.
void keepFreedBlocks() {
    constexpr int keptBytes = 32 << 20; // also the largest threshold that is accepted
    mallopt(M_MMAP_THRESHOLD, keptBytes);
    mallopt(M_TRIM_THRESHOLD, keptBytes);
}

} // namespace

HGLOBAL GlobalAlloc(UINT flags, std::size_t size) {
    [[maybe_unused]] static const bool once = (keepFreedBlocks(), true);
    const std::size_t atLeastOne = std::max<std::size_t>(size, 1);
    return (flags & GPTR) != 0 ? std::calloc(1, atLeastOne) : std::malloc(atLeastOne);
}

HGLOBAL GlobalFree(HGLOBAL block) {
    std::free(block);
    return nullptr;
}
