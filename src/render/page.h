// SPDX-License-Identifier: GPL-3.0-or-later
// The page of titles or tiles that is on the screen. Used by the two views, which determine the page length.
#pragma once

#include <cstdint>

// Index in visibleGames of the first title or tile on the screen. Written by bringSelectionToPage; startup
// sets it to 0.
extern std::int32_t topIndex;

// Moves topIndex by whole pages until the selected game is on the page, so that a jump shows the same page as
// single steps. The last page is full. pageLength is at least 1.
void bringSelectionToPage(std::int32_t pageLength);
