// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/settings.h"
#include "platform/joystick.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

// The keys that the menu saves, with their values in the file.
std::map<std::string, std::string> savedState(const FrontEnd& frontEnd) {
    std::map<std::string, std::string> state;
    for (const char* key : {"MenuType", "Fontface", "Fontsize", "StatusBarFontFace", "StatusBarFontSize",
                            "MenuFontSize", "ShowStatusBar", "PreviewPictures", "Orientation"}) {
        state[key] = frontEnd.get("Settings", key);
    }
    for (const char* key : {"DisplayMissingRoms", "DisplayVertical", "DisplayHorizontal", "DisplayClones",
                            "DisplayNeoGeo", "DisplayNonNeoGeo", "DisplayVector", "DisplayRaster",
                            "MinPlayers", "MaxPlayers", "MinButtons", "MaxButtons", "MinCoins", "MaxCoins"}) {
        state[key] = frontEnd.get("RomOptions", key);
    }
    return state;
}

// Opens the menu at 150 ms, steps every line once if `change` is set, closes the menu and ends the program.
std::map<std::string, std::string> visitMenu(FrontEnd& frontEnd, bool change) {
    frontEnd.restart();
    frontEnd.tap(150, SDL_SCANCODE_2);
    std::int64_t time = 350;
    for (int line = 0; change && line < 23; ++line) {
        frontEnd.tap(time, SDL_SCANCODE_RIGHT);
        frontEnd.tap(time + 100, SDL_SCANCODE_DOWN);
        time += 200;
    }
    frontEnd.tap(time, SDL_SCANCODE_ESCAPE);
    EXPECT_EQ(frontEnd.run(time + 1200), 0);
    return savedState(frontEnd);
}

TEST(Popups, EveryLineOfTheMenuIsSavedAndLoaded) {
    FrontEnd frontEnd;
    frontEnd.writeGames(5);
    const auto first = visitMenu(frontEnd, false);
    EXPECT_EQ(first.at("Fontface"), "Arial");
    EXPECT_EQ(first.at("Orientation"), "Normal");
    const auto changed = visitMenu(frontEnd, true);
    for (const auto& [key, value] : first) {
        EXPECT_NE(changed.at(key), value) << key;
    }
    EXPECT_EQ(changed.at("MenuType"), "ImageBrowser");
    EXPECT_EQ(changed.at("Orientation"), "Inverted");
    EXPECT_EQ(changed.at("MaxCoins"), "0") << "8 wraps to 0";
    EXPECT_EQ(visitMenu(frontEnd, false), changed);
}

TEST(Popups, TheMenuHidesGamesAndKeepsTheSelectionIfPossible) {
    FrontEnd frontEnd;
    frontEnd.writeGames(6);
    frontEnd.addRom("g002");
    frontEnd.addRom("g004");
    frontEnd.set("System", "SelectedGame", "g004");
    frontEnd.tap(150, SDL_SCANCODE_2);
    for (int line = 0; line < 6; ++line) {
        frontEnd.tap(350 + 100 * line, SDL_SCANCODE_DOWN);
    }
    frontEnd.tap(950, SDL_SCANCODE_RIGHT); // missing games: no
    frontEnd.tap(1050, SDL_SCANCODE_ESCAPE);
    frontEnd.at(1900, [] {
        EXPECT_EQ(visibleCount, 2);
        EXPECT_EQ(FrontEnd::selectedName(), "g004");
    });
    EXPECT_EQ(frontEnd.run(2200), 0);
}

TEST(Popups, AShutdownEndsPopupAndProgramAndSavesTheChoices) {
    for (const SDL_Scancode popup : {SDL_SCANCODE_2, SDL_SCANCODE_LCTRL}) {
        FrontEnd frontEnd;
        frontEnd.writeGames(3);
        frontEnd.folder().write("mameinfo.dat", "$info=g000\n$mame\nText\n\n$end\n");
        frontEnd.tap(150, popup);
        frontEnd.tap(350, SDL_SCANCODE_RIGHT);
        frontEnd.at(550, [] { pushEvent(SDL_QUIT); });
        EXPECT_EQ(frontEnd.runToEnd(), 0);
        EXPECT_LT(frontEnd.elapsed(), 1500);
        EXPECT_EQ(frontEnd.get("Settings", "MenuType"),
                  popup == SDL_SCANCODE_2 ? "ImageBrowser" : "ListView");
    }
}

TEST(Popups, ExitAndMenuInTheSameTickEndTheProgram) {
    FrontEnd frontEnd;
    frontEnd.writeGames(3);
    frontEnd.tap(150, SDL_SCANCODE_2);
    frontEnd.tap(150, SDL_SCANCODE_ESCAPE);
    EXPECT_EQ(frontEnd.runToEnd(), 0);
    EXPECT_LT(frontEnd.elapsed(), 1500);
}

// A key press made while another program has the focus takes effect when the focus returns.
TEST(Popups, NoWindowReadsKeysWithoutTheFocus) {
    for (const SDL_Scancode popup : {SDL_SCANCODE_UNKNOWN, SDL_SCANCODE_2, SDL_SCANCODE_LCTRL}) {
        FrontEnd frontEnd;
        frontEnd.writeGames(3);
        frontEnd.folder().write("mameinfo.dat", "$info=g000\n$mame\nText\n\n$end\n");
        frontEnd.tap(150, popup);
        frontEnd.at(350, [] { pushWindowEvent(SDL_WINDOWEVENT_FOCUS_LOST); });
        frontEnd.tap(450, SDL_SCANCODE_ESCAPE);
        frontEnd.at(2150, [] { pushWindowEvent(SDL_WINDOWEVENT_FOCUS_GAINED); });
        if (popup != SDL_SCANCODE_UNKNOWN) {
            frontEnd.tap(2350, SDL_SCANCODE_ESCAPE); // discarded in the pause after the popup
            frontEnd.tap(4050, SDL_SCANCODE_ESCAPE);
        }
        EXPECT_EQ(frontEnd.runToEnd(), 0);
        EXPECT_NEAR(static_cast<double>(frontEnd.elapsed()), popup ? 4150 : 2250, 100) << popup;
    }
}

// Presses made in the pause after a popup or a game are discarded; those made during a message take effect.
TEST(Popups, CommandsPauseAndDiscardPressesAfterPopupsAndGames) {
    const struct {
        const char* what;
        const char* game;
        SDL_Scancode command; // at 150
        bool closesPopup;     // at 350
        int allowMenu;
        std::int64_t pauseEnds;
        bool discards;
    } rows[] = {
        {"missing game", "g000", SDL_SCANCODE_1, false, 1, 200 + 1500, false},
        {"no information", "g000", SDL_SCANCODE_LCTRL, false, 1, 200 + 1500, false},
        {"information", "g001", SDL_SCANCODE_LCTRL, true, 1, 400 + 300, true},
        {"menu", "g001", SDL_SCANCODE_2, true, 1, 400 + 200 + 300, true},
        {"no menu", "g001", SDL_SCANCODE_2, false, 0, 200 + 300, true},
        {"game", "g001", SDL_SCANCODE_1, false, 1, 200 + 1000 + 1000, true},
        {"failed game", "g002", SDL_SCANCODE_1, false, 1, 200 + 1000 + 3000 + 1000, true},
    };
    for (const auto& row : rows) {
        FrontEnd frontEnd;
        frontEnd.writeGames(9);
        frontEnd.addRom("g001");
        frontEnd.addRom("g002");
        frontEnd.folder().write("mameinfo.dat", "$info=g001\n$mame\nText\n\n$end\n");
        frontEnd.set("Settings", "AllowMenu", std::to_string(row.allowMenu));
        frontEnd.set("Settings", "Mame.exe",
                     frontEnd.folder().write("emulator", "#!/bin/sh\n[ $1 != g002 ]\n"));
        std::filesystem::permissions("emulator", std::filesystem::perms::all);
        frontEnd.set("System", "SelectedGame", row.game);
        frontEnd.tap(150, row.command);
        if (row.closesPopup) {
            frontEnd.tap(350, SDL_SCANCODE_ESCAPE);
        }
        const int before = row.game[3] - '0';
        const auto expectSelected = [&](std::int64_t time, int game) {
            frontEnd.at(time, [=] { EXPECT_EQ(selectedIndex, game) << row.what << " at " << time; });
        };
        for (const int earlier : {150, 60}) { // one move, unless they are discarded
            frontEnd.tap(row.pauseEnds - earlier, SDL_SCANCODE_DOWN);
        }
        expectSelected(row.pauseEnds - 5, before);
        expectSelected(row.pauseEnds + 95, before + !row.discards);
        frontEnd.tap(row.pauseEnds + 20, SDL_SCANCODE_DOWN);
        EXPECT_EQ(frontEnd.run(row.pauseEnds + 300), 0);
        EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "g00" + std::to_string(before + 1 + !row.discards))
            << row.what;
    }
}

TEST(Popups, ShowsTheInformationOfTheGameOrItsVisibleParent) {
    FrontEnd frontEnd;
    frontEnd.folder().write("listinfo.dat", FrontEnd::listEntry("a") +
                                                FrontEnd::listEntry("b", "\tcloneof a\n") +
                                                FrontEnd::listEntry("c", "\tcloneof zzz\n"));
    frontEnd.folder().write("mameinfo.dat", "$info=a\r\n$mame\r\nText\r\n\r\nMore\r\n\r\n$end\r\n");
    const struct {
        const char* game;
        bool hasText;
    } rows[] = {{"a", true}, {"b", true}, {"c", false}};
    for (const auto& row : rows) {
        frontEnd.restart();
        frontEnd.set("System", "SelectedGame", row.game);
        frontEnd.set("Settings", "InvertPlayer2Screen", "1");
        frontEnd.tap(150, SDL_SCANCODE_LCTRL);
        frontEnd.tap(350, SDL_SCANCODE_F); // player 2 scrolls, so the text is rotated
        frontEnd.at(490, [row] { EXPECT_EQ(settings.orientation, row.hasText ? 180 : 0) << row.game; });
        frontEnd.tap(550, SDL_SCANCODE_Q);
        frontEnd.at(
            1400, [row] { EXPECT_EQ(FrontEnd::selectedName(), row.game) << "the selection has not moved"; });
        EXPECT_EQ(frontEnd.run(2200), 0);
    }
}

// Moves, shows the information, changes an option, starts a game and exits, all with one joystick.
TEST(Popups, AJoystickAloneReachesEverything) {
    FrontEnd frontEnd;
    frontEnd.writeGames(3);
    frontEnd.addRom("g001");
    const std::string script = "#!/bin/sh\necho \"$1\" > " + frontEnd.folder().pathOf("played") + "\n";
    frontEnd.set("Settings", "Mame.exe", frontEnd.folder().write("emulator", script));
    std::filesystem::permissions("emulator", std::filesystem::perms::all);
    frontEnd.folder().write("mameinfo.dat", "$info=g001\n$mame\nText\n\n$end\n");
    const std::pair<const char*, const char*> codes[] = {
        {"SelectUp", "203"}, {"SelectDown", "202"}, {"SelectPageUp", "201"}, {"SelectPageDown", "200"},
        {"StartGame", "1"},  {"ShowMenu", "256"},   {"GameInfo", "64"},      {"Exit", "512"}};
    for (const auto& [key, code] : codes) {
        frontEnd.set("JoystickMappings", key, code);
    }
    JOYINFO unplugged{};
    ASSERT_EQ(joyGetPos(0, &unplugged), JOYERR_UNPLUGGED); // initialises the joysticks like the front end
    static SDL_Joystick* pad = nullptr;
    pad = SDL_JoystickOpen(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 12, 1));
    const auto push = [&](std::int64_t time, int axis, Sint16 position) {
        frontEnd.at(time, [=] { SDL_JoystickSetVirtualAxis(pad, axis, position); });
        frontEnd.at(time + 90, [=] { SDL_JoystickSetVirtualAxis(pad, axis, 0); });
    };
    const auto press = [&](std::int64_t time, int number) {
        frontEnd.at(time, [=] { SDL_JoystickSetVirtualButton(pad, number, 1); });
        frontEnd.at(time + 90, [=] { SDL_JoystickSetVirtualButton(pad, number, 0); });
    };
    push(150, 1, 32767);
    press(350, 6);        // open the information
    press(750, 6);        // close it
    press(1850, 8);       // open the menu
    push(2050, 0, 32767); // change the first line
    press(2250, 9);       // close the menu; the program continues
    frontEnd.at(3200, [] { EXPECT_EQ(settings.menuType, menuTypeImageBrowser); });
    press(4050, 0); // start the game
    press(7050, 9);
    EXPECT_EQ(frontEnd.runToEnd(), 0);
    EXPECT_EQ(frontEnd.folder().read("played"), "g001\n");
    EXPECT_EQ(frontEnd.get("Settings", "MenuType"), "ImageBrowser");
    EXPECT_LT(frontEnd.elapsed(), 8000);
}

} // namespace
