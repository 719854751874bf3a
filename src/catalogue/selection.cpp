#include "catalogue/selection.h"

#include "catalogue/visible_games.h"

std::int32_t selectedIndex = 0;

GameRecord* selectedGame() {
    return selectedIndex >= 0 && selectedIndex < visibleCount ? visibleGames[selectedIndex] : nullptr;
}
