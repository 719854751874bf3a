#include "platform/display.h"
#include "platform/window_internal.h"

#include <algorithm>
#include <cstring>

namespace {

bool screenChanged = false;

// The frame of a popup, from the outside in: a light line between two dark ones stands out on any picture.
constexpr std::uint32_t frameColors[thickFrame] = {0x181818, 0xC8C8C8, 0x181818};

// The part of a rectangle that lies on the display.
RECT onDisplay(const RECT& rect, const DisplayPixels& target) {
    return {std::clamp(rect.left, 0, target.width), std::clamp(rect.top, 0, target.height),
            std::clamp(rect.right, 0, target.width), std::clamp(rect.bottom, 0, target.height)};
}

void fill(const DisplayPixels& target, const RECT& rect, std::uint32_t color) {
    const RECT seen = onDisplay(rect, target);
    if (seen.left >= seen.right) {
        return;
    }
    for (LONG y = seen.top; y < seen.bottom; ++y) {
        std::uint32_t* row = target.pixels + static_cast<std::ptrdiff_t>(y) * target.stride;
        std::fill(row + seen.left, row + seen.right, color);
    }
}

void copyClient(const DisplayPixels& target, const Surface& client, LONG left, LONG top) {
    if (!client.pixels) {
        return;
    }
    const RECT seen = onDisplay({left, top, left + client.width, top + client.height}, target);
    if (seen.left >= seen.right) {
        return;
    }
    const auto bytes = static_cast<std::size_t>(seen.right - seen.left) * sizeof(std::uint32_t);
    for (LONG y = seen.top; y < seen.bottom; ++y) {
        std::memcpy(target.pixels + static_cast<std::ptrdiff_t>(y) * target.stride + seen.left,
                    client.row(y - top) + (seen.left - left), bytes);
    }
}

void drawWindow(const DisplayPixels& target, Window& window) {
    RECT rect = window.outer;
    if ((window.style & WS_THICKFRAME) != 0) {
        for (const std::uint32_t color : frameColors) {
            fill(target, {rect.left, rect.top, rect.right, rect.top + 1}, color);
            fill(target, {rect.left, rect.bottom - 1, rect.right, rect.bottom}, color);
            fill(target, {rect.left, rect.top, rect.left + 1, rect.bottom}, color);
            fill(target, {rect.right - 1, rect.top, rect.right, rect.bottom}, color);
            rect = {rect.left + 1, rect.top + 1, rect.right - 1, rect.bottom - 1};
        }
    }
    copyClient(target, window.client, rect.left, rect.top);
    window.client.changed = false;
}

bool coversDisplay(const Window& window, const DisplayPixels& target) {
    return window.client.pixels && window.outer.left <= 0 && window.outer.top <= 0 &&
           window.outer.right >= target.width && window.outer.bottom >= target.height;
}

void compose(const DisplayPixels& target) {
    std::vector<Window*> seen;
    for (const HWND handle : windowOrder()) {
        Window* window = findWindow(handle);
        if (window->visible) {
            if (coversDisplay(*window, target)) {
                seen.clear();
            }
            seen.push_back(window);
        }
    }
    if (seen.empty() || !coversDisplay(*seen.front(), target)) {
        fill(target, {0, 0, target.width, target.height}, 0);
    }
    for (Window* window : seen) {
        drawWindow(target, *window);
    }
}

void present() {
    const DisplayPixels target = displayPixels();
    screenChanged = false;
    if (target.pixels) {
        compose(target);
        displayPresent();
    }
}

// The first window without an owner is the program's main window.
void closeMainWindow() {
    for (const HWND handle : windowOrder()) {
        if (!findWindow(handle)->owner) {
            queuePosted(handle, WM_CLOSE, 0, 0);
            return;
        }
    }
}

} // namespace

void connectDisplay() {
    static bool connected = false;
    if (connected) {
        return;
    }
    connected = true;
    displaySetListener(
        {queueKey, queueJoystick, setDisplayFocus, noteScreenChange, closeMainWindow, refreshScreen});
    if (!displayIsReal()) {
        setDisplayFocus(true); // a display without a screen never tells
    }
}

void noteScreenChange() {
    screenChanged = true;
}

void refreshScreen() {
    bool changed = screenChanged;
    for (const HWND handle : windowOrder()) {
        const Window* window = findWindow(handle);
        if (window->visible && window->firstPaint) {
            return; // the former picture stays until the new window has one
        }
        changed = changed || (window->visible && window->client.changed);
    }
    if (changed) {
        present();
    }
}

void showWindowNow(HWND handle) {
    Window* window = findWindow(handle);
    window->firstPaint = false;
    window->invalid = false;
    present();
}
