// SPDX-License-Identifier: GPL-3.0-or-later
// Movies whose pictures show their own number as a bit pattern, and the decoding of that number from the
// screen. Used by the tests of movies.
#pragma once

#include "avi_writer.h"
#include "platform/media.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/test_access.h"
#include "platform/window.h"
#include "sounds.h"

#include <chrono>
#include <functional>
#include <string>
#include <thread>

constexpr int numberBits = 6;
constexpr int numberedWidth = 160; // ten columns of 16 pixels: a white one, the bits, the others grey
constexpr int numberedHeight = 48;

inline std::string numberedMovie(int pictures, int framesPerSecond, double pitch = 0) {
    AviWriter writer({numberedWidth, numberedHeight, framesPerSecond, pitch > 0 ? soundRate : 0});
    const double seconds = 1.0 / framesPerSecond;
    for (int number = 0; number < pictures; ++number) {
        std::vector<std::uint32_t> pixels;
        for (int index = 0; index < numberedWidth * numberedHeight; ++index) {
            const int column = index % numberedWidth / 16;
            const bool white = column == 0 || (column <= numberBits && (number >> (column - 1) & 1) != 0);
            pixels.push_back(white ? 0xFFFFFF : column > numberBits ? 0x808080 : 0x202020);
        }
        writer.addPicture(pixels);
        if (pitch > 0) {
            writer.addSound(play({{0, seconds, pitch, 0, 0.8, 0}}, seconds));
        }
    }
    return writer.content();
}

// Creates a window of the class "Frame" that covers a screen of 640 by 480 pixels.
inline HWND openFrame() {
    setScreenSize(640, 480);
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.lpszClassName = "Frame";
    RegisterClassA(&windowClass);
    const HWND window =
        CreateWindowExA(0, "Frame", nullptr, WS_POPUP, 0, 0, 640, 480, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(window, SW_SHOW);
    UpdateWindow(window);
    return window;
}

// Returns the number of the picture whose top left corner is at this position; -1 when there is none.
inline int pictureNumberAt(int x, int y) {
    const ScreenPixels screen = screenPixels();
    const auto isWhite = [&](int column) {
        return (screen.pixels[(y + numberedHeight / 2) * screen.stride + x + column * 16 + 8] & 0xFF) > 0xA0;
    };
    int number = 0;
    for (int bit = 0; bit < numberBits; ++bit) {
        number |= isWhite(bit + 1) ? 1 << bit : 0;
    }
    return isWhite(0) ? number : -1;
}

// Updates the display in real time until the condition holds or the time is over. Returns whether it holds.
inline bool keepAliveUntil(const std::function<bool()>& condition, int milliseconds = 10000) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        keepScreenAlive();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

// Loads the playback library.
inline void waitForPlayer() {
    mediaPrepare();
    keepAliveUntil(mediaReady);
}
