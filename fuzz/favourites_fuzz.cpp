// SPDX-License-Identifier: GPL-3.0-or-later
// The favourites: whatever the file contains, marking a game keeps it as the beginning of the new file, and
// the next press removes the mark only. The input is the file.
#include "app/window_state.h"
#include "catalogue/game_catalogue.h"
#include "catalogue/game_filter.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "extras/favourites.h"
#include "platform/display/key_state.h"
#include "platform/text_file.h"
#include "render/composition.h"
#include "support/default_settings.h"
#include "support/fuzz_input.h"
#include "support/scratch_folder.h"

namespace {

constexpr int markKey = 'F';
constexpr int viewKey = 'V';

void start() {
    useDefaultSettings();
    settings.displayMissingRoms = 1;
    settings.keyFavourite = markKey;
    settings.keyFavouritesOnly = viewKey;
    frameLayout = [](HDC, SIZE) {}; // draws nothing
    appActive = 1;
    writeScratchFile("listinfo.dat", "game (\nname a\n)\ngame (\nname b\n)\ngame (\nname pac\n)\n");
    FILE* file = openTextFile("listinfo.dat");
    readGameList(file);
    std::fclose(file);
}

void press(int key) {
    keyChanged(key, true);
    serveFavourites(nullptr);
    keyChanged(key, false);
    serveFavourites(nullptr);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (gameCount == 0) {
        start();
    }
    FuzzInput input(data, size);
    selectedIndex = 0;
    const std::string text(input.rest());
    writeScratchFile("favourites.dat", text);
    startFavourites();
    filterGames();
    const std::int32_t wasMarked = allGames[0]->isFavourite;
    const std::int32_t otherMarked = allGames[1]->isFavourite;
    press(markKey);
    require(allGames[0]->isFavourite == 1 - wasMarked && allGames[1]->isFavourite == otherMarked);
    require(wasMarked || scratchFolder().read("favourites.dat").starts_with(text));
    press(viewKey);
    require(selectedIndex >= 0 && selectedIndex < visibleCount);
    press(viewKey);
    selectedIndex = 0;
    press(markKey);
    require(allGames[0]->isFavourite == wasMarked && allGames[1]->isFavourite == otherMarked);
    return 0;
}
