// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/menu_window.h"

#include "app/tick_clock.h"
#include "app/window_state.h"
#include "config/settings.h"
#include "input/controls.h"
#include "input/mapped_controls.h"
#include "overlays/popup_window.h"
#include "platform/clock.h"
#include "platform/device_contexts.h"
#include "platform/message_box.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/window.h"
#include "render/primitives.h"
#include "render/turns.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace {

constexpr LPCSTR menuClass = "MenuWndClass";

// Width of a menu in addition to its longest label and choice, in pixels.
constexpr std::int32_t extraWidth = 112;

// One open menu.
struct MenuWindow {
    MenuItem** items = nullptr; // borrowed
    std::int32_t itemCount = 0;
    HWND window = nullptr; // null after the window is destroyed
    PopupSurface surface;
    std::int32_t selected = 0;
    std::int32_t top = 0; // first line shown
    bool done = false;
};

// The open menus, the innermost last; null for a menu that is closed. The window procedure finds its record
// here.
std::vector<std::unique_ptr<MenuWindow>> menuWindows;

enum MenuAction : std::size_t { lineUp, lineDown, nextChoice, previousChoice, closeMenu };

constexpr std::array<MappedControl, 5> menuControls = {{
    {&Settings::keySelectUp, &Settings::joySelectUp, &Settings::keyP2SelectUp},
    {&Settings::keySelectDown, &Settings::joySelectDown, &Settings::keyP2SelectDown},
    {&Settings::keySelectPageDown, &Settings::joySelectPageDown, &Settings::keyP2SelectPageDown},
    {&Settings::keySelectPageUp, &Settings::joySelectPageUp, &Settings::keyP2SelectPageUp},
    {&Settings::keyExit, &Settings::joyExit, &Settings::keyP2Exit},
}};

MenuWindow* findMenuWindow(HWND window) {
    const auto found = std::ranges::find_if(
        menuWindows, [window](const auto& record) { return record && record->window == window; });
    return found != menuWindows.end() ? found->get() : nullptr;
}

void selectMenuFont(HDC dc, int emphasis) {
    selectFont(dc, settings.fontFace, settings.menuFontSize, settings.orientation, emphasis);
}

// The client size in which every label and every choice fits.
SIZE preferredSize(const MenuWindow& record) {
    std::int32_t maxLabel = 0;
    std::int32_t maxChoice = 0;
    for (std::int32_t line = 0; line < record.itemCount; ++line) {
        const MenuItem& item = *record.items[line];
        maxLabel = std::max(maxLabel, textWidth(record.surface.drawDC, item.label));
        for (std::int32_t choice = 0; choice < item.choiceCount; ++choice) {
            maxChoice = std::max(maxChoice, textWidth(record.surface.drawDC, item.choices[choice]));
        }
    }
    const LONG along = maxLabel + maxChoice + extraWidth;
    const LONG across = textHeight(record.surface.drawDC) * record.itemCount;
    return isQuarterTurn(settings.orientation) ? SIZE{across, along} : SIZE{along, across};
}

// Centres the window over the main window with the preferred client size; the platform may limit it. The
// resulting WM_SIZE renders the menu at its new size.
void resizeMenu(const MenuWindow& record, const RECT& client, SIZE preferred) {
    RECT outer{};
    RECT main{};
    GetWindowRect(record.window, &outer);
    GetWindowRect(mainWindow, &main);
    const LONG x = (main.right - main.left - preferred.cx) / 2;
    const LONG y = (main.bottom - main.top - preferred.cy) / 2;
    MoveWindow(record.window, std::max(x, 0), std::max(y, 0),
               preferred.cx + outer.right - outer.left - client.right,
               preferred.cy + outer.bottom - outer.top - client.bottom, TRUE);
}

// When the selected line is not visible, scrolls it to the middle, or as near as the ends of the list allow.
void scrollToSelection(MenuWindow& record, std::int32_t lines) {
    if (record.selected < record.top || record.selected > record.top + lines - 1) {
        record.top = std::max(std::min(record.selected - lines / 2, record.itemCount - lines), 0);
    }
}

const char* shownValue(const MenuItem& item) {
    if (item.subItemCount != 0) {
        return "[...]";
    }
    return item.choiceCount > 0 ? item.choices[item.current] : nullptr;
}

// `across`: pixels from the top of the first line to the top of this one, across the text direction.
void drawLine(HDC dc, const RECT& client, const MenuItem& item, std::int32_t across) {
    const LONG length = isQuarterTurn(settings.orientation) ? client.bottom : client.right;
    drawText(dc, textOrigin(client, textMargin, across), item.label);
    if (const char* value = shownValue(item)) {
        drawText(dc, textOrigin(client, length - textWidth(dc, value) - textMargin, across), value);
    }
}

// Draws the list's highlight bar behind a line, with the turned layout only.
void drawSelectionBar(HDC dc, const RECT& client, std::int32_t across, std::int32_t lineHeight) {
    if (settings.layout == layoutTurned) {
        const RECT bar{0, across, sizeAsRead(client).cx, across + lineHeight};
        fillRect(dc, turnedRect(client, bar), settings.highlightBackColor);
    }
}

void drawMenu(MenuWindow& record) {
    const HDC dc = record.surface.drawDC;
    RECT client{};
    GetClientRect(record.window, &client);
    selectMenuFont(dc, 0);
    SetTextColor(dc, settings.fontColor);
    SetBkMode(dc, TRANSPARENT);
    fillRect(dc, client, settings.backgroundColor);
    const std::int32_t lines = linesThatFit(dc, client.right, client.bottom, 0);
    const std::int32_t lineHeight = textHeight(dc);
    scrollToSelection(record, lines);
    for (std::int32_t line = 0; line < lines && record.top + line < record.itemCount; ++line) {
        const bool isSelected = record.top + line == record.selected;
        if (isSelected) {
            selectMenuFont(dc, 1);
            drawSelectionBar(dc, client, lineHeight * line, lineHeight);
        }
        drawLine(dc, client, *record.items[record.top + line], lineHeight * line);
        if (isSelected) {
            selectMenuFont(dc, 0);
        }
    }
}

void redraw(MenuWindow& record) {
    drawMenu(record);
    InvalidateRect(record.window, nullptr, FALSE);
}

void fitAndRender(MenuWindow& record) {
    RECT client{};
    GetClientRect(record.window, &client);
    renewPopupBitmap(record.surface, record.window);
    selectMenuFont(record.surface.drawDC, 0);
    const SIZE preferred = preferredSize(record);
    if (preferred.cx != client.right || preferred.cy != client.bottom) {
        resizeMenu(record, client, preferred);
    }
    redraw(record);
}

LRESULT menuWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE && !menuWindows.empty()) {
        menuWindows.back()->window = window;
    }
    MenuWindow* record = findMenuWindow(window);
    if (!record) {
        return 0;
    }
    if (handleSurfaceMessage(record->surface, window, message)) {
        if (message == WM_DESTROY) {
            record->window = nullptr;
        }
        return 0;
    }
    if (message == WM_SIZE) {
        fitAndRender(*record);
        return 0;
    }
    return handleFocusMessage(message) ? 0 : DefWindowProcA(window, message, wParam, lParam);
}

int ensureMenuClass() {
    WNDCLASSA known{};
    return GetClassInfoA(appInstance, menuClass, &known) ||
           registerPopupClass(menuClass, "MenuMenu", menuWindowProc);
}

HWND createMenuWindow(int x, int y, int width, int height) {
    return ensureMenuClass() ? createPopup(menuClass, x, y, width, height) : nullptr;
}

std::int32_t wrapIndex(std::int32_t index, std::int32_t step, std::int32_t count) {
    return count > 0 ? (index + step + count) % count : 0;
}

void stepLine(MenuWindow& record, std::int32_t step) {
    record.selected = wrapIndex(record.selected, step, record.itemCount);
    redraw(record);
}

void stepChoice(MenuWindow& record, std::int32_t step) {
    MenuItem& item = *record.items[record.selected];
    item.current = wrapIndex(item.current, step, item.choiceCount);
    redraw(record);
}

void takeNextChoice(MenuWindow& record) {
    const MenuItem& item = *record.items[record.selected];
    if (item.subItemCount != 0) {
        runMenu(item.subItems, item.subItemCount);
        flushKeys();
    } else {
        stepChoice(record, 1);
    }
}

void menuTick(MenuWindow& record) {
    const PolledControls controls = pollControls(menuControls);
    turnToPlayer(controls);
    const bool hasLines = record.itemCount > 0;
    if (hasLines && controls.isPressed(lineUp)) {
        stepLine(record, -1);
    }
    if (hasLines && controls.isPressed(lineDown)) {
        stepLine(record, 1);
    }
    if (hasLines && controls.isPressed(nextChoice)) {
        takeNextChoice(record);
    }
    if (hasLines && controls.isPressed(previousChoice)) {
        stepChoice(record, -1);
    }
    if (controls.isPressed(closeMenu)) {
        record.done = true;
    }
}

// Ticks delayed by a stall are executed back to back. The loop also ends when the window is destroyed,
// because with nested menus only the innermost one receives the WM_QUIT of the main window.
void menuLoop(MenuWindow& record) {
    TickClock clock(nullptr);
    while (clock.isRunning() && servePopupMessage(record.done) && record.window) {
        if (clock.isDue()) {
            menuTick(record);
            clock.advance();
        } else {
            Sleep(1);
        }
    }
}

} // namespace

int runMenu(MenuItem** items, std::int32_t count) {
    const std::size_t index = menuWindows.size();
    menuWindows.push_back(std::make_unique<MenuWindow>());
    MenuWindow& record = *menuWindows.back();
    record.items = items;
    record.itemCount = count;
    record.window = createMenuWindow(0, 0, 100, 100);
    if (!record.window) {
        MessageBoxA(nullptr, popupFailureText, "Error!", MB_OK);
        menuWindows[index].reset();
        return 0;
    }
    ShowWindow(record.window, SW_SHOWDEFAULT);
    UpdateWindow(record.window);
    flushKeys();
    menuLoop(record);
    DestroyWindow(record.window);
    menuWindows[index].reset();
    return 1;
}

void closeMenuWindows() {
    for (const auto& record : menuWindows) {
        if (record) {
            DestroyWindow(record->window);
        }
    }
    menuWindows.clear();
    UnregisterClassA(menuClass, appInstance);
}
