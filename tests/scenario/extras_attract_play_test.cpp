// SPDX-License-Identifier: GPL-3.0-or-later
// Attract play over whole runs of the front end. Each picked game opens its movie.
#include "config/settings.h"
#include "platform/joystick.h"
#include "scenario/recorded_media.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <vector>

namespace {

// 50 games with movies; attract play after 10 s, a game every 3 s.
class AttractPlay : public testing::Test {
protected:
    AttractPlay() {
        frontEnd.writeGames(50);
        std::filesystem::create_directory("movies");
        for (int game = 1000; game < 1050; ++game) {
            frontEnd.folder().write("movies/g" + std::to_string(game).substr(1) + ".avi", "");
        }
        frontEnd.set("Settings", "Attract.dir", "movies");
        frontEnd.set("Extras", "IdleSeconds", "10");
        frontEnd.set("Extras", "IdleStep", "3");
        frontEnd.set("Sounds", "Select", "Select");
        mediaRequests.clear();
    }

    // The seconds at which a game was shown, without the one of the start.
    std::vector<int> shownAt() const {
        std::vector<int> seconds;
        for (const MediaRequest& request : mediaRequests) {
            if (request.what.starts_with("open movies") && request.at > start) {
                seconds.push_back(static_cast<int>((request.at - start) / 1000));
            }
        }
        return seconds;
    }

    FrontEnd frontEnd;
    std::int64_t start = virtualClockMilliseconds();
};

TEST_F(AttractPlay, ShowsGamesFromTheIdleTimeToTheFirstTouch) {
    frontEnd.set("Extras", "SaveOnChange", "1");
    frontEnd.tap(500, SDL_SCANCODE_DOWN);
    static std::string shown;
    frontEnd.at(18000, [&] { // after the picks at 10, 13 and 16 s
        EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "g001") << "picks are not saved";
        shown = FrontEnd::selectedName();
        pressKey(SDL_SCANCODE_DOWN);
    });
    frontEnd.at(19950, [&] {
        EXPECT_EQ(FrontEnd::selectedName(), shown) << "the touch only stops";
        EXPECT_EQ(frontEnd.get("System", "SelectedGame"), shown) << "the player stays on the game";
        releaseKey(SDL_SCANCODE_DOWN);
    });
    frontEnd.at(20500, [] { // the pick may be the first game
        pressKey(selectedIndex > 0 ? SDL_SCANCODE_UP : SDL_SCANCODE_DOWN);
    });
    frontEnd.at(20540, [] {
        releaseKey(SDL_SCANCODE_UP);
        releaseKey(SDL_SCANCODE_DOWN);
    });
    frontEnd.tap(26500, SDL_SCANCODE_2);
    frontEnd.tap(40500, SDL_SCANCODE_ESCAPE); // the menu ends, and the idle time begins at 41.1 s
    frontEnd.at(53000, [] { pushWindowEvent(SDL_WINDOWEVENT_FOCUS_LOST); });
    frontEnd.at(58000, [] { pushWindowEvent(SDL_WINDOWEVENT_FOCUS_GAINED); });
    frontEnd.at(64000, [] { virtualClockAdvance(20000); }); // asleep: one game, not seven
    frontEnd.tap(89500, SDL_SCANCODE_UP);
    frontEnd.run(90500);
    EXPECT_EQ(shownAt(), (std::vector<int>{0, 10, 13, 16, 20, 40, 51, 60, 63, 84, 87}));
    EXPECT_EQ(std::ranges::count(mediaRequests, "Select", &MediaRequest::what), 2) << "picks are silent";
}

TEST_F(AttractPlay, NoTouchThatStopsItHasAnotherEffect) {
    frontEnd.set("Extras", "IdleSeconds", "1");
    frontEnd.set("Extras", "FavouriteKey", "77");
    JOYINFO unplugged{};
    ASSERT_EQ(joyGetPos(0, &unplugged), JOYERR_UNPLUGGED); // initialises the joysticks like the front end
    static SDL_Joystick* pad =
        SDL_JoystickOpen(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 12, 1));
    std::int64_t time = 2500;
    for (const SDL_Scancode key :
         {SDL_SCANCODE_ESCAPE, SDL_SCANCODE_UP, SDL_SCANCODE_2, SDL_SCANCODE_W, SDL_SCANCODE_R,
          SDL_SCANCODE_Z, SDL_SCANCODE_LALT, SDL_SCANCODE_M, SDL_SCANCODE_UNKNOWN}) {
        static int shown = 0;
        frontEnd.at(time, [key] {
            shown = selectedIndex;
            key == SDL_SCANCODE_UNKNOWN ? void(SDL_JoystickSetVirtualButton(pad, 7, 1)) : pressKey(key);
        });
        frontEnd.at(time + 500, [key] {
            key == SDL_SCANCODE_UNKNOWN ? void(SDL_JoystickSetVirtualButton(pad, 7, 0)) : releaseKey(key);
            EXPECT_EQ(selectedIndex, shown) << key;
        });
        time += 2500;
    }
    frontEnd.tap(time - 1500, SDL_SCANCODE_ESCAPE);
    frontEnd.runToEnd();
    EXPECT_NEAR(static_cast<double>(frontEnd.elapsed()), static_cast<double>(time) - 1400, 100);
    EXPECT_EQ(settings.sortBy, 0);
    EXPECT_FALSE(frontEnd.folder().has("favourites.dat"));
}

TEST_F(AttractPlay, IsNotSavedByASignal) {
    frontEnd.at(18000, [] { std::raise(SIGTERM); });
    frontEnd.runToEnd();
    EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "g000");
}

TEST_F(AttractPlay, NeedsAGame) {
    frontEnd.set("RomOptions", "DisplayMissingRoms", "0");
    frontEnd.run(30500);
    EXPECT_LT(frontEnd.elapsed(), 31000) << "the Exit control acts";
}

} // namespace
