// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/game_catalogue.h"

#include "catalogue/visible_games.h"
#include "support/game_list.h"

#include <gtest/gtest.h>

namespace {

class GameCatalogueTest : public ::testing::Test {
protected:
    ~GameCatalogueTest() override { freeGameList(); }
};

TEST_F(GameCatalogueTest, LinksClonesToTheirParents) {
    loadCatalogue("game (\nname clone\ncloneof parent\n)\ngame (\nname lost\ncloneof nobody\n)\n"
                  "game (\nname parent\nyear 1\n)\ngame (\nname parent\nyear 2\n)\n");
    ASSERT_EQ(namesOf(allGames, gameCount), "clone lost parent parent ");
    EXPECT_EQ(allGames[0]->parent, allGames[2]);
    EXPECT_EQ(allGames[1]->parent, nullptr);
    EXPECT_EQ(allGames[2]->parent, nullptr);
    EXPECT_EQ(hashFind("parent", gameIndex), allGames[2]);
    EXPECT_EQ(gameIndex->size, 4U);
}

TEST_F(GameCatalogueTest, FillsInMissingData) {
    loadCatalogue("game (\nname bare\n)\nresource (\nname bios\n)\ngame (\nyear 1980\n)\n");
    ASSERT_EQ(gameCount, 3);
    const GameRecord& bare = *allGames[0];
    EXPECT_STREQ(bare.description, "bare");
    EXPECT_STREQ(bare.manufacturer, "");
    EXPECT_STREQ(bare.video->screen, "raster");
    EXPECT_EQ(bare.video->orientation, orientationHorizontal);
    EXPECT_EQ(bare.input->control, controlJoy4Way);
    EXPECT_EQ(bare.input->buttons, 0);
    EXPECT_EQ(bare.isResource, 0);
    EXPECT_STREQ(allGames[1]->description, "bios");
    const GameRecord& nameless = *allGames[2];
    EXPECT_EQ(nameless.isResource, 1);
    EXPECT_STREQ(nameless.description, "");
    EXPECT_STREQ(nameless.manufacturer, "");
}

TEST_F(GameCatalogueTest, AcceptsAnEmptyListAndRepeatedFreeing) {
    loadCatalogue("");
    EXPECT_EQ(gameCount, 0);
    EXPECT_EQ(gameIndex, nullptr);
    loadCatalogue("game (\nname a\n)\n");
    for (int time = 0; time < 2; ++time) {
        freeGameList();
        EXPECT_EQ(allGames, nullptr);
        EXPECT_EQ(gameCount, 0);
        EXPECT_EQ(gameIndex, nullptr);
        EXPECT_EQ(visibleGames, nullptr);
    }
}

TEST_F(GameCatalogueTest, KeepsTheOrderOfALongList) {
    std::string text;
    for (int game = 0; game < 20000; ++game) {
        text +=
            "game (\nname g" + std::to_string(game) + "\ncloneof g" + std::to_string(19999 - game) + "\n)\n";
    }
    loadCatalogue(text);
    ASSERT_EQ(gameCount, 20000);
    for (int game = 0; game < gameCount; ++game) {
        ASSERT_EQ(allGames[game]->name, "g" + std::to_string(game));
        ASSERT_EQ(allGames[game]->parent, allGames[19999 - game]);
    }
}

} // namespace
