// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/message_window.h"

#include "app/error_box.h"
#include "app/window_state.h"
#include "config/settings.h"
#include "overlays/popup_window.h"
#include "platform/device_contexts.h"
#include "platform/message_box.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/screen.h"
#include "platform/window.h"
#include "render/primitives.h"

#include <algorithm>

namespace {

constexpr LPCSTR messageClass = "MessageWndClass";

// In pixels: between the text and each edge of the box, and between a long box and the edges of the screen.
constexpr std::int32_t boxMargin = 15;
constexpr std::int32_t screenMargin = 15;

// All null while no message is shown. The text is borrowed.
HWND messageWindow = nullptr;
const char* messageText = nullptr;
PopupSurface messageSurface;

// Whether the bitmap shows messageText. A new text of the same size causes no WM_SIZE.
bool messageRendered = false;

void prepareText() {
    selectFont(messageSurface.drawDC, settings.fontFace, settings.fontSize, settings.orientation, 0);
    SetTextColor(messageSurface.drawDC, settings.fontColor);
    SetBkMode(messageSurface.drawDC, TRANSPARENT);
}

void renderMessage(HWND window) {
    renewPopupBitmap(messageSurface, window);
    RECT client{};
    GetClientRect(window, &client);
    prepareText();
    fillRect(messageSurface.drawDC, client, settings.backgroundColor);
    drawText(messageSurface.drawDC, textOrigin(client, boxMargin, boxMargin), messageText);
    InvalidateRect(window, nullptr, FALSE);
    messageRendered = true;
}

LRESULT messageWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (handleSurfaceMessage(messageSurface, window, message)) {
        return 0;
    }
    if (message == WM_SIZE) {
        renderMessage(window);
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

int createMessageWindow() {
    messageWindow = nullptr;
    if (!registerPopupClass(messageClass, "MessageMenu", messageWindowProc)) {
        return 0;
    }
    messageWindow = createPopup(messageClass, 100, 100, 400, 400);
    return messageWindow ? 1 : 0;
}

// Position and size of the box along the text direction: centred, with a margin at the edges of the screen.
void placeAlong(std::int32_t screen, std::int32_t text, int& start, int& length) {
    length = std::min(text + 2 * boxMargin, screen - 2 * screenMargin);
    start = std::max((screen - text - 2 * boxMargin) / 2, screenMargin);
}

void placeAcross(std::int32_t screen, std::int32_t text, int& start, int& length) {
    length = text + 2 * boxMargin;
    start = (screen - length) / 2;
}

void placeMessageWindow() {
    const std::int32_t screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const std::int32_t screenHeight = GetSystemMetrics(SM_CYSCREEN);
    const std::int32_t along = textWidth(messageSurface.drawDC, messageText);
    const std::int32_t across = textHeight(messageSurface.drawDC);
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
        showError(mainWindow, popupFailureText);
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
