// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/window.h"

#include "platform/display/display.h"
#include "support/recording_window.h"

#include <SDL.h>
#include <gtest/gtest.h>

// Replaces SDL's function, because the driver without a screen has only one monitor.
extern "C" int SDL_GetDisplayBounds(int monitor, SDL_Rect* bounds) {
    *bounds = monitor == 0 ? SDL_Rect{640, 100, 1280, 1024} : SDL_Rect{0, 0, 640, 480};
    return 0;
}

namespace {

using Messages = std::vector<std::string>;

class WindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        displaySetSize(640, 480);
        registerRecordingClass();
    }

    static COLORREF screenPixel(int x, int y) {
        const DisplayPixels pixels = displayPixels();
        return pixels.pixels[y * pixels.stride + x];
    }

    // Shows a window that fills itself with one colour at each paint.
    static HWND showFilled(int x, int y, int width, int height, COLORREF color, HWND owner = nullptr,
                           DWORD style = WS_POPUP) {
        messageHooks[WM_PAINT] = [](HWND window, WPARAM, LPARAM) {
            PAINTSTRUCT paint{};
            const HDC dc = BeginPaint(window, &paint);
            const HBRUSH brush = CreateSolidBrush(colors[window]);
            FillRect(dc, &paint.rcPaint, brush);
            DeleteObject(brush);
            EndPaint(window, &paint);
        };
        const HWND window = makeRecordingWindow(x, y, width, height, owner, style);
        colors[window] = color;
        ShowWindow(window, SW_SHOW);
        UpdateWindow(window);
        return window;
    }

    static inline std::map<HWND, COLORREF> colors;
};

TEST_F(WindowTest, OpensAtTheOriginOfThePrimaryMonitor) {
    makeRecordingWindow(0, 0, 10, 10);
    int x = 0;
    int y = 0;
    SDL_GetWindowPosition(SDL_GetWindowFromID(1), &x, &y);
    EXPECT_EQ(std::pair(x, y), std::pair(640, 100));
}

TEST_F(WindowTest, SendsTheLifecycleMessagesInOrder) {
    const HWND window = makeRecordingWindow(10, 10, 100, 50, nullptr, WS_POPUP | WS_THICKFRAME);
    EXPECT_EQ(takeMessages(), (Messages{"NCCREATE", "CREATE"}));

    EXPECT_FALSE(ShowWindow(window, SW_SHOW));
    EXPECT_EQ(takeMessages(), (Messages{"SIZE 94x44", "SETFOCUS"}))
        << "the frame is not part of the client area";

    MoveWindow(window, 20, 20, 100, 50, FALSE);
    EXPECT_EQ(takeMessages(), Messages{}) << "a move without a new size sends no WM_SIZE";
    MoveWindow(window, 20, 20, 60, 40, FALSE);
    EXPECT_EQ(takeMessages(), Messages{"SIZE 54x34"});

    UpdateWindow(window);
    EXPECT_EQ(takeMessages(), (Messages{"PAINT", "ERASE"}));
    UpdateWindow(window);
    EXPECT_EQ(takeMessages(), Messages{}) << "a valid window is not painted";

    EXPECT_TRUE(DestroyWindow(window));
    EXPECT_EQ(takeMessages(), (Messages{"KILLFOCUS", "DESTROY"}));
    EXPECT_FALSE(DestroyWindow(window));
}

TEST_F(WindowTest, AWindowCanCancelItsCreation) {
    const auto create = [](const char* name) {
        return CreateWindowExA(0, name, "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    };
    for (const UINT message : {WM_NCCREATE, WM_CREATE}) {
        WNDCLASSA windowClass{};
        static UINT refused = 0;
        refused = message;
        windowClass.lpszClassName = "Refusing";
        windowClass.lpfnWndProc = [](HWND, UINT which, WPARAM, LPARAM) -> LRESULT {
            return which == WM_NCCREATE ? refused != which : -(refused == which);
        };
        ASSERT_TRUE(RegisterClassA(&windowClass));
        EXPECT_EQ(RegisterClassA(&windowClass), 0) << "the name is taken";
        EXPECT_EQ(create("Refusing"), nullptr);
        EXPECT_TRUE(UnregisterClassA("Refusing", nullptr)) << "no window of the class is left";
        EXPECT_FALSE(UnregisterClassA("Refusing", nullptr));
    }
    EXPECT_EQ(create("Unknown"), nullptr);
}

TEST_F(WindowTest, PassesTheFocusToAPopupAndBackToItsOwner) {
    const HWND owner = makeRecordingWindow(0, 0, 640, 480);
    windowNames[owner] = "owner";
    ShowWindow(owner, SW_SHOW);
    const HWND popup = makeRecordingWindow(0, 0, 40, 40, owner);
    windowNames[popup] = "popup";
    takeMessages();

    ShowWindow(popup, SW_SHOW);
    EXPECT_EQ(takeMessages(), (Messages{"popup:SIZE 40x40", "owner:KILLFOCUS", "popup:SETFOCUS"}));
    ShowWindow(popup, SW_HIDE);
    EXPECT_EQ(takeMessages(), (Messages{"popup:KILLFOCUS", "owner:SETFOCUS"}));
    ShowWindow(popup, SW_SHOW);
    takeMessages();
    DestroyWindow(popup);
    EXPECT_EQ(takeMessages(), (Messages{"popup:KILLFOCUS", "owner:SETFOCUS", "popup:DESTROY"}));

    const HWND second = makeRecordingWindow(0, 0, 40, 40, owner);
    windowNames[second] = "second";
    takeMessages();
    DestroyWindow(owner);
    EXPECT_EQ(takeMessages(), (Messages{"owner:KILLFOCUS", "second:DESTROY", "owner:DESTROY"}))
        << "owned windows are destroyed first";

    const HWND hidden = makeRecordingWindow(0, 0, 640, 480);
    const HWND last = makeRecordingWindow(0, 0, 40, 40, hidden);
    ShowWindow(last, SW_SHOW);
    takeMessages();
    DestroyWindow(last);
    EXPECT_EQ(takeMessages(), (Messages{"KILLFOCUS", "DESTROY"})) << "a hidden owner gets no focus";
}

TEST_F(WindowTest, ComposesWindowsInZOrderWithFrames) {
    const HWND main = showFilled(0, 0, 640, 480, 0x0000FF);
    const HWND popup = showFilled(100, 100, 50, 40, 0x00FF00, main, WS_POPUP | WS_THICKFRAME);
    EXPECT_EQ(screenPixel(99, 99), 0xFF0000U) << "a COLORREF holds red in its low byte";
    EXPECT_NE(screenPixel(100, 100), 0xFF0000U);
    EXPECT_NE(screenPixel(100, 100), 0x00FF00U) << "the frame";
    EXPECT_EQ(screenPixel(103, 103), 0x00FF00U);
    EXPECT_EQ(screenPixel(146, 136), 0x00FF00U);
    EXPECT_EQ(screenPixel(150, 140), 0xFF0000U);

    ShowWindow(main, SW_SHOW);
    UpdateWindow(main);
    EXPECT_EQ(screenPixel(110, 110), 0x00FF00U) << "a popup stays above its owner";

    MoveWindow(popup, 600, 460, 80, 80, TRUE);
    UpdateWindow(popup);
    EXPECT_EQ(screenPixel(563, 403), 0x00FF00U) << "moved fully onto the screen";
    EXPECT_EQ(screenPixel(636, 476), 0x00FF00U);
    EXPECT_EQ(screenPixel(110, 110), 0xFF0000U);
    DestroyWindow(popup);
    MSG message{};
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);
    EXPECT_EQ(screenPixel(639, 479), 0xFF0000U) << "the windows below are not painted again";
}

TEST_F(WindowTest, KeepsAFramedWindowOnTheScreen) {
    const HWND window = makeRecordingWindow(-50, 400, 900, 200, nullptr, WS_POPUP | WS_THICKFRAME);
    RECT outer{};
    const auto expectOuter = [&](LONG left, LONG top, LONG right, LONG bottom) {
        GetWindowRect(window, &outer);
        EXPECT_EQ(std::tuple(outer.left, outer.top, outer.right, outer.bottom),
                  std::tuple(left, top, right, bottom));
    };
    expectOuter(0, 280, 640, 480);
    MoveWindow(window, 4, 2, 638, 476, FALSE);
    expectOuter(2, 2, 640, 478);
    takeMessages();
    MoveWindow(window, 0, 2, 1000, 476, FALSE);
    EXPECT_EQ(takeMessages(), Messages{"SIZE 634x470"});
    MoveWindow(window, 0, 2, 1200, 476, FALSE);
    EXPECT_EQ(takeMessages(), Messages{}) << "already limited to the screen";
    EXPECT_FALSE(GetWindowRect(nullptr, &outer));
}

TEST_F(WindowTest, KeepsThePreviousPictureUntilANewWindowIsPainted) {
    const HWND main = showFilled(0, 0, 640, 480, 0x0000FF);
    const HWND popup = makeRecordingWindow(0, 0, 640, 480, main);
    colors[popup] = 0x00FF00;
    ShowWindow(popup, SW_SHOW);
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(screenPixel(5, 5), 0xFF0000U) << "no black frame between two pictures";
    UpdateWindow(popup);
    EXPECT_EQ(screenPixel(5, 5), 0x00FF00U);
}

TEST_F(WindowTest, SurvivesStaleHandlesAndExtremeSizes) {
    const HWND window = makeRecordingWindow(0, 0, 40, 40);
    const HDC dc = GetDC(window);
    MoveWindow(window, 0, 0, -5, 0, TRUE);
    RECT client{1, 1, 1, 1};
    EXPECT_TRUE(GetClientRect(window, &client));
    EXPECT_EQ(client.right, 0);
    const RECT rect{0, 0, 10, 10};
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    MoveWindow(window, INT32_MAX, INT32_MAX, INT32_MAX, 2, TRUE);
    ShowWindow(window, SW_SHOW);
    UpdateWindow(window);
    DestroyWindow(window);
    EXPECT_FALSE(GetClientRect(window, &client));
    EXPECT_FALSE(MoveWindow(window, 0, 0, 1, 1, TRUE));
    EXPECT_FALSE(InvalidateRect(window, nullptr, FALSE));
    EXPECT_FALSE(ShowWindow(window, SW_SHOW));
    EXPECT_EQ(GetDC(window), nullptr);
    EXPECT_EQ(ReleaseDC(window, dc), 0);
    EXPECT_EQ(FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))), 0);
    EXPECT_EQ(DefWindowProcA(window, WM_PAINT, 0, 0), 0);
}

} // namespace
