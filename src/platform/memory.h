// SPDX-License-Identifier: GPL-3.0-or-later
// Plain blocks of memory for pictures. Called by the PNG reader and by the drawing of pictures, which check
// every allocation because the size of a picture comes from a file. All other code uses ordinary C++
// allocation.
#pragma once

#include "platform/types.h"

using HGLOBAL = void*;

constexpr UINT GMEM_FIXED = 0x0000;
constexpr UINT GPTR = 0x0040; // fixed and zero-initialised

// Allocates a block at a fixed address; the handle is the address. The caller releases it with GlobalFree.
// Returns null when memory is exhausted.
HGLOBAL GlobalAlloc(UINT flags, std::size_t size);

// Releases a block; null is allowed. Always returns null.
HGLOBAL GlobalFree(HGLOBAL block);
