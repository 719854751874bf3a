#include "overlays/popup_window.h"

#include "platform/clock.h"
#include "platform/drawing.h"
#include "state/shared_state.h"

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

void createPopupContexts(HWND window, HDC& clientDC, HDC& drawDC) {
    clientDC = GetDC(window);
    drawDC = CreateCompatibleDC(clientDC);
}

void releasePopupContexts(HWND window, HDC& clientDC, HDC& drawDC, HBITMAP& bitmap) {
    if (drawDC) {
        DeleteDC(drawDC);
    }
    if (clientDC) {
        ReleaseDC(window, clientDC);
    }
    if (bitmap) {
        DeleteObject(bitmap);
    }
    drawDC = nullptr;
    clientDC = nullptr;
    bitmap = nullptr;
}

void renewPopupBitmap(HWND window, HDC clientDC, HDC drawDC, HBITMAP& bitmap) {
    RECT client{};
    GetClientRect(window, &client);
    bitmap = CreateCompatibleBitmap(clientDC, client.right - client.left, client.bottom - client.top);
    DeleteObject(SelectObject(drawDC, bitmap));
}

bool paintPopup(HWND window, HDC clientDC, HDC drawDC) {
    PAINTSTRUCT paint{};
    RECT client{};
    BeginPaint(window, &paint);
    GetClientRect(window, &client);
    if (drawDC) {
        BitBlt(clientDC, 0, 0, client.right, client.bottom, drawDC, 0, 0, SRCCOPY);
    }
    EndPaint(window, &paint);
    return drawDC != nullptr;
}

std::int64_t popupTickPeriod() {
    constexpr std::int64_t ticksPerSecond = 10;
    LARGE_INTEGER frequency{};
    if (!QueryPerformanceFrequency(&frequency)) {
        MessageBoxA(nullptr, "Hardware doesn't support QueryPerformanceFrequency()!", "Error", MB_OK);
        return 0;
    }
    return frequency.QuadPart / ticksPerSecond;
}

std::int64_t popupClock() {
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    return now.QuadPart;
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
