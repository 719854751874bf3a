// Plain blocks of memory for pictures. Called by the PNG reader and by the drawing of pictures, which test
// every allocation: the size of a picture comes out of a file. Everything else allocates as the language
// does.
#pragma once

#include "platform/types.h"

using HGLOBAL = void*;

constexpr UINT GMEM_FIXED = 0x0000;
constexpr UINT GPTR = 0x0040; // fixed and zeroed

// A block at a fixed address, owned by the caller; the handle is the address. Null when there is no memory.
HGLOBAL GlobalAlloc(UINT flags, std::size_t size);

// Releases a block; null is no failure. Always gives null.
HGLOBAL GlobalFree(HGLOBAL block);
