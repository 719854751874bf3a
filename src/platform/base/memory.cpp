// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/memory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>

namespace {

// Every redraw allocates blocks of the same sizes as the last one. Returning them to the kernel in between,
// page by page, would cost more than rotating and stretching the pictures in them.
void keepFreedBlocks() {
    constexpr int keptBytes = 32 << 20; // also the largest threshold that mallopt accepts
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
