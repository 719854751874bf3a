// SPDX-License-Identifier: GPL-3.0-or-later
// Fixture for the tests of the popups: a main window, default settings, and scheduled key presses in virtual
// time while a popup runs.
#pragma once

#include "app/window_state.h"
#include "config/settings.h"
#include "config/settings_file.h"
#include "platform/messages.h"
#include "platform/test_access.h"
#include "platform/virtual_clock.h"
#include "platform/window.h"
#include "support/sdl_events.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

class PopupTest : public ::testing::Test {
protected:
    PopupTest() {
        setScreenSize(640, 480);
        iniPath = "missing.ini";
        loadSettings();
        settings.baseOrientation = 0;
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = mainProc;
        windowClass.lpszClassName = "Main";
        RegisterClassA(&windowClass);
        mainWindow =
            CreateWindowExA(0, "Main", "", WS_POPUP, 0, 0, 640, 480, nullptr, nullptr, nullptr, nullptr);
        ShowWindow(mainWindow, SW_SHOW);
    }
    ~PopupTest() override {
        DestroyWindow(mainWindow);
        UnregisterClassA("Main", nullptr);
        for (MSG message{}; PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);) {
            GetMessageA(&message, nullptr, 0, 0); // the WM_QUIT of the main window
        }
        freeSettings();
    }

    static void at(std::int64_t milliseconds, std::function<void()> action) {
        virtualClockAt(virtualClockMilliseconds() + milliseconds, std::move(action));
    }

    static void tap(std::int64_t milliseconds, SDL_Scancode key) {
        at(milliseconds, [key] { pressKey(key); });
        at(milliseconds + 10, [key] { releaseKey(key); });
    }

private:
    static LRESULT mainProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_DESTROY) {
            PostQuitMessage(0);
        }
        if (message == WM_SETFOCUS || message == WM_KILLFOCUS) {
            appActive = message == WM_SETFOCUS ? 1 : 0;
        }
        return DefWindowProcA(window, message, wParam, lParam);
    }

    TemporaryFolder folder_;
};
