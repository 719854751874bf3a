// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/selection.h"

#include "catalogue/visible_games.h"

#include <cstdlib>

std::int32_t selectedIndex = 0;
const GameRecord* gameBeforeAttractPlay = nullptr;

GameRecord* selectedGame() {
    return selectedIndex >= 0 && selectedIndex < visibleCount ? visibleGames[selectedIndex] : nullptr;
}

const char* playersGameName() {
    const GameRecord* game = gameBeforeAttractPlay ? gameBeforeAttractPlay : selectedGame();
    return game ? game->name : nullptr;
}

void selectRandomGame() {
    // Fifteen random bits, whatever RAND_MAX is.
    constexpr int randomMask = 0x7FFF;
    constexpr float scale = 3.0517578125e-05F; // 1 / 32768
    const std::int64_t product = std::int64_t{std::rand() & randomMask} * visibleCount;
    selectedIndex = static_cast<std::int32_t>(static_cast<float>(product) * scale);
}
