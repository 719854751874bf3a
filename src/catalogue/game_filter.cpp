// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/game_filter.h"

#include "catalogue/game_catalogue.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"

#include <cstdlib>
#include <cstring>

namespace {

bool isWithin(std::int16_t value, std::int16_t lowest, std::int16_t highest) {
    return value >= lowest && value <= highest;
}

// A clone also needs the zip of its parent, unless the parent is not in the list.
bool hasRoms(const GameRecord& game) {
    return game.romPresent != 0 && (!game.cloneOf || !game.parent || game.parent->romPresent != 0);
}

bool passesVideoFilters(const GameRecord& game) {
    const VideoInfo& video = *game.video;
    const char* screen = video.screen ? video.screen : "";
    return (settings.displayVertical != 0 || video.orientation != orientationVertical) &&
           (settings.displayHorizontal != 0 || video.orientation != orientationHorizontal) &&
           (settings.displayVector != 0 || std::strcmp(screen, "vector") != 0) &&
           (settings.displayRaster != 0 || std::strcmp(screen, "raster") != 0);
}

bool passesInputFilters(const InputInfo& input) {
    return isWithin(input.players, settings.minPlayers, settings.maxPlayers) &&
           isWithin(input.buttons, settings.minButtons, settings.maxButtons) &&
           isWithin(input.coins, settings.minCoins, settings.maxCoins) &&
           (input.control & settings.controllerTypes) != 0;
}

bool passesSetFilters(const GameRecord& game) {
    const bool isNeoGeo = game.romOf && std::strcmp(game.romOf, "neogeo") == 0;
    return (settings.displayClones != 0 || !game.cloneOf) &&
           (isNeoGeo ? settings.displayNeoGeo : settings.displayNonNeoGeo) != 0;
}

// isResource is tested first, because a resource may lack video and input.
bool isVisible(const GameRecord& game) {
    return game.isResource == 0 && (settings.displayMissingRoms != 0 || hasRoms(game)) &&
           (settings.favouritesOnly == 0 || game.isFavourite != 0) && passesVideoFilters(game) &&
           passesInputFilters(*game.input) && passesSetFilters(game);
}

} // namespace

void filterGames() {
    setVisibleGames(nullptr, 0);
    // Allocated for all games and trimmed at the end.
    auto** visible =
        static_cast<GameRecord**>(std::malloc(static_cast<std::size_t>(gameCount) * sizeof(GameRecord*)));
    if (!visible) {
        return;
    }
    std::int32_t count = 0;
    for (std::int32_t game = 0; game < gameCount; ++game) {
        if (isVisible(*allGames[game])) {
            visible[count++] = allGames[game];
        }
    }
    if (count == 0) {
        std::free(static_cast<void*>(visible));
        return;
    }
    void* fitted =
        std::realloc(static_cast<void*>(visible), static_cast<std::size_t>(count) * sizeof(GameRecord*));
    setVisibleGames(fitted ? static_cast<GameRecord**>(fitted) : visible, count);
}
