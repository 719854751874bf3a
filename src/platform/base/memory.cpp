// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/memory.h"

#include "platform/base/heap.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr std::int64_t restTime = 10'000'000'000; // nanoseconds

bool freedSinceLastCall = false;
bool hasMemoryToReturn = false;
std::int64_t lastFree = 0;

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
    freedSinceLastCall = true;
    std::free(block);
    return nullptr;
}

// By default each thread gets a heap of its own, up to eight for each processor. Each one keeps up to 32 MiB
// of what is freed in it, and the players start new threads with every file. A second one costs 10 MiB, and
// its growth is slow: a system call for each page.
void limitHeaps() {
    mallopt(M_ARENA_MAX, 1);
}

void returnFreeMemory() {
    malloc_trim(0);
}

void returnFreeMemoryAtRest(std::int64_t now) {
    if (freedSinceLastCall) {
        freedSinceLastCall = false;
        hasMemoryToReturn = true;
        lastFree = now;
    } else if (hasMemoryToReturn && now - lastFree >= restTime) {
        hasMemoryToReturn = false;
        returnFreeMemory();
    }
}
