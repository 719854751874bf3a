// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/joystick.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

namespace {

constexpr int buttonDown = 2; // one game down; also a hundred games forward
constexpr int buttonExit = 7;

SDL_Joystick* pad = nullptr;

void attach() {
    pad = SDL_JoystickOpen(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 12, 1));
}

void detach() {
    SDL_JoystickDetachVirtual(0);
    SDL_JoystickClose(pad);
}

void press(const FrontEnd& frontEnd, std::int64_t at, int button) {
    frontEnd.at(at, [button] { SDL_JoystickSetVirtualButton(pad, button, 1); });
    frontEnd.at(at + 90, [button] { SDL_JoystickSetVirtualButton(pad, button, 0); });
}

// The joystick comes and goes, and is used within a second. At the end it goes as soon as it is detected.
TEST(JoystickHotplug, UsesAndForgetsTheJoystick) {
    for (const bool isOn : {false, true}) {
        FrontEnd frontEnd;
        frontEnd.writeGames(900);
        frontEnd.set("Extras", "JoystickHotplug", isOn ? "1" : "0");
        JOYINFO unplugged{};
        ASSERT_EQ(joyGetPos(0, &unplugged), JOYERR_UNPLUGGED); // initialises the joysticks like the front end
        for (const int round : {0, 1}) {
            const std::int64_t start = 3000 * round;
            frontEnd.at(start + 510, attach);
            press(frontEnd, start + 1450, buttonDown);
            frontEnd.at(start + 1590, [=] { EXPECT_EQ(selectedIndex, isOn ? 101 * (round + 1) : 0); });
            frontEnd.at(start + 2000, detach);
        }
        frontEnd.at(6020, attach);
        frontEnd.at(6550, detach);
        testing::internal::CaptureStdout();
        EXPECT_EQ(frontEnd.run(7500), 0);
        const std::string line = "Error reading joystick!\n";
        EXPECT_EQ(testing::internal::GetCapturedStdout(), isOn ? line + line + line : "");
    }
}

TEST(JoystickHotplug, WorksInThePopups) {
    for (const SDL_Scancode popup : {SDL_SCANCODE_2, SDL_SCANCODE_LCTRL}) {
        FrontEnd frontEnd;
        frontEnd.writeGames(5);
        frontEnd.folder().write("mameinfo.dat", "$info=g000\n$mame\nText\n\n$end\n");
        frontEnd.set("Extras", "JoystickHotplug", "1");
        JOYINFO unplugged{};
        ASSERT_EQ(joyGetPos(0, &unplugged), JOYERR_UNPLUGGED);
        frontEnd.tap(150, popup);
        frontEnd.at(510, attach);
        press(frontEnd, 1450, buttonExit);
        frontEnd.tap(3050, SDL_SCANCODE_DOWN);
        frontEnd.at(3190, [popup] { EXPECT_EQ(selectedIndex, 1) << popup << ": the popup is closed"; });
        frontEnd.at(3300, detach);
        EXPECT_EQ(frontEnd.run(3500), 0);
    }
}

} // namespace
