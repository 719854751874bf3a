// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/main_window.h"

#include "app/window_state.h"
#include "catalogue/selection.h"
#include "config/settings_file.h"
#include "platform/device_contexts.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/screen.h"
#include "platform/window.h"

namespace {

constexpr LPCSTR mainClass = "MainWndClass";

// Returns the width of a 4:3 frame. Dividing first rounds the height down to a multiple of 3.
LONG fourThirdsWidth(LONG height) {
    return 4 * (height / 3);
}

void createContexts(HWND window) {
    windowDC = GetDC(window);
    backDC = CreateCompatibleDC(windowDC);
    scratchDC = CreateCompatibleDC(windowDC);
}

void renewBitmap(HDC dc, HBITMAP& bitmap, int width, int height) {
    bitmap = CreateCompatibleBitmap(windowDC, width, height);
    DeleteObject(SelectObject(dc, bitmap));
}

void renewFrameBuffer(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    const LONG frameWidth = fourThirdsWidth(client.bottom);
    const LONG width = frameWidth < client.right ? frameWidth : client.right;
    renewBitmap(backDC, backBitmap, width, client.bottom);
    renewBitmap(scratchDC, scratchBitmap, width, client.bottom);
}

void paintFrame(HWND window) {
    PAINTSTRUCT paint{};
    RECT client{};
    BeginPaint(window, &paint);
    GetClientRect(window, &client);
    if (backDC) {
        BitBlt(windowDC, frameLeft(), 0, client.right, client.bottom, backDC, 0, 0, SRCCOPY);
    }
    EndPaint(window, &paint);
}

// Saves on WM_ENDSESSION. The main loop, which saves again, may end only after a game or a sound, and the
// process may be killed before that. Before the first frame there is nothing to save.
void saveAtSessionEnd() {
    if (backBitmap) {
        saveSettings(playersGameName());
    }
}

void releaseSurface(HDC& dc, HBITMAP& bitmap) {
    if (bitmap) {
        DeleteObject(bitmap);
    }
    if (dc) {
        DeleteDC(dc);
    }
    bitmap = nullptr;
    dc = nullptr;
}

} // namespace

ATOM registerMainWindowClass() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = mainWindowProc;
    windowClass.hInstance = appInstance;
    windowClass.hIcon = LoadIconA(nullptr, IDI_APPLICATION);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    windowClass.lpszMenuName = "MainMenu";
    windowClass.lpszClassName = mainClass;
    return RegisterClassA(&windowClass);
}

HWND createMainWindow() {
    return CreateWindowExA(0, mainClass, "KESTRAVOX", WS_POPUP, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                           CW_USEDEFAULT, nullptr, nullptr, appInstance, nullptr);
}

LRESULT mainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        createContexts(window);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    case WM_SIZE:
        renewFrameBuffer(window);
        return 0;
    case WM_SETFOCUS:
        appActive = 1;
        return 0;
    case WM_KILLFOCUS:
        appActive = 0;
        return 0;
    case WM_PAINT:
        paintFrame(window);
        return 0;
    case WM_ENDSESSION:
        saveAtSessionEnd();
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

void releaseFrameBuffer() {
    releaseSurface(backDC, backBitmap);
    releaseSurface(scratchDC, scratchBitmap);
    ReleaseDC(mainWindow, windowDC);
    windowDC = nullptr;
}

void hideMouseCursor() {
    while (ShowCursor(FALSE) >= 0) {
    }
}

void showMouseCursor() {
    while (ShowCursor(TRUE) < 0) {
    }
}
