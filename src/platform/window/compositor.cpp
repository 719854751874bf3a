// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/compositor.h"

#include "platform/display/display.h"
#include "platform/window/window_record.h"

#include <algorithm>
#include <cstring>

namespace {

bool screenChanged = false;
bool (*pictureSource)() = nullptr;

// The frame of a popup, from the outside in: a light line between two dark ones is visible on any picture.
constexpr std::uint32_t frameColors[thickFrame] = {0x181818, 0xC8C8C8, 0x181818};

// The display's pixels and the part of them to compose.
struct Target {
    DisplayPixels pixels;
    RECT part;

    std::uint32_t* row(LONG y) const {
        return pixels.pixels + static_cast<std::ptrdiff_t>(y) * pixels.stride;
    }
};

// Clips a rectangle to the part to compose.
RECT clipped(const RECT& rect, const Target& target) {
    const RECT& part = target.part;
    return {std::clamp(rect.left, part.left, part.right), std::clamp(rect.top, part.top, part.bottom),
            std::clamp(rect.right, part.left, part.right), std::clamp(rect.bottom, part.top, part.bottom)};
}

void fill(const Target& target, const RECT& rect, std::uint32_t color) {
    const RECT area = clipped(rect, target);
    if (area.left >= area.right) {
        return;
    }
    for (LONG y = area.top; y < area.bottom; ++y) {
        std::fill(target.row(y) + area.left, target.row(y) + area.right, color);
    }
}

void copyClient(const Target& target, const Surface& client, LONG left, LONG top) {
    if (!client.pixels) {
        return;
    }
    const RECT area = clipped({left, top, left + client.width, top + client.height}, target);
    if (area.left >= area.right) {
        return;
    }
    const auto bytes = static_cast<std::size_t>(area.right - area.left) * sizeof(std::uint32_t);
    for (LONG y = area.top; y < area.bottom; ++y) {
        std::memcpy(target.row(y) + area.left, client.row(y - top) + (area.left - left), bytes);
    }
}

void drawWindow(const Target& target, Window& window) {
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

bool coversPart(const Window& window, const RECT& part) {
    return window.client.pixels && window.outer.left <= part.left && window.outer.top <= part.top &&
           window.outer.right >= part.right && window.outer.bottom >= part.bottom;
}

void compose(const Target& target) {
    std::vector<Window*> visibleWindows;
    for (const HWND handle : windowOrder()) {
        Window* window = findWindow(handle);
        if (window->visible) {
            if (coversPart(*window, target.part)) {
                visibleWindows.clear();
            }
            visibleWindows.push_back(window);
        }
    }
    if (visibleWindows.empty() || !coversPart(*visibleWindows.front(), target.part)) {
        fill(target, target.part, 0);
    }
    for (Window* window : visibleWindows) {
        drawWindow(target, *window);
    }
}

void present() {
    const DisplayPixels pixels = displayPixels();
    screenChanged = false;
    if (pixels.pixels) {
        compose({pixels, {0, 0, pixels.width, pixels.height}});
        displayPresent();
    }
}

// A new movie picture composes only the movie's area, not the whole screen.
void presentPart(const RECT& part) {
    const DisplayPixels pixels = displayPixels();
    const RECT area = clipped(part, {pixels, {0, 0, pixels.width, pixels.height}});
    if (pixels.pixels && area.left < area.right && area.top < area.bottom) {
        compose({pixels, area});
        displayPresentPart(area.left, area.top, area.right - area.left, area.bottom - area.top);
    }
}

} // namespace

void noteScreenChange() {
    screenChanged = true;
}

void setPictureSource(bool (*update)()) {
    pictureSource = update;
}

bool refreshScreen() {
    const bool moving = pictureSource && pictureSource();
    bool changed = screenChanged;
    const Window* movie = nullptr;
    for (const HWND handle : windowOrder()) {
        const Window* window = findWindow(handle);
        if (window->visible && window->firstPaint) {
            return moving; // keep the previous picture until the new window is painted
        }
        if (window->visible && window->client.changed) {
            const bool isMovie = (window->style & WS_CHILD) != 0 && !movie;
            movie = isMovie ? window : movie;
            changed = changed || !isMovie;
        }
    }
    if (changed) {
        present();
    } else if (movie) {
        presentPart(movie->outer);
    }
    return moving;
}

void showWindowNow(HWND handle) {
    Window* window = findWindow(handle);
    window->firstPaint = false;
    window->invalid = false;
    present();
}
