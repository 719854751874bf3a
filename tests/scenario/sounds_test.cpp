// SPDX-License-Identifier: GPL-3.0-or-later
#include "scenario/recorded_media.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

namespace {

// Two games, the ROM of the first one, an ambience track, all sounds, and an emulator script.
class SoundsTest : public ::testing::Test {
protected:
    void SetUp() override {
        frontEnd.folder().write("listinfo.dat", FrontEnd::listEntry("alpha") + FrontEnd::listEntry("beta"));
        frontEnd.addRom("alpha");
        frontEnd.folder().write("track.mp3", "");
        frontEnd.set("Settings", "AmbienceFile", "track.mp3");
        for (const char* sound : {"Startup", "Shutdown", "StartGame", "Select", "Error"}) {
            frontEnd.set("Sounds", sound, sound);
        }
        setExitCode(0);
        mediaRequests.clear();
    }

    void setExitCode(int code) {
        const std::string path =
            frontEnd.folder().write("emulator", "#!/bin/sh\nexit " + std::to_string(code) + "\n");
        std::filesystem::permissions(path, std::filesystem::perms::all);
        frontEnd.set("Settings", "Mame.exe", path);
    }

    static std::vector<std::string> requests() {
        std::vector<std::string> words;
        for (const MediaRequest& request : mediaRequests) {
            words.push_back(request.what);
        }
        return words;
    }

    // Returns the time of the first request with this name, in milliseconds.
    static std::int64_t timeOf(const std::string& what) {
        for (const MediaRequest& request : mediaRequests) {
            if (request.what == what) {
                return request.at;
            }
        }
        ADD_FAILURE() << what;
        return 0;
    }

    FrontEnd frontEnd;
};

using Words = std::vector<std::string>;

TEST_F(SoundsTest, EachCommandPlaysItsSound) {
    frontEnd.tap(150, SDL_SCANCODE_UP);   // already at the end of the list
    frontEnd.tap(250, SDL_SCANCODE_DOWN); // moves the selection
    frontEnd.tap(350, SDL_SCANCODE_X);    // already at the end of the list
    frontEnd.tap(450, SDL_SCANCODE_R);    // moves up, for player 2
    frontEnd.tap(550, SDL_SCANCODE_F);    // moves down, for player 2
    EXPECT_EQ(frontEnd.run(950), 0);
    EXPECT_EQ(requests(), (Words{"Startup", "open track.mp3", "play repeat", "prepare", "Error", "Select",
                                 "Error", "Select", "Select", "Shutdown waited for", "end"}));
    EXPECT_GE(frontEnd.elapsed(), 1000 + recordedSoundLength);
}

TEST_F(SoundsTest, TheAmbiencePausesDuringAGame) {
    for (const int exitCode : {0, 3}) {
        for (const char* whilePlaying : {"0", "1"}) {
            frontEnd.restart();
            mediaRequests.clear();
            setExitCode(exitCode);
            frontEnd.set("Settings", "AmbienceWhilePlaying", whilePlaying);
            frontEnd.tap(150, SDL_SCANCODE_1);
            EXPECT_EQ(frontEnd.run(9000), 0);
            const bool pauses = *whilePlaying == '0';
            Words wanted = {"Startup", "open track.mp3", "play repeat", "prepare"};
            for (const auto& [word, expected] : {std::pair("pause", pauses),
                                                 {"StartGame waited for", true},
                                                 {"give up", true},
                                                 {"Error", exitCode != 0},
                                                 {"resume", pauses},
                                                 {"Shutdown waited for", true},
                                                 {"end", true}}) {
                if (expected) {
                    wanted.emplace_back(word);
                }
            }
            EXPECT_EQ(requests(), wanted) << exitCode << ' ' << whilePlaying;
            EXPECT_GE(timeOf("give up") - timeOf("StartGame waited for"), recordedSoundLength);
            if (pauses) {
                EXPECT_EQ(timeOf("pause"), timeOf("StartGame waited for"));
                EXPECT_GE(timeOf("resume") - timeOf(exitCode != 0 ? "Error" : "give up"),
                          exitCode != 0 ? 4000 : 1000);
            }
        }
    }
}

TEST_F(SoundsTest, RequestsNothingWithoutFiles) {
    for (const char* sound : {"Startup", "Shutdown", "StartGame", "Select", "Error"}) {
        frontEnd.set("Sounds", sound, "");
    }
    frontEnd.set("Settings", "AmbienceFile", "missing.mp3");
    frontEnd.tap(150, SDL_SCANCODE_DOWN);
    frontEnd.tap(250, SDL_SCANCODE_UP);
    frontEnd.tap(350, SDL_SCANCODE_1);
    EXPECT_EQ(frontEnd.run(6000), 0);
    EXPECT_EQ(requests(), (Words{"give up", "end"}));
    std::filesystem::create_directory("movies"); // empty, but movies may be added
    frontEnd.set("Settings", "Attract.dir", "movies");
    frontEnd.restart();
    mediaRequests.clear();
    EXPECT_EQ(frontEnd.run(150), 0);
    EXPECT_EQ(requests(), (Words{"prepare", "end"}));
}

} // namespace
