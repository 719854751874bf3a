#include "scenario/recorded_media.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

namespace {

// Two games with ROMs, an ambience and all sounds, and an emulator that notes when it runs.
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

    // When the request was made, by its place from the first of that name on.
    static std::int64_t momentOf(const std::string& what) {
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

TEST_F(SoundsTest, EachMomentHasItsSound) {
    frontEnd.tap(150, SDL_SCANCODE_UP);   // refused
    frontEnd.tap(250, SDL_SCANCODE_DOWN); // moves
    frontEnd.tap(350, SDL_SCANCODE_X);    // refused
    frontEnd.tap(450, SDL_SCANCODE_R);    // a random pick
    frontEnd.tap(550, SDL_SCANCODE_F);    // the next order
    EXPECT_EQ(frontEnd.run(950), 0);
    EXPECT_EQ(requests(), (Words{"prepare", "Startup", "open track.mp3", "play repeat", "Error", "Select",
                                 "Error", "Select", "Select", "Shutdown waited for", "end"}));
    EXPECT_GE(frontEnd.elapsed(), 1000 + recordedSoundLength);
}

TEST_F(SoundsTest, TheAmbienceRestsAroundAGame) {
    for (const int exitCode : {0, 3}) {
        for (const char* whilePlaying : {"0", "1"}) {
            frontEnd.restart();
            mediaRequests.clear();
            setExitCode(exitCode);
            frontEnd.set("Settings", "AmbienceWhilePlaying", whilePlaying);
            frontEnd.tap(150, SDL_SCANCODE_1);
            EXPECT_EQ(frontEnd.run(9000), 0);
            const bool rests = *whilePlaying == '0';
            Words wanted = {"prepare", "Startup", "open track.mp3", "play repeat"};
            for (const auto& [word, expected] : {std::pair("pause", rests),
                                                 {"StartGame waited for", true},
                                                 {"give up", true},
                                                 {"Error", exitCode != 0},
                                                 {"resume", rests},
                                                 {"Shutdown waited for", true},
                                                 {"end", true}}) {
                if (expected) {
                    wanted.emplace_back(word);
                }
            }
            EXPECT_EQ(requests(), wanted) << exitCode << ' ' << whilePlaying;
            EXPECT_GE(momentOf("give up") - momentOf("StartGame waited for"), recordedSoundLength);
            if (rests) {
                EXPECT_EQ(momentOf("pause"), momentOf("StartGame waited for"));
                EXPECT_GE(momentOf("resume") - momentOf(exitCode != 0 ? "Error" : "give up"),
                          exitCode != 0 ? 4000 : 1000);
            }
        }
    }
}

TEST_F(SoundsTest, NothingIsAskedForWithoutFiles) {
    for (const char* sound : {"Startup", "Shutdown", "StartGame", "Select", "Error"}) {
        frontEnd.set("Sounds", sound, "");
    }
    frontEnd.set("Settings", "AmbienceFile", "missing.mp3");
    frontEnd.tap(150, SDL_SCANCODE_DOWN);
    frontEnd.tap(250, SDL_SCANCODE_UP);
    frontEnd.tap(350, SDL_SCANCODE_1);
    EXPECT_EQ(frontEnd.run(6000), 0);
    EXPECT_EQ(requests(), (Words{"give up", "end"}));
    std::filesystem::create_directory("movies"); // nothing in it so far, but movies are expected
    frontEnd.set("Settings", "Attract.dir", "movies");
    frontEnd.restart();
    mediaRequests.clear();
    EXPECT_EQ(frontEnd.run(150), 0);
    EXPECT_EQ(requests(), (Words{"prepare", "end"}));
}

} // namespace
