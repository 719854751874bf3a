// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/joystick.h"

#include "platform/clock.h"
#include "platform/messages.h"
#include "platform/window.h"
#include "support/recording_window.h"

#include <SDL.h>
#include <gtest/gtest.h>

namespace {

constexpr Sint16 axisLow = -32768;
constexpr Sint16 axisHigh = 32767;

JOYINFO readJoystick() {
    JOYINFO info{};
    EXPECT_EQ(joyGetPos(0, &info), JOYERR_NOERROR);
    return info;
}

// A virtual pad, plugged in during a test.
class JoystickTest : public ::testing::Test {
protected:
    void SetUp() override {
        SDL_SetHint(SDL_HINT_JOYSTICK_HIDAPI, "0");
        SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
        ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_JOYSTICK), 0);
        ASSERT_EQ(SDL_NumJoysticks(), 0) << "this test needs a machine without a joystick";
    }

    void plugIn() {
        index = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 3, 12, 1);
        ASSERT_GE(index, 0);
        JOYINFO info{};
        joyGetPos(0, &info);
        pad = SDL_JoystickFromInstanceID(SDL_JoystickGetDeviceInstanceID(index));
        ASSERT_NE(pad, nullptr);
        setAxes(0, 0);
    }

    void setAxes(Sint16 x, Sint16 y) {
        SDL_JoystickSetVirtualAxis(pad, 0, x);
        SDL_JoystickSetVirtualAxis(pad, 1, y);
    }

    int index = -1;
    SDL_Joystick* pad = nullptr;
};

TEST_F(JoystickTest, ReadsAxesButtonsAndHat) {
    plugIn();
    setAxes(axisLow, axisHigh);
    EXPECT_EQ(readJoystick().wXpos, 0U);
    EXPECT_EQ(readJoystick().wYpos, 65535U);
    SDL_JoystickSetVirtualButton(pad, 0, 1);
    SDL_JoystickSetVirtualButton(pad, 9, 1);
    EXPECT_EQ(readJoystick().wButtons, 1U + 512U);

    const struct {
        Uint8 hat;
        UINT x;
        UINT y;
    } hats[] = {{SDL_HAT_LEFT, 0, 32768},        {SDL_HAT_RIGHT, 65535, 32768},
                {SDL_HAT_UP, 32768, 0},          {SDL_HAT_DOWN, 32768, 65535},
                {SDL_HAT_LEFTUP, 0, 0},          {SDL_HAT_RIGHTDOWN, 65535, 65535},
                {SDL_HAT_CENTERED, 32768, 32768}};
    setAxes(0, 0);
    for (const auto& hat : hats) {
        SDL_JoystickSetVirtualHat(pad, 0, hat.hat);
        EXPECT_EQ(readJoystick().wXpos, hat.x) << int{hat.hat};
        EXPECT_EQ(readJoystick().wYpos, hat.y) << int{hat.hat};
    }
}

TEST_F(JoystickTest, ReportsPresenceLimitsAndErrors) {
    JOYINFOEX probe{};
    probe.dwSize = sizeof(probe);
    JOYCAPSA capabilities{};
    EXPECT_EQ(joyGetPosEx(0, &probe), JOYERR_UNPLUGGED);
    EXPECT_EQ(joyGetDevCapsA(0, &capabilities, sizeof(capabilities)), JOYERR_UNPLUGGED);
    plugIn();
    EXPECT_EQ(joyGetPosEx(0, &probe), JOYERR_NOERROR);
    EXPECT_EQ(joyGetDevCapsA(0, &capabilities, sizeof(capabilities)), JOYERR_NOERROR);
    EXPECT_EQ(capabilities.wXmin, 0U);
    EXPECT_EQ(capabilities.wXmax, 65535U);
    EXPECT_EQ(capabilities.wYmax, 65535U);
    EXPECT_EQ(capabilities.wNumButtons, 12U);

    JOYINFO info{};
    probe.dwSize = 51;
    EXPECT_EQ(joyGetPosEx(0, &probe), JOYERR_PARMS);
    EXPECT_EQ(joyGetPos(1, &info), JOYERR_PARMS);
    EXPECT_EQ(joyGetPos(0, nullptr), JOYERR_PARMS);
    EXPECT_EQ(joyGetDevCapsA(0, &capabilities, 400), JOYERR_PARMS);
}

// A loop that waits for a message has to wake up.
TEST_F(JoystickTest, EachRelevantMovementPostsOneMessage) {
    registerRecordingClass();
    ShowWindow(makeRecordingWindow(0, 0, 100, 100), SW_SHOW);
    plugIn();
    const auto expectMessages = [](const std::vector<std::string>& expected) {
        takeMessages();
        Sleep(10);
        for (MSG message{}; PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);) {
            GetMessageA(&message, nullptr, 0, 0);
            DispatchMessageA(&message);
        }
        EXPECT_EQ(takeMessages(), expected);
    };
    expectMessages({"PAINT", "ERASE"});
    SDL_JoystickSetVirtualButton(pad, 2, 1);
    expectMessages({"JOYSTICK"});
    SDL_JoystickSetVirtualButton(pad, 2, 0);
    expectMessages({"JOYSTICK"});
    setAxes(9000, -9000);
    expectMessages({});
    setAxes(axisHigh, 0);
    expectMessages({"JOYSTICK"});
    SDL_JoystickSetVirtualHat(pad, 0, SDL_HAT_UP);
    expectMessages({"JOYSTICK"});
}

TEST_F(JoystickTest, DetectsUnpluggingAndPluggingIn) {
    plugIn();
    SDL_JoystickDetachVirtual(index);
    JOYINFO info{};
    EXPECT_EQ(joyGetPos(0, &info), JOYERR_UNPLUGGED);
    plugIn();
    SDL_JoystickSetVirtualButton(pad, 2, 1);
    EXPECT_EQ(readJoystick().wButtons, 4U);
}

} // namespace
