// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/page_window.h"

#include "app/window_state.h"
#include "core/main_window.h"
#include "overlays/popup_window.h"
#include "platform/clock.h"
#include "platform/messages.h"
#include "platform/module.h"
#include "platform/painting.h"
#include "platform/window.h"
#include "setup/pages/page_controls.h"
#include "setup/pages/page_drawing.h"

#include <algorithm>
#include <utility>

namespace {

constexpr LPCSTR pageClass = "SetupPageClass";

// Lines by which left and right move where they change no value.
constexpr int linesPerJump = 10;

PopupSurface surface;
PageContent shown; // drawn again when the window gets another size
std::size_t shownSelection = 0;

void drawShown() {
    RECT client{};
    GetClientRect(mainWindow, &client);
    if (surface.bitmap) {
        drawPage(surface.drawDC, client, shown, shownSelection);
        InvalidateRect(mainWindow, nullptr, FALSE);
        UpdateWindow(mainWindow);
    }
}

LRESULT pageWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) {
        mainWindow = nullptr;
        PostQuitMessage(0);
    }
    if (message == WM_SIZE) {
        renewPopupBitmap(surface, window);
        drawShown();
        return 0;
    }
    if (handleSurfaceMessage(surface, window, message) || handleFocusMessage(message)) {
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

void moveSelection(std::size_t& selected, int step, std::size_t count) {
    if (count == 0) {
        return;
    }
    const int last = static_cast<int>(count) - 1;
    int target = static_cast<int>(selected) + step;
    if (step == 1 || step == -1) {
        target = target < 0 ? last : target > last ? 0 : target;
    }
    selected = static_cast<std::size_t>(std::clamp(target, 0, last));
}

void stepLine(const PageContent& content, std::size_t& selected, int direction) {
    if (selected < content.lines.size() && content.lines[selected].step) {
        content.lines[selected].step(direction);
    } else {
        moveSelection(selected, direction * linesPerJump, content.lines.size());
    }
}

PageAction carryOut(PageKey key, const PageContent& content, std::size_t& selected) {
    const bool hasLine = selected < content.lines.size();
    switch (key) {
    case PageKey::up:
        moveSelection(selected, -1, content.lines.size());
        break;
    case PageKey::down:
        moveSelection(selected, 1, content.lines.size());
        break;
    case PageKey::left:
    case PageKey::right:
        stepLine(content, selected, key == PageKey::left ? -1 : 1);
        break;
    case PageKey::pageUp:
    case PageKey::pageDown:
        moveSelection(selected, key == PageKey::pageUp ? -linesPerJump : linesPerJump, content.lines.size());
        break;
    case PageKey::choose:
        if (hasLine && content.lines[selected].choose) {
            return content.lines[selected].choose();
        }
        break;
    case PageKey::clear:
        if (hasLine && content.lines[selected].clear) {
            content.lines[selected].clear();
        }
        break;
    case PageKey::back:
        return PageAction::back;
    case PageKey::none:
        break;
    }
    return PageAction::stay;
}

void showSelected(const PageContent& content, std::size_t selected) {
    shown = content;
    shownSelection = selected;
    drawShown();
}

PageAction runFrom(PageContent content, const PageBuilder& build, std::size_t& selected) {
    showSelected(content, selected);
    flushPageKeys();
    while (servePageWindow()) {
        const PageKey key = pollPageKey();
        if (key == PageKey::none) {
            continue;
        }
        const PageAction action = carryOut(key, content, selected);
        if (action != PageAction::stay) {
            return action;
        }
        content = build();
        selected = std::min(selected, content.lines.empty() ? 0 : content.lines.size() - 1);
        showSelected(content, selected);
    }
    return PageAction::leave;
}

} // namespace

bool openPageWindow() {
    appInstance = GetModuleHandleA(nullptr);
    registerPopupClass(pageClass, "SetupMenu", pageWindowProc);
    mainWindow = CreateWindowExA(0, pageClass, "KESTRAVOX", WS_POPUP, CW_USEDEFAULT, CW_USEDEFAULT,
                                 CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, appInstance, nullptr);
    if (!mainWindow) {
        UnregisterClassA(pageClass, appInstance);
        return false;
    }
    ShowWindow(mainWindow, SW_MAXIMIZE);
    hideMouseCursor();
    flushPageKeys();
    return true;
}

void closePageWindow() {
    showMouseCursor();
    shown = {};
    DestroyWindow(mainWindow);
    UnregisterClassA(pageClass, appInstance);
}

void showPage(const PageContent& content) {
    showSelected(content, content.selected);
}

bool servePageWindow() {
    for (MSG message{}; PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);) {
        if (!mainWindow || !GetMessageA(&message, nullptr, 0, 0)) {
            return false;
        }
        DispatchMessageA(&message);
    }
    Sleep(1);
    return mainWindow != nullptr;
}

PageAction runPage(const PageBuilder& build) {
    PageContent first = build();
    std::size_t selected = first.selected;
    return runFrom(std::move(first), build, selected);
}

PageAction runPage(const PageBuilder& build, std::size_t& selected) {
    return runFrom(build(), build, selected);
}

int askOnPage(const std::string& title, const std::string& question, const std::string& safeAnswer,
              const std::string& otherAnswer) {
    int answer = 0;
    const auto answers = [&answer](int number) {
        return [&answer, number] {
            answer = number;
            return PageAction::forward;
        };
    };
    PageContent content;
    content.title = title;
    content.help = question;
    content.lines = {{safeAnswer, {}, "", answers(0), nullptr, nullptr},
                     {otherAnswer, {}, "", answers(1), nullptr, nullptr}};
    content.keys = usualPageKeys;
    return runPage([&content] { return content; }) == PageAction::leave ? -1 : answer;
}
