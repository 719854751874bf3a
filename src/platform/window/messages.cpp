// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/messages.h"

#include "platform/clock/clock_source.h"
#include "platform/clock/fruitless_polls.h"
#include "platform/display/display.h"
#include "platform/drawing.h"
#include "platform/painting.h"
#include "platform/window/focus.h"
#include "platform/window/message_queue.h"

namespace {

constexpr std::int64_t messagePollInterval = nanosecondsPerMillisecond;

void prepareToPoll() {
    displayKeepAlive();
    sendFocusChange();
}

void eraseBackground(Window& window, HDC dc) {
    const RECT client{0, 0, window.client.width, window.client.height};
    if (window.background) {
        FillRect(dc, &client, window.background);
    }
}

} // namespace

BOOL PeekMessageA(MSG* message, HWND, UINT, UINT, UINT) {
    prepareToPoll();
    const std::optional<MSG> next = nextMessage(false);
    if (!next) {
        pauseAfterFruitlessPolls();
        return FALSE;
    }
    noteWorkBetweenPolls();
    *message = *next;
    return TRUE;
}

BOOL GetMessageA(MSG* message, HWND, UINT, UINT) {
    for (;;) {
        prepareToPoll();
        if (const std::optional<MSG> next = nextMessage(true)) {
            *message = *next;
            return next->message == WM_QUIT ? FALSE : TRUE;
        }
        clockWait(messagePollInterval);
    }
}

BOOL TranslateMessage(const MSG*) {
    return FALSE;
}

LRESULT DispatchMessageA(const MSG* message) {
    return sendMessage(message->hwnd, message->message, message->wParam, message->lParam);
}

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return sendMessage(window, message, wParam, lParam);
}

void PostQuitMessage(int exitCode) {
    queueQuit(exitCode);
}

LRESULT DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM) {
    Window* window = findWindow(handle);
    if (!window) {
        return 0;
    }
    switch (message) {
    case WM_NCCREATE:
        return TRUE;
    case WM_CLOSE:
        DestroyWindow(handle);
        return 0;
    case WM_ERASEBKGND:
        eraseBackground(*window, reinterpret_cast<HDC>(wParam));
        return window->background ? 1 : 0;
    case WM_PAINT: {
        PAINTSTRUCT paint{};
        BeginPaint(handle, &paint);
        EndPaint(handle, &paint);
        return 0;
    }
    default:
        return 0;
    }
}
