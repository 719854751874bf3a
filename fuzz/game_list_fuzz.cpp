// SPDX-License-Identifier: GPL-3.0-or-later
// The game list: whatever the file contains, the records hold what the views read without checking, and they
// can be sorted and filtered. The last bytes of the input are settings.
#include "catalogue/game_catalogue.h"
#include "catalogue/game_filter.h"
#include "catalogue/game_sort.h"
#include "catalogue/list_parser.h"
#include "catalogue/visible_games.h"
#include "platform/text_file.h"
#include "support/default_settings.h"
#include "support/fuzz_input.h"
#include "support/scratch_folder.h"
#include "support/separate_blocks.h"

#include <cstring>

namespace {

void readSettings(FuzzInput& input) {
    settings.sortBy = input.number(sortByName, sortByManufacturer);
    for (std::int32_t Settings::*flag :
         {&Settings::displayMissingRoms, &Settings::displayVertical, &Settings::displayClones,
          &Settings::displayNeoGeo, &Settings::displayRaster, &Settings::favouritesOnly}) {
        settings.*flag = input.number(0, 7) > 0 ? 1 : 0;
    }
    settings.favouritesOnly = 1 - settings.favouritesOnly;
}

void checkRecord(const GameRecord& game) {
    require(game.description && game.manufacturer && (game.name || game.isResource));
    require(game.isResource || (game.video && game.input && game.input->control != 0));
    require(!game.parent ||
            (game.cloneOf && game.parent->name && !std::strcmp(game.parent->name, game.cloneOf)));
    require(std::strlen(game.description) < 1024 && std::strlen(game.manufacturer) < 1024);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    useDefaultSettings();
    FuzzInput input(data, size);
    readSettings(input);
    writeScratchFile("listinfo.dat", input.rest());
    FILE* file = openTextFile("listinfo.dat");
    SeparateBlocks records;
    while (parseGameRecord(file, records)) {
    }
    std::fclose(file);
    file = openTextFile("listinfo.dat");
    readGameList(file);
    std::fclose(file);
    for (std::int32_t game = 0; game < gameCount; ++game) {
        checkRecord(*allGames[game]);
    }
    sortGames();
    for (std::int32_t game = 1; game < gameCount; ++game) {
        require(compareGames(&allGames[game - 1], &allGames[game]) <= 0);
    }
    filterGames();
    for (std::int32_t game = 0; game < visibleCount; ++game) {
        const std::int32_t found = findVisibleGame(visibleGames[game]->name);
        require(found >= 0 && found <= game && !visibleGames[game]->isResource);
    }
    freeGameList();
    return 0;
}
