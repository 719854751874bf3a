// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/attract_movie.h"

#include "app/window_state.h"
#include "config/settings.h"
#include "platform/media.h"
#include "platform/messages.h"
#include "platform/window.h"
#include "support/movie_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

class AttractMovieAtStart : public ::testing::Test {
protected:
    void SetUp() override {
        mainWindow = openFrame();
        std::filesystem::create_directory("attracts");
        settings.attractDir = directory;
        game.name = name;
        game.cloneOf = parent;
    }

    void write(const std::string& stem, int width, int height) const {
        AviWriter writer({width, height, 10, 0});
        writer.addPicture(std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), 0xFFFFFF));
        folder.write("attracts/" + stem + ".avi", writer.content());
    }

    TemporaryFolder folder;
    char directory[9] = "attracts";
    char name[6] = "clone";
    char parent[7] = "parent";
    GameRecord game{};
};

class AttractMovieTest : public AttractMovieAtStart {
protected:
    void SetUp() override {
        AttractMovieAtStart::SetUp();
        waitForPlayer();
    }
};

// Runs in a process of its own or first, while the player is not loaded.
TEST_F(AttractMovieAtStart, IsLeftOutUntilThePlayerIsLoaded) {
    ASSERT_FALSE(mediaReady());
    write("clone", 100, 50);
    RECT area{0, 0, 300, 200};
    EXPECT_EQ(awaitedMovieIsReady(), 0);
    EXPECT_EQ(playAttractMovie(&game, &area), 0);
    EXPECT_EQ(movieWindow, nullptr);
    EXPECT_TRUE(keepAliveUntil([] { return awaitedMovieIsReady() == 1; }));
    EXPECT_EQ(awaitedMovieIsReady(), 0);
    EXPECT_EQ(playAttractMovie(&game, &area), 1);
}

TEST_F(AttractMovieTest, FitsTheMovieWithoutEnlargingIt) {
    struct Case {
        SIZE movie;
        POINT corner; // in an area of (320, 240) to (620, 440), which is 300 by 200
        SIZE window;
    };
    constexpr Case cases[] = {
        {{100, 301}, {420, 189}, {100, 301}}, // higher than the area, and not looked at
        {{300, 100}, {320, 290}, {300, 100}}, // as wide as the area
        {{100, 50}, {420, 315}, {100, 50}},   {{600, 100}, {320, 315}, {300, 50}},
        {{400, 400}, {370, 240}, {200, 200}}, // the height decides
    };
    for (const Case& fit : cases) {
        write("clone", fit.movie.cx, fit.movie.cy);
        RECT area{};
        // The first one is known at once; on a busy machine the size of another may come too late for a try.
        keepAliveUntil([&] {
            closeAttractMovie();
            area = {320, 240, 620, 440};
            EXPECT_EQ(playAttractMovie(&game, &area), 1);
            return &fit == cases || area.left == fit.corner.x;
        });
        RECT window{};
        GetClientRect(movieWindow, &window);
        EXPECT_EQ(area.left, fit.corner.x) << fit.movie.cx;
        EXPECT_EQ(area.top, fit.corner.y) << fit.movie.cx;
        EXPECT_EQ(window.right, fit.window.cx) << fit.movie.cx;
        EXPECT_EQ(window.bottom, fit.window.cy) << fit.movie.cx;
        EXPECT_EQ(area.right, 620);
        closeAttractMovie();
        EXPECT_EQ(movieWindow, nullptr);
    }
}

TEST_F(AttractMovieTest, TheFirstMovieIsKnownToBeDamaged) {
    folder.write("attracts/clone.avi", "damaged");
    RECT area{0, 0, 300, 200};
    EXPECT_EQ(playAttractMovie(&game, &area), 0);
}

TEST_F(AttractMovieTest, FallsBackToTheMovieOfTheParent) {
    RECT area{0, 0, 300, 200};
    EXPECT_EQ(playAttractMovie(&game, &area), 0);
    EXPECT_EQ(movieWindow, nullptr);
    write("parent", 100, 50);
    char outside[] = "../attracts/parent";
    game.cloneOf = outside;
    EXPECT_EQ(playAttractMovie(&game, &area), 0);
    game.cloneOf = parent;
    EXPECT_EQ(playAttractMovie(&game, &area), 1);
    EXPECT_NE(movieWindow, nullptr);
    folder.write("attracts/clone.avi", "damaged");
    EXPECT_TRUE(keepAliveUntil([&] {
        closeAttractMovie();
        return playAttractMovie(&game, &area) == 0;
    })) << "damaged movie plays";
    EXPECT_NE(movieWindow, nullptr);
}

} // namespace
