// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/settings.h"
#include "platform/joystick.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace {

TEST(Commands, MovesByOnePageOrHundredWithinTheList) {
    FrontEnd frontEnd;
    frontEnd.writeGames(350);
    const struct {
        SDL_Scancode key;
        int expected;
    } steps[] = {
        {SDL_SCANCODE_UP, 0},      {SDL_SCANCODE_LEFT, 0}, {SDL_SCANCODE_SPACE, 0}, {SDL_SCANCODE_DOWN, 1},
        {SDL_SCANCODE_DOWN, 2},    {SDL_SCANCODE_UP, 1},   {SDL_SCANCODE_X, 101},   {SDL_SCANCODE_X, 201},
        {SDL_SCANCODE_SPACE, 101}, {SDL_SCANCODE_X, 201},  {SDL_SCANCODE_X, 301},   {SDL_SCANCODE_X, 349},
        {SDL_SCANCODE_DOWN, 349},  {SDL_SCANCODE_X, 349},  {SDL_SCANCODE_R, 348},   {SDL_SCANCODE_F, 349},
        {SDL_SCANCODE_RIGHT, 349},
    };
    std::int64_t time = 150;
    for (const auto& step : steps) {
        frontEnd.tap(time, step.key);
        frontEnd.at(time + 90, [step] { EXPECT_EQ(selectedIndex, step.expected); });
        time += 200;
    }
    EXPECT_EQ(frontEnd.run(time), 0);
    EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "g349");
}

TEST(Commands, PagesByTwiceTheHeightLessTheStatusBar) {
    FrontEnd frontEnd;
    frontEnd.writeGames(350);
    frontEnd.set("Settings", "Fontsize", "15"); // an em of 20 pixels
    static int afterDown = 0;
    frontEnd.tap(150, SDL_SCANCODE_RIGHT);
    frontEnd.at(240, [] { afterDown = selectedIndex; });
    frontEnd.tap(250, SDL_SCANCODE_LEFT);
    frontEnd.at(340, [] { EXPECT_EQ(selectedIndex, 0); });
    frontEnd.tap(350, SDL_SCANCODE_G); // of player 2
    frontEnd.at(440, [] { EXPECT_EQ(selectedIndex, afterDown); });
    frontEnd.tap(450, SDL_SCANCODE_D);
    frontEnd.at(540, [] { EXPECT_EQ(selectedIndex, 0); });
    frontEnd.run(650);
    EXPECT_GE(afterDown, (2 * 480 - 30) / 25);
    EXPECT_LE(afterDown, (2 * 480 - 10) / 20);
}

TEST(Commands, AHeldKeyActsOnEveryTickWithoutAPause) {
    FrontEnd frontEnd;
    frontEnd.writeGames(100);
    frontEnd.at(150, [] { pressKey(SDL_SCANCODE_DOWN); });
    frontEnd.at(1050, [] { releaseKey(SDL_SCANCODE_DOWN); });
    frontEnd.at(2000, [] { EXPECT_EQ(selectedIndex, 9); });
    EXPECT_EQ(frontEnd.run(2100), 0);
}

TEST(Commands, UpAndDownTogetherCancelOut) {
    FrontEnd frontEnd;
    frontEnd.writeGames(10);
    frontEnd.tap(110, SDL_SCANCODE_DOWN);
    frontEnd.tap(250, SDL_SCANCODE_DOWN);
    frontEnd.tap(250, SDL_SCANCODE_UP);
    frontEnd.at(400, [] { EXPECT_EQ(selectedIndex, 1); });
    frontEnd.run(500);
}

TEST(Commands, CyclesSortOrderAndPictures) {
    FrontEnd frontEnd;
    frontEnd.writeGames(20);
    frontEnd.set("RomOptions", "SortBy", "Year");
    frontEnd.set("Settings", "PreviewPictures", "Marquees");
    static std::vector<int> sorts;
    static std::vector<int> pictures;
    for (int round = 0; round < 5; ++round) {
        frontEnd.tap(150 + 200 * round, SDL_SCANCODE_Z);
        frontEnd.tap(150 + 200 * round, SDL_SCANCODE_LSHIFT);
        frontEnd.at(240 + 200 * round, [] {
            sorts.push_back(settings.sortBy);
            pictures.push_back(settings.previewPictures);
            EXPECT_GE(selectedIndex, 0);
            EXPECT_LT(selectedIndex, 20);
        });
    }
    frontEnd.run(1300);
    EXPECT_EQ(sorts, (std::vector<int>{2, 0, 1, 2, 0}));
    EXPECT_EQ(pictures, (std::vector<int>{0, 1, 2, 3, 0}));
    EXPECT_EQ(frontEnd.get("RomOptions", "SortBy"), "Year") << "the sort order is not saved";
    EXPECT_EQ(frontEnd.get("Settings", "PreviewPictures"), "Cabinets");
}

TEST(Commands, PicksGamesAtRandomFromTheWholeList) {
    FrontEnd frontEnd;
    frontEnd.writeGames(300);
    static std::set<int> seen;
    for (int round = 0; round < 40; ++round) {
        frontEnd.tap(150 + 100 * round, SDL_SCANCODE_LALT);
        frontEnd.at(240 + 100 * round, [] { seen.insert(selectedIndex); });
    }
    frontEnd.run(4300);
    EXPECT_GT(seen.size(), 20U);
    EXPECT_GE(*seen.begin(), 0);
    EXPECT_LT(*seen.rbegin(), 300);
    EXPECT_GT(*seen.rbegin() - *seen.begin(), 100);
}

TEST(Commands, RotateTheScreenToThePlayerWhoUsedThem) {
    const struct {
        const char* configured;
        int base;
        int flipped;
    } rows[] = {{"Normal", 0, 180}, {"ROR", 90, -90}, {"ROL", -90, 90}, {"Inverted", 180, 0}};
    for (const auto& row : rows) {
        FrontEnd frontEnd;
        frontEnd.writeGames(20);
        frontEnd.set("Settings", "InvertPlayer2Screen", "1");
        frontEnd.set("Settings", "Orientation", row.configured);
        const auto expectRotation = [&](std::int64_t time, int rotation) {
            frontEnd.at(time, [=] { EXPECT_EQ(settings.orientation, rotation) << row.configured << time; });
        };
        expectRotation(90, row.base);
        frontEnd.tap(150, SDL_SCANCODE_F);
        expectRotation(290, row.flipped);
        frontEnd.tap(350, SDL_SCANCODE_X); // fixed commands belong to neither player
        expectRotation(490, row.flipped);
        frontEnd.tap(550, SDL_SCANCODE_R);
        frontEnd.tap(550, SDL_SCANCODE_UP);
        expectRotation(690, row.base);
        frontEnd.tap(750, SDL_SCANCODE_Q); // so do the other keys of player 2
        expectRotation(890, row.flipped);
        frontEnd.tap(950, SDL_SCANCODE_W);
        EXPECT_EQ(frontEnd.runToEnd(), 0);
        EXPECT_EQ(frontEnd.get("Settings", "Orientation"), row.configured)
            << "the rotation for player 2 is not saved";
    }
}

TEST(Commands, AnImpossibleMoveOfPlayerTwoRotatesWithoutRedrawing) {
    FrontEnd frontEnd;
    frontEnd.writeGames(3);
    frontEnd.set("Settings", "InvertPlayer2Screen", "1");
    frontEnd.set("Settings", "StatusBarBackColor", "0x0000FF");
    frontEnd.tap(150, SDL_SCANCODE_R);
    frontEnd.at(290, [] {
        EXPECT_EQ(settings.orientation, 180);
        EXPECT_EQ(FrontEnd::pixel(320, 478), 0xFF0000U) << "the status bar is still at the bottom";
        EXPECT_EQ(FrontEnd::pixel(320, 1), 0xFFFFFFU);
    });
    frontEnd.tap(350, SDL_SCANCODE_F);
    frontEnd.at(490, [] { EXPECT_EQ(FrontEnd::pixel(320, 1), 0xFF0000U) << "the next frame is rotated"; });
    frontEnd.run(600);
}

TEST(Commands, WorkWithoutAVisibleGame) {
    FrontEnd frontEnd;
    frontEnd.writeGames(5);
    frontEnd.set("RomOptions", "DisplayMissingRoms", "0");
    frontEnd.set("System", "SelectedGame", "g003");
    std::int64_t time = 150;
    for (const SDL_Scancode key : {SDL_SCANCODE_UP, SDL_SCANCODE_DOWN, SDL_SCANCODE_LEFT, SDL_SCANCODE_RIGHT,
                                   SDL_SCANCODE_SPACE, SDL_SCANCODE_X, SDL_SCANCODE_LALT, SDL_SCANCODE_Z,
                                   SDL_SCANCODE_LSHIFT, SDL_SCANCODE_1, SDL_SCANCODE_LCTRL, SDL_SCANCODE_2}) {
        frontEnd.tap(time, key);
        time += 200;
    }
    frontEnd.tap(time, SDL_SCANCODE_ESCAPE); // closes the menu
    time += 800;
    frontEnd.at(time, [] {
        EXPECT_EQ(visibleCount, 0);
        EXPECT_EQ(selectedIndex, 0);
        EXPECT_EQ(FrontEnd::pixel(320, 478), 0xFFFFFFU) << "no status bar without a game";
    });
    EXPECT_EQ(frontEnd.run(time + 100), 0);
    EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "g003") << "the saved selection is kept";
    EXPECT_EQ(frontEnd.get("RomOptions", "MaxCoins"), "8");
}

TEST(Commands, OneJoystickButtonTriggersTwoCommands) {
    FrontEnd frontEnd;
    frontEnd.writeGames(300);
    JOYINFO unplugged{};
    ASSERT_EQ(joyGetPos(0, &unplugged), JOYERR_UNPLUGGED); // initialises the joysticks like the front end
    const int index = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 12, 1);
    static SDL_Joystick* pad = nullptr;
    pad = SDL_JoystickOpen(index);
    const auto button = [&](std::int64_t time, int number, int expected) {
        frontEnd.at(time, [number] { SDL_JoystickSetVirtualButton(pad, number, 1); });
        frontEnd.at(time + 90, [number, expected] {
            SDL_JoystickSetVirtualButton(pad, number, 0);
            EXPECT_EQ(selectedIndex, expected);
        });
    };
    button(150, 2, 101); // one forward and a hundred forward
    frontEnd.set("JoystickMappings", "SelectUp", "203");
    frontEnd.at(350, [] { SDL_JoystickSetVirtualHat(pad, 0, SDL_HAT_UP); });
    frontEnd.at(440, [] {
        SDL_JoystickSetVirtualHat(pad, 0, SDL_HAT_CENTERED);
        EXPECT_EQ(selectedIndex, 100) << "the D-pad is read as an axis";
    });
    frontEnd.at(750, [] { SDL_JoystickSetVirtualButton(pad, 7, 1); }); // exit
    EXPECT_EQ(frontEnd.runToEnd(), 0);
    EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "g100");
}

} // namespace
