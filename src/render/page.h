// The part of the visible games that is on the screen: a page of titles or tiles. Used by the two views,
// which know how many of them a page holds.
#pragma once

#include <cstdint>

// Index of the first line or tile that is shown. Written here, and set to 0 by the start-up.
extern std::int32_t topIndex;

// Moves topIndex by whole pages of the given length, at least 1, until the selected game is on the page; so a
// jump ends on the same grid as stepping. The last page is full.
void bringSelectionToPage(std::int32_t pageLength);
