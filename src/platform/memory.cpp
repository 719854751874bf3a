#include "platform/memory.h"

#include <algorithm>
#include <cstdlib>

HGLOBAL GlobalAlloc(UINT flags, std::size_t size) {
    const std::size_t atLeastOne = std::max<std::size_t>(size, 1);
    return (flags & GPTR) != 0 ? std::calloc(1, atLeastOne) : std::malloc(atLeastOne);
}

HGLOBAL GlobalFree(HGLOBAL block) {
    std::free(block);
    return nullptr;
}
