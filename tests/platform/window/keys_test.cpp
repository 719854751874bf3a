// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/keys.h"

#include "platform/clock.h"
#include "platform/display/display.h"
#include "platform/display/key_map.h"
#include "platform/screen.h"
#include "support/sdl_events.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>

namespace {

constexpr SHORT down = -0x8000;
constexpr SHORT pressed = 1;

class KeysTest : public ::testing::Test {
protected:
    void SetUp() override { GetSystemMetrics(SM_CXSCREEN); } // starts the display

    static SHORT stateOf(int code) {
        Sleep(10);
        return GetAsyncKeyState(code);
    }
};

TEST_F(KeysTest, SignBitIsTheKeyAndBitZeroThePressSinceTheLastRead) {
    EXPECT_EQ(stateOf('Z'), 0);
    pressKey(SDL_SCANCODE_Z);
    EXPECT_EQ(stateOf('Z'), static_cast<SHORT>(down | pressed));
    EXPECT_EQ(stateOf('Z'), down) << "reading clears the press";
    pushKeyEvent(SDL_SCANCODE_Z, true, 1);
    EXPECT_EQ(stateOf('Z'), down) << "a repeat is not a press";
    releaseKey(SDL_SCANCODE_Z);
    EXPECT_EQ(stateOf('Z'), 0);
    pressKey(SDL_SCANCODE_Z);
    releaseKey(SDL_SCANCODE_Z);
    EXPECT_EQ(stateOf('X'), 0);
    EXPECT_EQ(stateOf('Z'), pressed) << "a tap between two reads is not lost";
    EXPECT_EQ(stateOf('Z'), 0);
}

TEST_F(KeysTest, ShiftControlAndAltCoverBothKeys) {
    const struct {
        int code;
        SDL_Scancode left;
        SDL_Scancode right;
    } keys[] = {{VK_SHIFT, SDL_SCANCODE_LSHIFT, SDL_SCANCODE_RSHIFT},
                {VK_CONTROL, SDL_SCANCODE_LCTRL, SDL_SCANCODE_RCTRL},
                {VK_MENU, SDL_SCANCODE_LALT, SDL_SCANCODE_RALT}};
    for (const auto& key : keys) {
        pressKey(key.left);
        pressKey(key.right);
        EXPECT_EQ(stateOf(key.code), static_cast<SHORT>(down | pressed)) << key.code;
        releaseKey(key.left);
        EXPECT_EQ(stateOf(key.code), down) << "the other key is still down";
        releaseKey(key.right);
        EXPECT_EQ(stateOf(key.code), 0);
    }
}

// Users write these numbers into the ini file.
TEST_F(KeysTest, KeysHaveTheirPublishedCodes) {
    const std::pair<const char*, int> keys[] = {{"Return", 13},      {"Keypad Enter", 13}, {"Pause", 19},
                                                {"PageUp", 33},      {"Delete", 46},       {"0", 48},
                                                {"Z", 90},           {"Keypad 0", 96},     {"Keypad 9", 105},
                                                {"Keypad /", 111},   {"F1", 112},          {"F13", 124},
                                                {"Left Shift", 160}, {"Right Alt", 165},   {";", 186},
                                                {"`", 192},          {"[", 219},           {"'", 222}};
    for (const auto& [name, code] : keys) {
        const SDL_Scancode place = SDL_GetScancodeFromName(name);
        pressKey(place);
        EXPECT_EQ(stateOf(code), static_cast<SHORT>(down | pressed)) << name;
        releaseKey(place);
        EXPECT_EQ(stateOf(code), 0) << name;
    }
    SDL_Keysym letter{SDL_SCANCODE_Q, SDLK_a, 0, 0};
    EXPECT_EQ(virtualKeyOf(letter), 'A') << "letters follow the keyboard layout";
}

TEST_F(KeysTest, NoTwoKeysShareACodeAndEachCanBeSynthesised) {
    std::map<int, SDL_Scancode> keyOfCode;
    for (int number = 0; number < SDL_NUM_SCANCODES; ++number) {
        const auto place = static_cast<SDL_Scancode>(number);
        const int code = virtualKeyOf({place, SDL_GetKeyFromScancode(place), 0, 0});
        if (code != 0 && place != SDL_SCANCODE_KP_ENTER) {
            EXPECT_TRUE(keyOfCode.emplace(code, place).second) << code;
            EXPECT_NE(keySymbolOf(code), 0U) << code;
        }
    }
    EXPECT_EQ(keySymbolOf(255), 0U);
}

TEST_F(KeysTest, CodesOutsideTheKeyboardNeverReadAsPressed) {
    for (const int code : {0, -1, 255, 256, 1 << 20}) {
        EXPECT_EQ(GetAsyncKeyState(code), 0);
    }
    keybd_event(0, 0, 0, 0);
    keybd_event('Z', 0, KEYEVENTF_KEYUP, 0);
    EXPECT_EQ(stateOf('Z'), 0) << "this display cannot synthesise keys";
}

} // namespace
