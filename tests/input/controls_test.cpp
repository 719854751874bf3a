// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/controls.h"

#include "app/window_state.h"
#include "config/settings.h"
#include "platform/clock.h"
#include "platform/joystick.h"
#include "platform/keys.h"
#include "platform/screen.h"
#include "support/sdl_events.h"

#include <gtest/gtest.h>

namespace {

class ControlsTest : public ::testing::Test {
protected:
    void SetUp() override {
        GetSystemMetrics(SM_CXSCREEN); // starts the display
        appActive = 1;
        settings.useJoystick = 1;
    }

    static void tap(SDL_Scancode key) {
        pressKey(key);
        releaseKey(key);
        Sleep(10);
    }

    static SDL_Joystick* connectJoystick() {
        JOYINFO unplugged{};
        joyGetPos(0, &unplugged);
        return SDL_JoystickOpen(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 12, 0));
    }
};

TEST_F(ControlsTest, ATapCountsOnceAndOnlyWithTheFocus) {
    tap(SDL_SCANCODE_UP);
    EXPECT_EQ(keyPressed(VK_UP), 1);
    EXPECT_EQ(keyPressed(VK_UP), 0);
    appActive = 0;
    tap(SDL_SCANCODE_UP);
    EXPECT_EQ(keyPressed(VK_UP), 0);
    appActive = 1;
    EXPECT_EQ(keyPressed(VK_UP), 1) << "the press is kept while the focus is elsewhere";
    EXPECT_EQ(keyPressed(0), 0);
}

TEST_F(ControlsTest, AFlushForgetsPressesButNotHeldKeys) {
    tap(SDL_SCANCODE_DOWN);
    pressKey(SDL_SCANCODE_UP);
    Sleep(10);
    flushKeys();
    EXPECT_EQ(keyPressed(VK_DOWN), 0);
    EXPECT_EQ(keyPressed(VK_UP), 1);
}

TEST_F(ControlsTest, AButtonCountsWhenItIsTheOnlyOne) {
    SDL_Joystick* pad = connectJoystick();
    EXPECT_EQ(joyPressed(1), 0) << "initJoystick has not been called yet";
    initJoystick();
    for (int button = 0; button < 12; ++button) {
        SDL_JoystickSetVirtualButton(pad, button, 1);
        for (int code = 0; code <= 4096; ++code) {
            const bool isAxis = code >= 200 && code <= 203;
            EXPECT_EQ(joyPressed(code), !isAxis && button < 10 && code == 1 << button ? 1 : 0)
                << button << " " << code;
        }
        SDL_JoystickSetVirtualButton(pad, button, 0);
    }
    SDL_JoystickSetVirtualButton(pad, 0, 1);
    SDL_JoystickSetVirtualButton(pad, 1, 1);
    EXPECT_EQ(joyPressed(1) + joyPressed(2) + joyPressed(3), 0);
    settings.useJoystick = 0;
    SDL_JoystickSetVirtualButton(pad, 1, 0);
    EXPECT_EQ(joyPressed(1), 0);
}

TEST_F(ControlsTest, AnAxisCountsFromAFifthOfItsMaximum) {
    SDL_Joystick* pad = connectJoystick();
    initJoystick();
    const struct {
        int position; // 0 to 65535
        bool low;
        bool high;
    } rows[] = {{0, true, false},      {13107, true, false}, {13108, false, false},
                {52427, false, false}, {52428, false, true}, {65535, false, true}};
    for (const auto& row : rows) {
        SDL_JoystickSetVirtualAxis(pad, 0, static_cast<Sint16>(row.position - 32768));
        SDL_JoystickSetVirtualAxis(pad, 1, static_cast<Sint16>(32767 - row.position));
        EXPECT_EQ(joyPressed(201), row.low ? 1 : 0) << row.position;
        EXPECT_EQ(joyPressed(200), row.high ? 1 : 0) << row.position;
        SDL_JoystickSetVirtualAxis(pad, 1, static_cast<Sint16>(row.position - 32768));
        EXPECT_EQ(joyPressed(203), row.low ? 1 : 0) << row.position;
        EXPECT_EQ(joyPressed(202), row.high ? 1 : 0) << row.position;
    }
}

TEST_F(ControlsTest, ReportsADisconnectedJoystickOnlyAfterItWasDetected) {
    initJoystick();
    testing::internal::CaptureStdout();
    EXPECT_EQ(joyPressed(1), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    connectJoystick();
    initJoystick();
    SDL_JoystickDetachVirtual(0);
    testing::internal::CaptureStdout();
    EXPECT_EQ(joyPressed(1), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error reading joystick!\n");
}

} // namespace
