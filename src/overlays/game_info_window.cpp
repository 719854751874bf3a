#include "overlays/game_info_window.h"

#include "app/tick_clock.h"
#include "app/window_state.h"
#include "config/settings.h"
#include "input/controls.h"
#include "input/mapped_controls.h"
#include "overlays/popup_window.h"
#include "overlays/word_wrap.h"
#include "platform/diagnostics.h"
#include "platform/drawing.h"
#include "render/primitives.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr LPCSTR scrollClass = "ScrollWndClass";

// The caller's lines, and the lines as cut to the window.
const char* const* scrollSource = nullptr;
std::int32_t scrollSourceCount = 0;
char** wrappedLines = nullptr;
std::int32_t wrappedCount = 0;

// First of the cut lines that is shown.
std::int32_t scrollTop = 0;

PopupSurface scrollSurface;

// The first group turns the screen to the player who touches it, the second does not.
enum ScrollAction : std::size_t { lineUp, lineDown, leave };
enum InformationAction : std::size_t { information };

constexpr std::array<MappedControl, 3> scrollControls = {{
    {&Settings::keySelectUp, &Settings::joySelectUp, &Settings::keyP2SelectUp},
    {&Settings::keySelectDown, &Settings::joySelectDown, &Settings::keyP2SelectDown},
    {&Settings::keyExit, &Settings::joyExit, &Settings::keyP2Exit},
}};
constexpr std::array<MappedControl, 1> informationControls = {{
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

// Only lines that fit whole are drawn.
void drawScrollText(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    prepareText();
    fillRect(scrollSurface.drawDC, client, settings.backgroundColor);
    const std::int32_t lineHeight = textHeight(scrollSurface.drawDC);
    const LONG across = isQuarterTurn(settings.orientation) ? client.right : client.bottom;
    LONG place = textMargin;
    for (std::int32_t line = scrollTop; line < wrappedCount; ++line) {
        if (place > across - lineHeight - textMargin) {
            break;
        }
        drawText(scrollSurface.drawDC, textOrigin(client, textMargin, place), wrappedLines[line]);
        place += lineHeight;
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

// The border is a part of the main window's width and height on every side, whatever the rotation.
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

// Gives whether a player wants to leave.
bool scrollTick(HWND window) {
    const PolledControls scroll = pollControls(scrollControls);
    const PolledControls inform = pollControls(informationControls);
    turnToPlayer(scroll);
    if (scroll.asksFor(lineUp)) {
        moveTo(window, scrollTop - 1);
    }
    if (scroll.asksFor(lineDown)) {
        moveTo(window, scrollTop + 1);
    }
    return scroll.asksFor(leave) || inform.asksFor(information);
}

// Polls without a pause; a tick that was late is not made up for. A shutdown ends the window under the loop.
void scrollLoop(HWND window) {
    TickClock clock(nullptr);
    bool done = false;
    while (clock.runs() && servePopupMessage(done) && scrollSurface.drawDC) {
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
