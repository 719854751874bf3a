// SPDX-License-Identifier: GPL-3.0-or-later
// SaveOnChange: when a run of the front end writes its ini file.
#include "support/front_end.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <vector>

namespace {

ino_t fileNumber() {
    struct stat status {};
    return stat("kestravox.ini", &status) == 0 ? status.st_ino : 0;
}

TEST(SaveOnChange, WritesOnceAfterTheLastChangeAndBeforeAGame) {
    for (const char* seconds : {"0", "5"}) {
        FrontEnd frontEnd;
        frontEnd.writeGames(20);
        frontEnd.addRom("g005");
        frontEnd.set("Extras", "SaveOnChange", seconds);
        frontEnd.set("Settings", "InvertPlayer2Screen", "1");
        const std::string emulator =
            frontEnd.folder().write("emulator", "#!/bin/sh\ncp kestravox.ini launched.ini\n");
        std::filesystem::permissions(emulator, std::filesystem::perms::all);
        frontEnd.set("Settings", "Mame.exe", emulator);

        // The times of the writes in tenths of a second.
        std::vector<std::int64_t> writes;
        ino_t last = fileNumber();
        for (std::int64_t time = 0; time < 39000; time += 100) {
            frontEnd.at(time + 60, [&, time] {
                if (last != fileNumber()) {
                    last = fileNumber();
                    writes.push_back(time / 100);
                }
            });
        }
        frontEnd.tap(150, SDL_SCANCODE_DOWN);
        frontEnd.tap(6050, SDL_SCANCODE_DOWN);
        frontEnd.tap(9050, SDL_SCANCODE_DOWN); // starts the five seconds anew
        frontEnd.tap(16050, SDL_SCANCODE_DOWN);
        frontEnd.tap(16250, SDL_SCANCODE_R); // back again, turned to player 2: nothing to save
        frontEnd.tap(21850, SDL_SCANCODE_DOWN);
        frontEnd.tap(22050, SDL_SCANCODE_2); // written while the menu is open
        frontEnd.tap(22350, SDL_SCANCODE_RIGHT);
        frontEnd.tap(29050, SDL_SCANCODE_ESCAPE); // closed at 29.6 s
        frontEnd.tap(36250, SDL_SCANCODE_DOWN);
        frontEnd.tap(36250, SDL_SCANCODE_1); // the game of the same tick
        frontEnd.run(39000);
        if (*seconds == '0') {
            EXPECT_TRUE(writes.empty()) << "only at the end";
            continue;
        }
        EXPECT_EQ(writes, (std::vector<std::int64_t>{52, 141, 269, 346, 363}));
        EXPECT_NE(frontEnd.folder().read("launched.ini").find("SelectedGame=g005"), std::string::npos);
        EXPECT_EQ(frontEnd.get("Settings", "MenuType"), "ImageBrowser");
    }
}

} // namespace
