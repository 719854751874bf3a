#include "overlays/message_window.h"

#include "config/settings.h"
#include "platform/drawing.h"
#include "platform/screen.h"
#include "platform/window.h"
#include "render/primitives.h"
#include "state/shared_state.h"

#include <algorithm>

namespace {

constexpr LPCSTR messageClass = "MessageWndClass";

// Pixels between the text and each edge of the box, and between a box that is as long as the screen and the
// screen's ends.
constexpr std::int32_t textMargin = 15;
constexpr std::int32_t screenMargin = 15;

// All null while no message is up. The text is the caller's.
HWND messageWindow = nullptr;
const char* messageText = nullptr;
HDC messageWindowDC = nullptr;
HDC messageDrawDC = nullptr;
HBITMAP messageBitmap = nullptr;

// The bitmap shows messageText. A new text of the same size brings no size message of its own.
bool messageRendered = false;

void prepareText() {
    selectFont(messageDrawDC, settings.fontFace, settings.fontSize, settings.orientation, 0);
    SetTextColor(messageDrawDC, settings.fontColor);
    SetBkMode(messageDrawDC, TRANSPARENT);
}

void createContexts(HWND window) {
    messageWindowDC = GetDC(window);
    messageDrawDC = CreateCompatibleDC(messageWindowDC);
}

void releaseContexts(HWND window) {
    if (messageDrawDC) {
        DeleteDC(messageDrawDC);
    }
    if (messageWindowDC) {
        ReleaseDC(window, messageWindowDC);
    }
    if (messageBitmap) {
        DeleteObject(messageBitmap);
    }
    messageDrawDC = nullptr;
    messageWindowDC = nullptr;
    messageBitmap = nullptr;
}

void renderMessage(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    messageBitmap =
        CreateCompatibleBitmap(messageWindowDC, client.right - client.left, client.bottom - client.top);
    DeleteObject(SelectObject(messageDrawDC, messageBitmap));
    prepareText();
    fillRect(messageDrawDC, client, settings.backgroundColor);
    drawText(messageDrawDC, textOrigin(client, textMargin, textMargin), messageText);
    InvalidateRect(window, nullptr, FALSE);
    messageRendered = true;
}

void paintMessage(HWND window) {
    PAINTSTRUCT paint{};
    RECT client{};
    BeginPaint(window, &paint);
    GetClientRect(window, &client);
    if (messageDrawDC) {
        BitBlt(messageWindowDC, 0, 0, client.right, client.bottom, messageDrawDC, 0, 0, SRCCOPY);
    }
    EndPaint(window, &paint);
}

LRESULT messageWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        createContexts(window);
        return 0;
    case WM_DESTROY:
        releaseContexts(window);
        return 0;
    case WM_SIZE:
        renderMessage(window);
        return 0;
    case WM_PAINT:
        paintMessage(window);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

int createMessageWindow() {
    messageWindow = nullptr;
    WNDCLASSA windowClass{};
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = messageWindowProc;
    windowClass.hInstance = appInstance;
    windowClass.hIcon = LoadIconA(nullptr, IDI_APPLICATION);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    windowClass.lpszMenuName = "MessageMenu";
    windowClass.lpszClassName = messageClass;
    if (!RegisterClassA(&windowClass)) {
        return 0;
    }
    messageWindow = CreateWindowExA(0, messageClass, nullptr, WS_POPUP | WS_THICKFRAME, 100, 100, 400, 400,
                                    mainWindow, nullptr, appInstance, nullptr);
    return messageWindow ? 1 : 0;
}

// One axis of the box along its text: centred, with the ends of the screen kept free.
void placeAlong(std::int32_t screen, std::int32_t text, int& start, int& length) {
    length = std::min(text + 2 * textMargin, screen - 2 * screenMargin);
    start = std::max((screen - text - 2 * textMargin) / 2, screenMargin);
}

void placeAcross(std::int32_t screen, std::int32_t text, int& start, int& length) {
    length = text + 2 * textMargin;
    start = (screen - length) / 2;
}

void placeMessageWindow() {
    const std::int32_t screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const std::int32_t screenHeight = GetSystemMetrics(SM_CYSCREEN);
    const std::int32_t along = textWidth(messageDrawDC, messageText);
    const std::int32_t across = textHeight(messageDrawDC);
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    if (isQuarterTurn(settings.orientation)) {
        placeAcross(screenWidth, across, x, width);
        placeAlong(screenHeight, along, y, height);
    } else {
        placeAlong(screenWidth, along, x, width);
        placeAcross(screenHeight, across, y, height);
    }
    MoveWindow(messageWindow, x, y, width, height, FALSE);
}

} // namespace

void showMessage(const char* text) {
    messageText = text;
    messageRendered = false;
    if (messageWindow) {
        ShowWindow(messageWindow, SW_HIDE);
    } else if (createMessageWindow()) {
        prepareText();
    } else {
        MessageBoxA(mainWindow, "Failed to create message window!", "Error", MB_OK);
        return;
    }
    placeMessageWindow();
    if (!messageRendered) {
        renderMessage(messageWindow);
    }
    ShowWindow(messageWindow, SW_SHOW);
    UpdateWindow(messageWindow);
}

void hideMessage() {
    if (!messageWindow) {
        return;
    }
    DestroyWindow(messageWindow);
    UnregisterClassA(messageClass, appInstance);
    messageWindow = nullptr;
}
