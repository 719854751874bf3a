// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/visible_games.h"

#include <cstdlib>
#include <cstring>

GameRecord** visibleGames = nullptr;
std::int32_t visibleCount = 0;
std::uint32_t viewGeneration = 0;

void setVisibleGames(GameRecord** games, std::int32_t count) {
    std::free(static_cast<void*>(visibleGames));
    visibleGames = games;
    visibleCount = count;
    ++viewGeneration;
}

std::int32_t findVisibleGame(const char* name) {
    for (std::int32_t game = 0; game < visibleCount; ++game) {
        if (std::strcmp(visibleGames[game]->name, name) == 0) {
            return game;
        }
    }
    return -1;
}
