// SPDX-License-Identifier: GPL-3.0-or-later
// The favourites: keys over whole runs of the front end, and what is in favourites.dat afterwards.
#include "config/settings.h"
#include "support/front_end.h"

#include "catalogue/game_catalogue.h"
#include "scenario/recorded_media.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr SDL_Scancode markKey = SDL_SCANCODE_M;
constexpr SDL_Scancode onlyKey = SDL_SCANCODE_O;

// Six games, g000 to g005; a missing ROM hides none.
class Favourites : public testing::Test {
protected:
    Favourites() {
        frontEnd.writeGames(6);
        frontEnd.set("Extras", "FavouriteKey", "77");
        frontEnd.set("Extras", "FavouritesOnlyKey", "79");
        frontEnd.set("Sounds", "Select", "Select");
        frontEnd.set("Sounds", "Error", "Error");
    }

    // The digits of the games in the view, the selected one in brackets, and of all marked games.
    static std::string state() {
        std::string text;
        for (int index = 0; index < visibleCount; ++index) {
            const std::string digit = std::string(visibleGames[index]->name).substr(3);
            text += index == selectedIndex ? "[" + digit + "]" : digit;
        }
        text += " *";
        for (int game = 0; game < gameCount; ++game) {
            text += allGames[game]->isFavourite ? std::string(allGames[game]->name).substr(3) : "";
        }
        return text;
    }

    FrontEnd frontEnd;
};

TEST_F(Favourites, KeysChangeMarksAndView) {
    struct Step {
        SDL_Scancode key;
        const char* state; // afterwards
        const char* sound = "Select";
    };
    const struct {
        const char* what;
        std::string before; // of the file; no file when empty
        std::vector<Step> steps;
        std::string after;
    } rows[] = {
        {"the first mark creates the file",
         "",
         {{markKey, "[0]12345 *0"}, {SDL_SCANCODE_DOWN, "0[1]2345 *0"}, {markKey, "0[1]2345 *01"}},
         "g000\ng001\n"},
        {"a mark is removed wherever it is, all else is kept",
         "other\r\ng001\r\n\r\n g000 \r\n; note\r\ng000",
         {{markKey, "[0]12345 *1"}},
         "other\r\ng001\r\n\r\n; note\r\n"},
        {"a mark is added with the file's line ends, after an open last line",
         "\xEF\xBB\xBFg003\r\nother",
         {{markKey, "[0]12345 *03"}},
         "\xEF\xBB\xBFg003\r\nother\r\ng000\r\n"},
        {"the view keeps the selected game",
         "g004\ng001\n",
         {{SDL_SCANCODE_DOWN, "0[1]2345 *14"}, {onlyKey, "[1]4 *14"}, {onlyKey, "0[1]2345 *14"}},
         "g004\ng001\n"},
        {"the view selects the nearest mark, the later one of two",
         "g005\ng000\ng002\n",
         {{SDL_SCANCODE_DOWN, "0[1]2345 *025"},
          {onlyKey, "0[2]5 *025"},
          {SDL_SCANCODE_DOWN, "02[5] *025"},
          {onlyKey, "01234[5] *025"},
          {SDL_SCANCODE_UP, "0123[4]5 *025"},
          {SDL_SCANCODE_UP, "012[3]45 *025"},
          {onlyKey, "0[2]5 *025"}},
         "g005\ng000\ng002\n"},
        {"a removed mark leaves the view; without the last one all games return",
         "g001\ng003\ng004\n",
         {{onlyKey, "[1]34 *134"},
          {SDL_SCANCODE_DOWN, "1[3]4 *134"},
          {markKey, "1[4] *14"},
          {markKey, "[1] *1"},
          {markKey, "0[1]2345 *"}},
         ""},
        {"there is nothing to show without a mark",
         "unknown\n",
         {{onlyKey, "[0]12345 *", "Error"}},
         "unknown\n"},
    };
    for (const auto& row : rows) {
        std::filesystem::remove("favourites.dat");
        if (!row.before.empty()) {
            frontEnd.folder().write("favourites.dat", row.before);
        }
        frontEnd.set("System", "SelectedGame", "g000");
        frontEnd.restart();
        std::int64_t time = 50;
        for (const Step& step : row.steps) {
            frontEnd.tap(time, step.key); // a tap in each of two ticks in a row is two presses
            time += 100;
            frontEnd.at(time + 30, [=] {
                EXPECT_EQ(state(), step.state) << row.what;
                EXPECT_EQ(mediaRequests.back().what, step.sound) << row.what;
            });
        }
        frontEnd.run(time + 200);
        EXPECT_EQ(frontEnd.folder().read("favourites.dat"), row.after) << row.what;
    }
}

TEST_F(Favourites, AHeldControlActsOnce) {
    frontEnd.at(150, [] { pressKey(markKey); });
    frontEnd.at(1750, [] {
        EXPECT_EQ(state(), "[0]12345 *0");
        releaseKey(markKey);
    });
    frontEnd.run(1900);
    EXPECT_EQ(frontEnd.folder().read("favourites.dat"), "g000\n");
}

TEST_F(Favourites, AFileThatCannotBeReadOrWrittenKeepsItsMarks) {
    for (const bool readable : {false, true}) {
        frontEnd.folder().write("favourites.dat", "g004\n");
        frontEnd.restart();
        frontEnd.at(50, [=] {
            if (!readable) {
                std::filesystem::rename("favourites.dat", "kept");
                std::filesystem::create_directory("favourites.dat");
            }
            std::filesystem::create_directories("favourites.dat.new~/not empty");
        });
        frontEnd.tap(150, markKey);
        frontEnd.at(250, [] { EXPECT_EQ(state(), "[0]12345 *4"); });
        testing::internal::CaptureStderr();
        frontEnd.run(400);
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  readable ? "favourites.dat cannot be written, so no mark is changed.\n"
                           : "favourites.dat cannot be read, so no mark is changed.\n");
        EXPECT_EQ(std::filesystem::is_directory("favourites.dat"), !readable);
        EXPECT_EQ(frontEnd.folder().read(readable ? "favourites.dat" : "kept"), "g004\n");
        std::filesystem::remove_all("favourites.dat");
        std::filesystem::remove_all("favourites.dat.new~");
    }
}

TEST_F(Favourites, TheMenuHasALineWithEitherControl) {
    const struct {
        const char* favourite;
        const char* only;
        bool offered;
    } rows[] = {{"0", "0", false}, {"77", "0", true}, {"0", "79", true}};
    for (const auto& row : rows) {
        frontEnd.folder().write("favourites.dat", "g002\ng005\n");
        frontEnd.set("Extras", "FavouriteKey", row.favourite);
        frontEnd.set("Extras", "FavouritesOnlyKey", row.only);
        frontEnd.set("Settings", "Orientation", "Normal");
        frontEnd.set("System", "SelectedGame", "g005");
        frontEnd.restart();
        frontEnd.tap(150, SDL_SCANCODE_2);
        frontEnd.tap(350, SDL_SCANCODE_UP); // the last line
        frontEnd.tap(450, SDL_SCANCODE_RIGHT);
        frontEnd.tap(550, SDL_SCANCODE_ESCAPE);
        frontEnd.at(1400, [&] {
            EXPECT_EQ(state(), row.offered ? "2[5] *25" : "01234[5] *");
            EXPECT_EQ(settings.baseOrientation, row.offered ? 0 : 180);
        });
        frontEnd.run(1600);
        EXPECT_EQ(frontEnd.get("RomOptions", "DisplayFavoritesOnly"), "(none)");
    }
}

} // namespace
