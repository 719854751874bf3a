// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/page.h"

#include "catalogue/selection.h"
#include "catalogue/visible_games.h"

#include <algorithm>

std::int32_t topIndex = 0;

void bringSelectionToPage(std::int32_t pageLength) {
    while (selectedIndex < topIndex) {
        topIndex = std::max(topIndex - pageLength, 0);
    }
    while (selectedIndex > topIndex + pageLength - 1) {
        topIndex = std::min(topIndex + pageLength, visibleCount - pageLength);
    }
}
