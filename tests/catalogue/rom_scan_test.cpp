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

TEST(RomScan, findsTheZipOfAGameOrOfItsParent) {
    TemporaryFolder folder;
    std::filesystem::create_directory(folder.pathOf("roms"));
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

    std::string backslashFolder = ".\\roms";
    settings.romsDir = backslashFolder.data();
    scanRoms();
    EXPECT_EQ(presentGames(), "own clone stray folder ? ");

    std::string missingFolder = folder.pathOf("nowhere");
    settings.romsDir = missingFolder.data();
    scanRoms();
    EXPECT_EQ(presentGames(), "");
    freeGameList();
    scanRoms();
    settings.romsDir = nullptr;
}

} // namespace
