// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/popup_window.h"

#include "app/window_state.h"
#include "platform/clock.h"
#include "platform/device_contexts.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "platform/message_box.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/window.h"

ATOM registerPopupClass(LPCSTR className, LPCSTR menuName, WNDPROC procedure) {
    WNDCLASSA windowClass{};
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = appInstance;
    windowClass.hIcon = LoadIconA(nullptr, IDI_APPLICATION);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    windowClass.lpszMenuName = menuName;
    windowClass.lpszClassName = className;
    return RegisterClassA(&windowClass);
}

HWND createPopup(LPCSTR className, int x, int y, int width, int height) {
    return CreateWindowExA(0, className, nullptr, WS_POPUP | WS_THICKFRAME, x, y, width, height, mainWindow,
                           nullptr, appInstance, nullptr);
}

namespace {

void createContexts(PopupSurface& surface, HWND window) {
    surface.clientDC = GetDC(window);
    surface.drawDC = CreateCompatibleDC(surface.clientDC);
}

void releaseSurface(PopupSurface& surface, HWND window) {
    if (surface.drawDC) {
        DeleteDC(surface.drawDC);
    }
    if (surface.clientDC) {
        ReleaseDC(window, surface.clientDC);
    }
    if (surface.bitmap) {
        DeleteObject(surface.bitmap);
    }
    surface = {};
}

void paintSurface(const PopupSurface& surface, HWND window) {
    PAINTSTRUCT paint{};
    RECT client{};
    BeginPaint(window, &paint);
    GetClientRect(window, &client);
    if (surface.drawDC) {
        BitBlt(surface.clientDC, 0, 0, client.right, client.bottom, surface.drawDC, 0, 0, SRCCOPY);
    }
    EndPaint(window, &paint);
}

} // namespace

bool handleSurfaceMessage(PopupSurface& surface, HWND window, UINT message) {
    switch (message) {
    case WM_CREATE:
        createContexts(surface, window);
        return true;
    case WM_DESTROY:
        releaseSurface(surface, window);
        return true;
    case WM_PAINT:
        paintSurface(surface, window);
        return true;
    default:
        return false;
    }
}

bool handleFocusMessage(UINT message) {
    if (message != WM_SETFOCUS && message != WM_KILLFOCUS) {
        return false;
    }
    appActive = message == WM_SETFOCUS ? 1 : 0;
    return true;
}

void renewPopupBitmap(PopupSurface& surface, HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    surface.bitmap =
        CreateCompatibleBitmap(surface.clientDC, client.right - client.left, client.bottom - client.top);
    DeleteObject(SelectObject(surface.drawDC, surface.bitmap));
}

bool servePopupMessage(bool done) {
    MSG message{};
    if (!PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
        return true;
    }
    if (!GetMessageA(&message, nullptr, 0, 0) || done) {
        return false;
    }
    TranslateMessage(&message);
    DispatchMessageA(&message);
    return true;
}
