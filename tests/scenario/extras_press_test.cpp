// SPDX-License-Identifier: GPL-3.0-or-later
// When controls act with the extras RepeatDelay and InstantResponse, in the list, the menu and the game
// information: the times at which the picture changes.
#include "platform/joystick.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace {

enum class Loop { list, menu, information };

struct Event {
    std::int64_t at;
    SDL_Scancode key; // SDL_SCANCODE_UNKNOWN: the joystick's button 8, one game up
    bool down;
};

constexpr SDL_Scancode joystickUp = SDL_SCANCODE_UNKNOWN;

std::vector<Event> held(SDL_Scancode key, std::int64_t from, std::int64_t to) {
    return {{from, key, true}, {to, key, false}};
}

std::vector<Event> both(std::vector<Event> first, const std::vector<Event>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

struct Row {
    const char* what;
    int repeatDelay;
    int instantResponse;
    Loop loop;
    std::vector<Event> events;
    std::vector<std::int64_t> changes; // of the picture
    int moved = 0;                     // games in the list
    std::int64_t from = 400;
};

constexpr std::int64_t end = 1600;
constexpr int startIndex = 50;

std::uint64_t pictureSum() {
    std::uint64_t sum = 0;
    for (int y = 0; y < 480; ++y) {
        for (int x = y % 7; x < 640; x += 7) {
            sum = sum * 31 + FrontEnd::pixel(x, y);
        }
    }
    return sum;
}

class Presses : public ::testing::Test {
protected:
    Presses() {
        frontEnd.writeGames(100);
        std::ostringstream text;
        for (int line = 0; line < 90; ++line) {
            text << "line " << line << "\r\n\r\n";
        }
        frontEnd.folder().write("mameinfo.dat", "$info=g050\n$mame\n" + text.str() + "$end\n");
        frontEnd.set("System", "SelectedGame", "g050");
        frontEnd.set("Extras", "NextLetterKey", "78"); // one letter: never changes the picture
        JOYINFO unplugged{};
        joyGetPos(0, &unplugged); // initialises the joysticks like the front end
        pad = SDL_JoystickOpen(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 12, 1));
    }

    void schedule(const Event& event) {
        frontEnd.at(event.at, [this, event] {
            if (event.key == joystickUp) {
                SDL_JoystickSetVirtualButton(pad, 3, event.down ? 1 : 0);
            } else {
                pushKeyEvent(event.key, event.down);
            }
        });
    }

    // The times of all changes of the picture up to the end.
    void record(std::int64_t from) {
        changes.clear();
        for (std::int64_t time = from; time < end; time += 5) {
            frontEnd.at(time, [this, time, from] {
                const std::uint64_t sum = pictureSum();
                if (time != from && sum != lastSum) {
                    changes.push_back(time);
                }
                lastSum = sum;
            });
        }
    }

    void run(const Row& row) {
        frontEnd.restart();
        frontEnd.set("System", "SelectedGame", "g050");
        frontEnd.set("Extras", "RepeatDelay", std::to_string(row.repeatDelay));
        frontEnd.set("Extras", "InstantResponse", std::to_string(row.instantResponse));
        if (row.loop != Loop::list) {
            frontEnd.tap(150, row.loop == Loop::menu ? SDL_SCANCODE_2 : SDL_SCANCODE_LCTRL);
        }
        for (const Event& event : row.events) {
            schedule(event);
        }
        record(row.from);
        if (row.loop == Loop::list) {
            frontEnd.at(end, [&] { EXPECT_EQ(selectedIndex - startIndex, row.moved) << row.what; });
        } else {
            frontEnd.tap(end + 50, SDL_SCANCODE_ESCAPE);
        }
        EXPECT_EQ(frontEnd.run(end + 2100), 0);
        EXPECT_EQ(changes.size(), row.changes.size()) << row.what << seen();
        for (std::size_t index = 0; index < changes.size() && index < row.changes.size(); ++index) {
            EXPECT_GE(changes[index], row.changes[index]) << row.what << seen();
            EXPECT_LE(changes[index], row.changes[index] + 20) << row.what << seen();
        }
    }

    std::string seen() const {
        std::ostringstream text;
        text << ", changes at";
        for (const std::int64_t time : changes) {
            text << ' ' << time;
        }
        return text.str();
    }

    FrontEnd frontEnd;
    SDL_Joystick* pad = nullptr;
    std::vector<std::int64_t> changes;
    std::uint64_t lastSum = 0;
};

constexpr SDL_Scancode down = SDL_SCANCODE_DOWN;
constexpr SDL_Scancode downP2 = SDL_SCANCODE_F;
constexpr SDL_Scancode jump = SDL_SCANCODE_SPACE;
constexpr SDL_Scancode noChange = SDL_SCANCODE_N;

TEST_F(Presses, RepeatAfterTheDelay) {
    const std::vector<Event> twoPresses =
        both(held(down, 450, 630), held(down, 640, 1150)); // no poll between them
    const Row rows[] = {
        {"off", 0, 0, Loop::list, held(down, 450, 850), {500, 600, 700, 800}, 4},
        {"tap", 300, 0, Loop::list, held(down, 450, 600), {500}, 1},
        {"held", 300, 0, Loop::list, held(down, 450, 1050), {500, 800, 900, 1000}, 4},
        {"between two ticks", 250, 0, Loop::list, held(down, 450, 1050), {500, 800, 900, 1000}, 4},
        {"pressed again", 300, 0, Loop::list, twoPresses, {500, 700, 1000, 1100}, 4},
        {"joystick", 300, 0, Loop::list, held(joystickUp, 450, 950), {500, 800, 900}, -3},
        {"no move", 300, 0, Loop::list, held(jump, 450, 650), {500}, -50},
        {"two players",
         300,
         0,
         Loop::list,
         both(held(down, 450, 950), held(downP2, 650, 1150)),
         {500, 700, 800, 900, 1000, 1100},
         6},
        {"menu", 300, 0, Loop::menu, held(down, 450, 1050), {500, 800, 900, 1000}},
        {"choice", 300, 0, Loop::menu, held(SDL_SCANCODE_LEFT, 450, 950), {500, 800, 900}},
        {"information", 300, 0, Loop::information, held(down, 450, 1050), {500, 800, 900, 1000}},
        {"held when the menu opens", 300, 0, Loop::menu, held(down, 50, 750), {400, 500, 600, 700}, 0, 250},
    };
    for (const Row& row : rows) {
        run(row);
    }
}

TEST_F(Presses, AreServedAtOnce) {
    std::vector<Event> manyPresses = held(down, 430, 1390);
    for (std::int64_t time = 490; time < 1390; time += 60) {
        manyPresses = both(manyPresses, held(noChange, time, time + 20));
    }
    const Row rows[] = {
        {"tap", 0, 1, Loop::list, held(down, 430, 440), {430}, 1},
        {"two taps", 0, 1, Loop::list, both(held(down, 430, 440), held(down, 450, 460)), {430, 450}, 2},
        {"held", 0, 1, Loop::list, held(down, 430, 860), {430, 530, 630, 730, 830}, 5},
        {"held, and another",
         0,
         1,
         Loop::list,
         both(held(down, 430, 800), held(downP2, 560, 570)),
         {430, 530, 560, 660, 760},
         5},
        {"held, and many others",
         0,
         1,
         Loop::list,
         manyPresses,
         {430, 550, 670, 730, 850, 970, 1030, 1150, 1270, 1330},
         10},
        {"no control",
         0,
         1,
         Loop::list,
         both(held(down, 430, 700), held(SDL_SCANCODE_K, 480, 490)),
         {430, 530, 630},
         3},
        {"joystick",
         0,
         1,
         Loop::list,
         both(held(joystickUp, 430, 450), held(joystickUp, 470, 590)),
         {430, 470, 570},
         -3},
        {"with a delay", 300, 1, Loop::list, held(down, 430, 960), {430, 730, 830, 930}, 4},
        {"menu", 0, 1, Loop::menu, held(down, 430, 560), {430, 530}},
        {"information", 0, 1, Loop::information, held(down, 430, 560), {430, 530}},
    };
    for (const Row& row : rows) {
        run(row);
    }
}

// The loop then owes ticks, which follow each other at once; the delay is one of time, not of ticks.
TEST_F(Presses, BeginAgainAfterAGameOrAFlush) {
    frontEnd.addRom("g050");
    frontEnd.addRom("g051");
    frontEnd.set("Settings", "Mame.exe", frontEnd.folder().write("emulator", "#!/bin/sh\n"));
    std::filesystem::permissions("emulator", std::filesystem::perms::all);
    frontEnd.set("Extras", "RepeatDelay", "300");
    const struct {
        const char* what;
        SDL_Scancode command; // at 150
        std::vector<Event> events;
        std::int64_t resumed; // first tick of the list
        int moved;            // by then
    } rows[] = {
        {"held during the game", SDL_SCANCODE_1, held(down, 50, 2650), 2200, 2},
        {"pressed at its end", SDL_SCANCODE_1, held(down, 2100, 2650), 2200, 1},
        {"pressed again after the menu", SDL_SCANCODE_2,
         both(both(held(down, 250, 1150), held(SDL_SCANCODE_ESCAPE, 950, 960)), held(down, 1250, 2050)), 1500,
         1},
    };
    for (const auto& row : rows) {
        frontEnd.restart();
        frontEnd.set("System", "SelectedGame", "g050");
        frontEnd.tap(150, row.command);
        for (const Event& event : row.events) {
            schedule(event);
        }
        const auto expectMoved = [&](std::int64_t time, int moved) {
            frontEnd.at(time, [=] { EXPECT_EQ(selectedIndex - startIndex, moved) << row.what << time; });
        };
        expectMoved(row.resumed + 290, row.moved);
        expectMoved(row.resumed + 390, row.moved + 1);
        EXPECT_EQ(frontEnd.run(3500), 0);
    }
}

} // namespace
