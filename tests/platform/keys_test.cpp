#include "platform/keys.h"

#include "platform/clock.h"
#include "platform/display.h"
#include "platform/key_map.h"
#include "platform/screen.h"
#include "support/sdl_events.h"

#include <gtest/gtest.h>

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

TEST_F(KeysTest, TheSignBitIsTheKeyAndBitZeroThePressSinceTheLastRead) {
    EXPECT_EQ(stateOf('Z'), 0);
    pressKey(SDL_SCANCODE_Z);
    EXPECT_EQ(stateOf('Z'), static_cast<SHORT>(down | pressed));
    EXPECT_EQ(stateOf('Z'), down) << "reading forgets the press";
    pushKeyEvent(SDL_SCANCODE_Z, true, 1);
    EXPECT_EQ(stateOf('Z'), down) << "a repeat is no press";
    releaseKey(SDL_SCANCODE_Z);
    EXPECT_EQ(stateOf('Z'), 0);
    pressKey(SDL_SCANCODE_Z);
    releaseKey(SDL_SCANCODE_Z);
    EXPECT_EQ(stateOf('X'), 0);
    EXPECT_EQ(stateOf('Z'), pressed) << "a tap between two reads is not lost";
    EXPECT_EQ(stateOf('Z'), 0);
}

TEST_F(KeysTest, ShiftControlAndAltStandForEitherOfTheirKeys) {
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
        EXPECT_EQ(stateOf(key.code), down) << "the other one is still down";
        releaseKey(key.right);
        EXPECT_EQ(stateOf(key.code), 0);
    }
}

TEST_F(KeysTest, KnowsTheKeysOfACabinet) {
    const struct {
        SDL_Scancode place;
        int code;
    } keys[] = {{SDL_SCANCODE_UP, VK_UP},
                {SDL_SCANCODE_DOWN, VK_DOWN},
                {SDL_SCANCODE_LEFT, VK_LEFT},
                {SDL_SCANCODE_RIGHT, VK_RIGHT},
                {SDL_SCANCODE_ESCAPE, VK_ESCAPE},
                {SDL_SCANCODE_SPACE, VK_SPACE},
                {SDL_SCANCODE_1, '1'},
                {SDL_SCANCODE_0, '0'},
                {SDL_SCANCODE_A, 'A'},
                {SDL_SCANCODE_KP_0, 96},
                {SDL_SCANCODE_KP_9, 105},
                {SDL_SCANCODE_F1, 112},
                {SDL_SCANCODE_F12, 123},
                {SDL_SCANCODE_RETURN, 13},
                {SDL_SCANCODE_TAB, 9}};
    for (const auto& key : keys) {
        pressKey(key.place);
        EXPECT_EQ(stateOf(key.code), static_cast<SHORT>(down | pressed)) << key.code;
        releaseKey(key.place);
        EXPECT_EQ(stateOf(key.code), 0) << key.code;
    }
    SDL_Keysym letter{SDL_SCANCODE_Q, SDLK_a, 0, 0};
    EXPECT_EQ(virtualKeyOf(letter), 'A') << "letters go by what the layout prints on the key";
    EXPECT_NE(keySymbolOf('Z'), 0U);
    EXPECT_EQ(keySymbolOf(255), 0U);
}

TEST_F(KeysTest, CodesOutsideTheKeyboardNeverReadAsPressed) {
    for (const int code : {0, -1, 255, 256, 1 << 20}) {
        EXPECT_EQ(GetAsyncKeyState(code), 0);
    }
    keybd_event(0, 0, 0, 0);
    keybd_event('Z', 0, KEYEVENTF_KEYUP, 0);
    EXPECT_EQ(stateOf('Z'), 0) << "this display has no synthesised keys";
}

} // namespace
