// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/game_info_window.h"

#include "app/tick_clock.h"
#include "app/window_state.h"
#include "config/settings.h"
#include "input/controls.h"
#include "input/mapped_controls.h"
#include "overlays/popup_window.h"
#include "overlays/word_wrap.h"
#include "platform/device_contexts.h"
#include "platform/diagnostics.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/window.h"
#include "render/primitives.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr LPCSTR scrollClass = "ScrollWndClass";

// The caller's lines, and the lines wrapped to the window.
const char* const* scrollSource = nullptr;
std::int32_t scrollSourceCount = 0;
char** wrappedLines = nullptr;
std::int32_t wrappedCount = 0;

// Index of the first wrapped line that is shown.
std::int32_t scrollTop = 0;

PopupSurface scrollSurface;

// scrollControls rotate the screen towards the player who uses them; toggleControls do not.
enum ScrollAction : std::size_t { lineUp, lineDown, closeScroller };
enum ToggleAction : std::size_t { toggleInfo };

constexpr std::array<MappedControl, 3> scrollControls = {{
    {&Settings::keySelectUp, &Settings::joySelectUp, &Settings::keyP2SelectUp},
    {&Settings::keySelectDown, &Settings::joySelectDown, &Settings::keyP2SelectDown},
    {&Settings::keyExit, &Settings::joyExit, &Settings::keyP2Exit},
}};
constexpr std::array<MappedControl, 1> toggleControls = {{
    {&Settings::keyGameInfo, &Settings::joyGameInfo, &Settings::keyP2GameInfo},
}};

void freeWrappedLines() {
    for (std::int32_t line = 0; line < wrappedCount; ++line) {
        std::free(wrappedLines[line]);
    }
    std::free(static_cast<void*>(wrappedLines));
    wrappedLines = nullptr;
    wrappedCount = 0;
}

void prepareText() {
    selectFont(scrollSurface.drawDC, settings.fontFace, settings.fontSize, settings.orientation, 0);
    SetTextColor(scrollSurface.drawDC, settings.fontColor);
    SetBkMode(scrollSurface.drawDC, TRANSPARENT);
}

// Draws only lines that fit completely.
void drawScrollText(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    prepareText();
    fillRect(scrollSurface.drawDC, client, settings.backgroundColor);
    const std::int32_t lineHeight = textHeight(scrollSurface.drawDC);
    const LONG extent = isQuarterTurn(settings.orientation) ? client.right : client.bottom;
    LONG offset = textMargin;
    for (std::int32_t line = scrollTop; line < wrappedCount; ++line) {
        if (offset > extent - lineHeight - textMargin) {
            break;
        }
        drawText(scrollSurface.drawDC, textOrigin(client, textMargin, offset), wrappedLines[line]);
        offset += lineHeight;
    }
}

void redraw(HWND window) {
    drawScrollText(window);
    InvalidateRect(window, nullptr, FALSE);
}

void wrapAndRender(HWND window) {
    renewPopupBitmap(scrollSurface, window);
    prepareText();
    freeWrappedLines();
    wrappedLines = wordWrapText(window, scrollSurface.drawDC, scrollSource, scrollSourceCount, &wrappedCount);
    redraw(window);
}

LRESULT scrollWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT && !scrollSurface.drawDC) {
        writeDiagnostic(standardOutput, "SOMETING!");
    }
    if (handleSurfaceMessage(scrollSurface, window, message)) {
        if (message == WM_DESTROY) {
            freeWrappedLines();
        }
        return 0;
    }
    if (message == WM_SIZE) {
        wrapAndRender(window);
        return 0;
    }
    return handleFocusMessage(message) ? 0 : DefWindowProcA(window, message, wParam, lParam);
}

// The margin on each side is scrollBorderPct percent of the main window's width or height, at any rotation.
HWND createScrollWindow() {
    RECT main{};
    GetClientRect(mainWindow, &main);
    const auto margin = [](LONG length) {
        const std::int64_t pixels = std::int64_t{length} * settings.scrollBorderPct / 100;
        return static_cast<int>(std::clamp<std::int64_t>(pixels, -length, length));
    };
    const int marginX = margin(main.right);
    const int marginY = margin(main.bottom);
    return createPopup(scrollClass, marginX, marginY, main.right - 2 * marginX, main.bottom - 2 * marginY);
}

void moveTo(HWND window, std::int32_t line) {
    scrollTop = std::max(std::min(line, wrappedCount - 1), 0);
    redraw(window);
}

// Returns whether a player closed the scroller.
bool scrollTick(HWND window) {
    const PolledControls scroll = pollControls(scrollControls);
    const PolledControls toggle = pollControls(toggleControls);
    turnToPlayer(scroll);
    if (scroll.isPressed(lineUp)) {
        moveTo(window, scrollTop - 1);
    }
    if (scroll.isPressed(lineDown)) {
        moveTo(window, scrollTop + 1);
    }
    return scroll.isPressed(closeScroller) || toggle.isPressed(toggleInfo);
}

// Polls without sleeping and drops late ticks. A shutdown destroys the window during the loop, so the loop
// also ends when the surface is gone.
void scrollLoop(HWND window) {
    TickClock clock(nullptr);
    bool done = false;
    while (clock.isRunning() && servePopupMessage(done) && scrollSurface.drawDC) {
        if (clock.isDue()) {
            done = scrollTick(window) || done;
            clock.restart();
        }
    }
}

} // namespace

int showGameInfo(const char* const* lines, std::int32_t count) {
    if (count < 1) {
        return 1;
    }
    scrollSource = lines;
    scrollSourceCount = count;
    scrollTop = 0;
    if (!registerPopupClass(scrollClass, "ScrollMenu", scrollWindowProc)) {
        return 0;
    }
    const HWND window = createScrollWindow();
    if (window) {
        ShowWindow(window, SW_SHOW);
        UpdateWindow(window);
        flushKeys();
        scrollLoop(window);
        DestroyWindow(window);
    }
    UnregisterClassA(scrollClass, appInstance);
    return window ? 1 : 0;
}
