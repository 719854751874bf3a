#include "overlays/message_window.h"

#include "config/settings.h"
#include "overlays/popup_window.h"
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

void renderMessage(HWND window) {
    renewPopupBitmap(window, messageWindowDC, messageDrawDC, messageBitmap);
    RECT client{};
    GetClientRect(window, &client);
    prepareText();
    fillRect(messageDrawDC, client, settings.backgroundColor);
    drawText(messageDrawDC, textOrigin(client, textMargin, textMargin), messageText);
    InvalidateRect(window, nullptr, FALSE);
    messageRendered = true;
}

LRESULT messageWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        createPopupContexts(window, messageWindowDC, messageDrawDC);
        return 0;
    case WM_DESTROY:
        releasePopupContexts(window, messageWindowDC, messageDrawDC, messageBitmap);
        return 0;
    case WM_SIZE:
        renderMessage(window);
        return 0;
    case WM_PAINT:
        paintPopup(window, messageWindowDC, messageDrawDC);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

int createMessageWindow() {
    messageWindow = nullptr;
    if (!registerPopupClass(messageClass, "MessageMenu", messageWindowProc)) {
        return 0;
    }
    messageWindow = createPopup(messageClass, 100, 100, 400, 400);
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
