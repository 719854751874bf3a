// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/settings.h"
#include "render/attract_movie.h"
#include "scenario/recorded_media.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

class TurnedLayoutScenario : public ::testing::Test {
protected:
    void SetUp() override {
        frontEnd.writeGames(20);
        frontEnd.set("Extras", "Layout", "Turned");
        frontEnd.set("Settings", "Attract.dir", "attracts");
        frontEnd.set("Settings", "ShowStatusBar", "0");
        std::filesystem::create_directory("attracts");
        frontEnd.folder().write("attracts/g000.avi", "recorded");
        frontEnd.folder().write("attracts/g001.avi", "recorded");
    }

    static bool requested(const std::string& what) {
        return std::ranges::any_of(mediaRequests, [&](const MediaRequest& one) { return one.what == what; });
    }

    // The movie window, relative to the main window.
    static RECT movieRect() {
        RECT rect{};
        GetWindowRect(movieWindow, &rect);
        return rect;
    }

    FrontEnd frontEnd;
};

TEST_F(TurnedLayoutScenario, MoviesTurnAndStandInTheLowerRightQuarter) {
    const struct {
        const char* orientation;
        const char* command;
        POINT place; // in the frame
    } rows[] = {{"Normal", "setvideo rotation to 0", {320, 240}},
                {"ROR", "setvideo rotation to 90", {0, 240}},
                {"ROL", "setvideo rotation to -90", {320, 0}},
                {"Inverted", "setvideo rotation to 180", {0, 0}}};
    for (const char* view : {"ListView", "ImageBrowser"}) {
        for (const auto& row : rows) {
            for (const int screenWidth : {640, 1000}) {
                setScreenSize(screenWidth, 480);
                frontEnd.restart();
                frontEnd.set("Settings", "MenuType", view);
                frontEnd.set("Settings", "Orientation", row.orientation);
                frontEnd.at(140, [&] {
                    SCOPED_TRACE(::testing::Message() << view << " " << row.orientation << screenWidth);
                    EXPECT_TRUE(requested(row.command));
                    const RECT movie = movieRect();
                    EXPECT_EQ(movie.left, row.place.x + (screenWidth - 640) / 2);
                    EXPECT_EQ(movie.top, row.place.y);
                    EXPECT_EQ(movie.right - movie.left, 320);
                    EXPECT_EQ(movie.bottom - movie.top, 240);
                });
                frontEnd.run(200);
                mediaRequests.clear();
            }
        }
    }
}

TEST_F(TurnedLayoutScenario, FollowsThePlayer) {
    frontEnd.set("Settings", "InvertPlayer2Screen", "1");
    frontEnd.tap(150, SDL_SCANCODE_F);
    frontEnd.at(290, [] {
        EXPECT_EQ(settings.orientation, 180);
        EXPECT_TRUE(requested("setvideo rotation to 180"));
        EXPECT_EQ(movieRect().left, 0);
    });
    frontEnd.tap(350, SDL_SCANCODE_UP);
    frontEnd.at(490, [] { EXPECT_EQ(movieRect().left, 320); });
    frontEnd.run(600);
}

TEST_F(TurnedLayoutScenario, AnEmptyFrameStopsTheMovieAndShowsText) {
    const auto hasText = [] {
        int dark = 0;
        for (int x = 0; x < 640; ++x) {
            for (int y = 200; y < 280; ++y) {
                dark += (FrontEnd::pixel(x, y) & 0xFF) < 0x80 ? 1 : 0;
            }
        }
        return dark > 100;
    };
    // Opens the options and changes "Display Missing Games".
    const auto change = [this](int start) {
        frontEnd.tap(start, SDL_SCANCODE_2);
        for (int line = 0; line < 6; ++line) {
            frontEnd.tap(start + 300 + 100 * line, SDL_SCANCODE_DOWN);
        }
        frontEnd.tap(start + 1000, SDL_SCANCODE_RIGHT);
        frontEnd.tap(start + 1200, SDL_SCANCODE_ESCAPE);
    };
    change(150);
    frontEnd.at(1900, [=] {
        EXPECT_EQ(visibleCount, 0);
        EXPECT_EQ(movieWindow, nullptr);
        EXPECT_TRUE(hasText());
    });
    change(2050);
    frontEnd.at(3800, [] {
        EXPECT_EQ(visibleCount, 20);
        EXPECT_NE(movieWindow, nullptr);
    });
    frontEnd.run(4000);
}

} // namespace
