// SPDX-License-Identifier: GPL-3.0-or-later
// Control of the C library's heap: how many there are, and when free memory is returned to the kernel. The
// process entry calls it at the start, the clock while the program rests, and the process service before a
// program gets the display. Blocks are allocated as usual.
#pragma once

#include <cstdint>

// To be called once, before the first thread starts.
void limitHeaps();

// Returns all free memory to the kernel. The next use of each of its pages costs a page fault: about 1 ms for
// a megabyte.
void returnFreeMemory();

// To be called about every 20 ms while the program waits, with the time in nanoseconds. Returns free memory
// once when no block of memory.h has been freed for some seconds: between two redraws it would cost more than
// the redraw.
void returnFreeMemoryAtRest(std::int64_t now);
