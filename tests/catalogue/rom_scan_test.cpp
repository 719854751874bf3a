// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/rom_scan.h"

#include "config/settings.h"
#include "support/game_list.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

std::string presentGames() {
    std::string names;
    for (int game = 0; game < gameCount; ++game) {
        names += allGames[game]->romPresent != 0 ? namesOf(allGames + game, 1) : "";
    }
    return names;
}

TEST(RomScan, FindsTheZipsOfGamesAndTheirParents) {
    TemporaryFolder folder;
    std::filesystem::create_directories(folder.pathOf("roms/sub"));
    for (const char* zip : {"roms/own.zip", "roms/parent.zip", "roms/outside.zip", "roms/Big.zip"}) {
        folder.write(zip, "");
    }
    std::filesystem::create_directory(folder.pathOf("roms/folder.zip"));
    loadCatalogue(
        "game (\nname own\n)\ngame (\nname none\nromof parent\n)\ngame (\nname clone\ncloneof parent\n)\n"
        "game (\nname orphan\ncloneof nobody\n)\ngame (\nname stray\ncloneof outside\n)\ngame (\nname "
        "big\n)\n"
        "game (\nname folder\n)\ngame (\ncloneof parent\n)\ngame (\nname " +
        std::string(900, 'x') + "\n)\n");
    std::string romsFolder = folder.pathOf("roms");
    settings.romsDir = romsFolder.data();
    scanRoms();
    EXPECT_EQ(presentGames(), "own clone stray folder ? ");

    for (const char* zip : {"beside.zip", "roms/sub/inner.zip"}) {
        folder.write(zip, "");
    }
    std::filesystem::create_symlink(folder.pathOf("beside.zip"), "roms/link.zip");
    std::filesystem::create_symlink(folder.pathOf("roms"), "roms/inside");
    const std::string list = "game (\nname sub/inner\n)\ngame (\nname sub\\inner\n)\ngame (\nname link\n)\n"
                             "game (\nname inside/own\n)\ngame (\nname ..own\ncloneof sub/inner\n)\n";
    loadCatalogue(list + "game (\nname ../beside\n)\ngame (\nname ..\\beside\n)\n"
                         "game (\nname sub/../own\n)\ngame (\nname sub\\..\\own\n)\n"
                         "game (\nname /own\n)\ngame (\nname \\own\n)\ngame (\nname x\ncloneof ../beside\n)\n"
                         "game (\nname ow?\n)\ngame (\nname p*x\n)\n");
    scanRoms();
    EXPECT_EQ(presentGames(), "sub/inner sub\\inner link inside/own ..own ow? ");

    std::string backslashFolder = ".\\roms";
    settings.romsDir = backslashFolder.data();
    scanRoms();
    EXPECT_EQ(presentGames(), "sub/inner sub\\inner link inside/own ..own ow? ");

    std::string missingFolder = folder.pathOf("nowhere");
    settings.romsDir = missingFolder.data();
    scanRoms();
    EXPECT_EQ(presentGames(), "");
    freeGameList();
    scanRoms();
    settings.romsDir = nullptr;
}

} // namespace
