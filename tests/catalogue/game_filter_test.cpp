// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/game_filter.h"

#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "support/game_list.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* filterList = R"(game (
name plain
video ( screen raster orientation horizontal )
input ( players 2 control joy8way buttons 3 coins 2 )
)
game (
name upright
video ( screen vector orientation vertical )
input ( players 1 control dial buttons 0 coins 1 )
)
game (
name clone
cloneof plain
romof plain
video ( screen lcd )
input ( players 4 control trackball buttons 8 coins 4 )
)
game (
name neo
romof neogeo
video ( orientation horizontal )
input ( buttons 1 )
)
game (
name orphan
cloneof nobody
romof neogeo2
)
resource (
name bios
)
game (
year 1980
)
)";

class GameFilterTest : public ::testing::Test {
protected:
    GameFilterTest() {
        loadCatalogue(filterList);
        for (int game = 0; game < gameCount; ++game) {
            allGames[game]->romPresent = 1;
        }
        settings = {};
        for (auto flag : {&Settings::displayVertical, &Settings::displayHorizontal, &Settings::displayClones,
                          &Settings::displayNeoGeo, &Settings::displayNonNeoGeo, &Settings::displayVector,
                          &Settings::displayRaster}) {
            settings.*flag = 1;
        }
        settings.minButtons = -9;
        settings.maxPlayers = 8;
        settings.maxButtons = 8;
        settings.maxCoins = 8;
        settings.controllerTypes = 127;
    }
    ~GameFilterTest() override { freeGameList(); }

    std::string visibleNames() {
        filterGames();
        EXPECT_EQ(!visibleGames, visibleCount == 0);
        return namesOf(visibleGames, visibleCount);
    }
};

TEST_F(GameFilterTest, AppliesEachSetting) {
    struct Case {
        const char* what;
        void (*change)();
        const char* names;
    };
    const Case cases[] = {
        {"nothing", [] {}, "plain upright clone neo orphan "},
        {"no vertical", [] { settings.displayVertical = 0; }, "plain clone neo orphan "},
        {"no horizontal", [] { settings.displayHorizontal = 0; }, "upright clone "},
        {"only unstated", [] { settings.displayVertical = settings.displayHorizontal = 0; }, "clone "},
        {"no clones", [] { settings.displayClones = 0; }, "plain upright neo "},
        {"no Neo-Geo", [] { settings.displayNeoGeo = 0; }, "plain upright clone orphan "},
        {"only Neo-Geo", [] { settings.displayNonNeoGeo = 0; }, "neo "},
        {"neither", [] { settings.displayNeoGeo = settings.displayNonNeoGeo = 0; }, ""},
        {"no vector", [] { settings.displayVector = 0; }, "plain clone neo orphan "},
        {"no raster", [] { settings.displayRaster = 0; }, "upright clone neo "},
        {"other screens", [] { settings.displayVector = settings.displayRaster = 0; }, "clone neo "},
        {"two players or more", [] { settings.minPlayers = 2; }, "plain clone "},
        {"up to one player", [] { settings.maxPlayers = 1; }, "upright neo orphan "},
        {"empty range", [] { settings.minPlayers = 5, settings.maxPlayers = 4; }, ""},
        {"no buttons below 0", [] { settings.minButtons = 0; }, "plain upright clone orphan "},
        {"up to three buttons", [] { settings.maxButtons = 3; }, "plain upright neo orphan "},
        {"coins", [] { settings.minCoins = 1, settings.maxCoins = 2; }, "plain upright "},
        {"dial and trackball", [] { settings.controllerTypes = 65; }, "upright clone "},
        {"no control", [] { settings.controllerTypes = 0; }, ""},
    };
    const Settings open = settings;
    for (const Case& row : cases) {
        settings = open;
        row.change();
        EXPECT_EQ(visibleNames(), row.names) << row.what;
    }
}

TEST_F(GameFilterTest, RequiresTheRomsOfACloneAndItsParent) {
    allGames[0]->romPresent = 0; // plain, of which clone is a clone
    EXPECT_EQ(visibleNames(), "upright neo orphan ");
    allGames[4]->romPresent = 0;
    EXPECT_EQ(visibleNames(), "upright neo ");
    settings.displayMissingRoms = 1;
    EXPECT_EQ(visibleNames(), "plain upright clone neo orphan ");
    settings.displayMissingRoms = 0;
    allGames[0]->romPresent = 1;
    allGames[2]->romPresent = 0;
    EXPECT_EQ(visibleNames(), "plain upright neo ");
}

TEST_F(GameFilterTest, FindsOnlyVisibleGames) {
    settings.displayVertical = 0;
    filterGames();
    EXPECT_EQ(findVisibleGame("clone"), 1);
    for (const std::int32_t index : {-1, 0, visibleCount - 1, visibleCount}) {
        selectedIndex = index;
        const bool inside = index >= 0 && index < visibleCount;
        EXPECT_EQ(selectedGame(), inside ? visibleGames[index] : nullptr) << index;
    }
    selectedIndex = 0;
    EXPECT_EQ(findVisibleGame("Clone"), -1);
    EXPECT_EQ(findVisibleGame("upright"), -1);
    settings.controllerTypes = 0;
    filterGames();
    EXPECT_EQ(findVisibleGame("clone"), -1);
    freeGameList();
    filterGames();
    EXPECT_EQ(visibleGames, nullptr);
    EXPECT_EQ(visibleCount, 0);
}

} // namespace
