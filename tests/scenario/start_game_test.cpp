// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/settings.h"
#include "scenario/recorded_media.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

namespace {

// Three games and an emulator script that records its arguments.
class StartGameTest : public ::testing::Test {
protected:
    void SetUp() override {
        frontEnd.folder().write("listinfo.dat", FrontEnd::listEntry("alpha") +
                                                    FrontEnd::listEntry("beta", "\tcloneof alpha\n") +
                                                    FrontEnd::listEntry("gamma"));
        frontEnd.addRom("alpha");
        setEmulator("#!/bin/sh\necho \"$@\" >> " + frontEnd.folder().pathOf("calls") + "\n");
    }

    void setEmulator(const std::string& script) {
        const std::string path = frontEnd.folder().write("emulator", script);
        std::filesystem::permissions(path, std::filesystem::perms::all);
        frontEnd.set("Settings", "Mame.exe", path);
    }

    std::string calls() const { return frontEnd.folder().read("calls"); }

    FrontEnd frontEnd;
};

TEST_F(StartGameTest, RunsTheEmulatorWithTheOptionsOfTheGameOrItsParent) {
    frontEnd.set("Mameoptions", "alpha", "-one \"two words\" ; touch stolen");
    frontEnd.tap(150, SDL_SCANCODE_1);
    frontEnd.tap(6150, SDL_SCANCODE_DOWN);
    frontEnd.tap(7150, SDL_SCANCODE_A);
    EXPECT_EQ(frontEnd.run(14000), 0);
    EXPECT_EQ(calls(), "alpha -one two words ; touch stolen\nbeta -one two words ; touch stolen\n");
    EXPECT_FALSE(std::filesystem::exists("stolen"));
}

TEST_F(StartGameTest, OptionsOfTheGameReplaceThoseOfTheParent) {
    frontEnd.set("Mameoptions", "alpha", "-parent");
    frontEnd.set("Mameoptions", "beta", "-own");
    frontEnd.tap(150, SDL_SCANCODE_DOWN);
    frontEnd.tap(250, SDL_SCANCODE_1);
    frontEnd.run(6000);
    EXPECT_EQ(calls(), "beta -own\n");
}

TEST_F(StartGameTest, PausesAndDiscardsPressesMadeMeanwhile) {
    frontEnd.tap(150, SDL_SCANCODE_1);
    frontEnd.tap(700, SDL_SCANCODE_DOWN);
    frontEnd.at(90, [] { EXPECT_TRUE(SDL_IsScreenSaverEnabled()); });
    frontEnd.at(1150, [] {
        EXPECT_EQ(FrontEnd::pixel(320, 234), 0xFFFFFFU) << "the message is shown";
        EXPECT_FALSE(SDL_IsScreenSaverEnabled()) << "disabled during the game";
    });
    frontEnd.at(1800, [] { EXPECT_TRUE(SDL_IsScreenSaverEnabled()) << "enabled again"; });
    frontEnd.tap(1800, SDL_SCANCODE_DOWN);
    // From the tick at 200: a second before the synthetic key press, and a second after the game.
    frontEnd.tap(2350, SDL_SCANCODE_ESCAPE);
    EXPECT_EQ(frontEnd.runToEnd(), 0);
    EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "alpha");
    EXPECT_LT(frontEnd.elapsed(), 2600);
    EXPECT_EQ(calls(), "alpha\n");
}

TEST_F(StartGameTest, ShowsAFailureForThreeMoreSeconds) {
    setEmulator("#!/bin/sh\nexit 3\n");
    frontEnd.tap(150, SDL_SCANCODE_1);
    frontEnd.tap(4500, SDL_SCANCODE_DOWN); // while the message is still shown
    frontEnd.tap(5350, SDL_SCANCODE_ESCAPE);
    EXPECT_EQ(frontEnd.runToEnd(), 0);
    EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "alpha");
    EXPECT_LT(frontEnd.elapsed(), 5600);
}

TEST_F(StartGameTest, AFailedStartShowsOneMessageBoxOnly) {
    for (const char* emulator : {"./missing", ".", "./listinfo.dat"}) {
        frontEnd.restart();
        frontEnd.set("Settings", "Mame.exe", emulator);
        frontEnd.tap(150, SDL_SCANCODE_1);
        frontEnd.tap(1350, SDL_SCANCODE_ESCAPE);
        testing::internal::CaptureStderr();
        EXPECT_EQ(frontEnd.runToEnd(), 0);
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  std::string("Error: Failed to execute [") + emulator + " alpha]!\n");
        EXPECT_LT(frontEnd.elapsed(), 1600) << "no second message";
    }
}

TEST_F(StartGameTest, DoesNotStartAGameWithoutItsRom) {
    frontEnd.tap(150, SDL_SCANCODE_DOWN);
    frontEnd.tap(250, SDL_SCANCODE_DOWN);
    frontEnd.tap(350, SDL_SCANCODE_1);
    frontEnd.tap(2050, SDL_SCANCODE_ESCAPE);
    EXPECT_EQ(frontEnd.runToEnd(), 0);
    EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "gamma");
    EXPECT_LT(frontEnd.elapsed(), 2300) << "the message lasts 1500 ms";
    EXPECT_EQ(calls(), "");
}

TEST_F(StartGameTest, ASignalEndsTheGameAndThenTheFrontEnd) {
    setEmulator("#!/bin/sh\nkill -TERM $PPID\nsleep 20\n");
    frontEnd.tap(150, SDL_SCANCODE_1);
    EXPECT_EQ(frontEnd.runToEnd(), 0);
    EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "alpha");
    EXPECT_LT(frontEnd.elapsed(), 1500) << "no message delays the shutdown";
}

TEST_F(StartGameTest, WaitsForTheStartSoundUnlessAShutdownIsRequested) {
    frontEnd.set("Sounds", "StartGame", "start.wav");
    frontEnd.tap(150, SDL_SCANCODE_1);
    frontEnd.at(200 + recordedSoundLength - 10, [this] { EXPECT_EQ(calls(), ""); });
    frontEnd.tap(200 + recordedSoundLength + 2050, SDL_SCANCODE_ESCAPE);
    EXPECT_EQ(frontEnd.runToEnd(), 0);
    EXPECT_EQ(calls(), "alpha\n");

    frontEnd.restart();
    mediaRequests.clear();
    frontEnd.tap(150, SDL_SCANCODE_1);
    frontEnd.at(500, [] { std::raise(SIGTERM); });
    EXPECT_EQ(frontEnd.runToEnd(), 0);
    EXPECT_LT(frontEnd.elapsed(), 200 + recordedSoundLength + 200);
    EXPECT_EQ(std::ranges::count(mediaRequests, "give up", &MediaRequest::what), 0) << "a game was started";
}

} // namespace
