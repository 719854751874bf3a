// SPDX-License-Identifier: GPL-3.0-or-later
// In order: positions and sizes, showing and hiding, destruction, then the operations on classes and windows.
#include "platform/window.h"

#include "platform/base/end_request.h"
#include "platform/clock/fruitless_polls.h"
#include "platform/display/display.h"
#include "platform/drawing/context_table.h"
#include "platform/messages.h"
#include "platform/window/compositor.h"
#include "platform/window/display_events.h"
#include "platform/window/focus.h"
#include "platform/window/message_queue.h"
#include "platform/window/window_record.h"

#include <algorithm>
#include <memory>

namespace {

struct WindowClass {
    std::string name;
    UINT style = 0;
    WNDPROC procedure = nullptr;
    HBRUSH background = nullptr;
};

std::vector<std::unique_ptr<WindowClass>> classes;

WindowClass* findClass(LPCSTR name) {
    const auto found = std::find_if(classes.begin(), classes.end(),
                                    [&](const auto& entry) { return name && entry->name == name; });
    return found != classes.end() ? found->get() : nullptr;
}

LPARAM packSize(int width, int height) {
    return static_cast<LPARAM>((static_cast<std::uint32_t>(height) << 16) |
                               static_cast<std::uint32_t>(width));
}

// Sets the outer rectangle and resizes the client surface. Returns whether the client size changed.
bool placeWindow(Window& window, RECT outer) {
    const int frame = 2 * frameOf(window);
    const int width = std::clamp(outer.right - outer.left - frame, 0, 32767);
    const int height = std::clamp(outer.bottom - outer.top - frame, 0, 32767);
    window.outer = outer;
    noteScreenChange();
    if (width == window.client.width && height == window.client.height) {
        return false;
    }
    if (width == 0 || height == 0 || !window.client.resize(width, height)) {
        window.client.pixels.reset();
        window.client.width = width > 0 && height > 0 ? 0 : width;
        window.client.height = width > 0 && height > 0 ? 0 : height;
    }
    return true;
}

void sendSize(HWND handle, WPARAM kind) {
    Window* window = findWindow(handle);
    if (window) {
        window->sized = true;
        sendMessage(handle, WM_SIZE, kind, packSize(window->client.width, window->client.height));
    }
}

RECT wholeScreen() {
    int width = 0;
    int height = 0;
    displaySize(width, height);
    return {0, 0, width, height};
}

// Cuts and moves one axis of a rectangle so that it is within 0 to limit.
void confineAxis(LONG limit, LONG& start, LONG& end) {
    const LONG length = std::min(end - start, limit);
    start = std::clamp(start, 0, limit - length);
    end = start + length;
}

RECT confinedToScreen(RECT rect) {
    const RECT screen = wholeScreen();
    confineAxis(screen.right, rect.left, rect.right);
    confineAxis(screen.bottom, rect.top, rect.bottom);
    return rect;
}

RECT rectangleOf(int x, int y, int width, int height) {
    const auto edge = [](int start, int length) {
        return static_cast<LONG>(
            std::min<std::int64_t>(std::int64_t{start} + std::max(length, 0), INT32_MAX));
    };
    return {x, y, edge(x, width), edge(y, height)};
}

// The outer rectangle that a window of this style gets for the requested one.
RECT grantedRectangle(DWORD style, int x, int y, int width, int height) {
    const RECT requested = rectangleOf(x, y, width, height);
    return (style & WS_THICKFRAME) != 0 ? confinedToScreen(requested) : requested;
}

void hide(Window& window) {
    window.visible = false;
    noteScreenChange();
    deactivateWindow(window);
}

void show(HWND handle, bool maximize) {
    Window* window = findWindow(handle);
    if (isChild(*window)) {
        window->visible = true;
        window->firstPaint = false;
        noteScreenChange();
        return;
    }
    const bool appears = !window->visible;
    const bool resized = maximize && placeWindow(*window, wholeScreen());
    window->visible = true;
    if (appears || resized) {
        window->firstPaint = window->firstPaint || appears;
        invalidateWindow(*window, true);
    }
    raiseWindow(handle);
    noteScreenChange();
    if (resized || !window->sized) {
        sendSize(handle, maximize ? SIZE_MAXIMIZED : SIZE_RESTORED);
    }
    activateWindow(handle);
}

void deleteWindow(HWND handle) {
    Window* window = findWindow(handle);
    for (const HDC dc : window->contexts) {
        deleteSurfaceDC(dc);
    }
    dropMessagesOf(handle);
    removeWindow(handle);
    noteScreenChange();
}

std::unique_ptr<Window> makeWindow(const WindowClass& windowClass, DWORD style, HWND owner) {
    auto window = std::make_unique<Window>();
    window->className = windowClass.name;
    window->classStyle = windowClass.style;
    window->procedure = windowClass.procedure;
    window->background = windowClass.background;
    window->style = style;
    window->owner = owner;
    return window;
}

} // namespace

ATOM RegisterClassA(const WNDCLASSA* windowClass) {
    if (!windowClass || !windowClass->lpszClassName || !windowClass->lpfnWndProc ||
        findClass(windowClass->lpszClassName)) {
        return 0;
    }
    static ATOM lastAtom = 0xC000;
    classes.push_back(
        std::make_unique<WindowClass>(WindowClass{windowClass->lpszClassName, windowClass->style,
                                                  windowClass->lpfnWndProc, windowClass->hbrBackground}));
    lastAtom = lastAtom == 0xFFFF ? 0xC001 : static_cast<ATOM>(lastAtom + 1);
    return lastAtom;
}

BOOL UnregisterClassA(LPCSTR className, HINSTANCE) {
    const WindowClass* found = findClass(className);
    const bool used = std::any_of(windowOrder().begin(), windowOrder().end(), [&](HWND handle) {
        return found && findWindow(handle)->className == found->name;
    });
    if (!found || used) {
        return FALSE;
    }
    std::erase_if(classes, [&](const auto& entry) { return entry.get() == found; });
    return TRUE;
}

BOOL GetClassInfoA(HINSTANCE instance, LPCSTR className, WNDCLASSA* windowClass) {
    const WindowClass* found = findClass(className);
    if (!found) {
        return FALSE;
    }
    *windowClass = {};
    windowClass->style = found->style;
    windowClass->lpfnWndProc = found->procedure;
    windowClass->hInstance = instance;
    windowClass->hbrBackground = found->background;
    windowClass->lpszClassName = className;
    return TRUE;
}

HICON LoadIconA(HINSTANCE, LPCSTR name) {
    return reinterpret_cast<HICON>(reinterpret_cast<std::uintptr_t>(name));
}

HCURSOR LoadCursorA(HINSTANCE, LPCSTR name) {
    return reinterpret_cast<HCURSOR>(reinterpret_cast<std::uintptr_t>(name));
}

HWND CreateWindowExA(DWORD, LPCSTR className, LPCSTR title, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU, HINSTANCE, LPVOID creationData) {
    // A popup whose owner has been destroyed by the request is not a first window.
    if (!parent && windowOrder().empty()) {
        forgetEndRequest();
    }
    const WindowClass* windowClass = findClass(className);
    int screenWidth = 0;
    int screenHeight = 0;
    if (!windowClass || (parent && !findWindow(parent)) || !displaySize(screenWidth, screenHeight)) {
        return nullptr;
    }
    connectDisplay();
    if (title && *title != '\0') {
        displaySetTitle(title);
    }
    const HWND handle = addWindow(makeWindow(*windowClass, style, parent));
    Window* window = findWindow(handle);
    const auto orZero = [](int value) { return value == CW_USEDEFAULT ? 0 : value; };
    const POINT origin = originOf(*window);
    placeWindow(*window, grantedRectangle(style, origin.x + orZero(x), origin.y + orZero(y), orZero(width),
                                          orZero(height)));
    const auto data = reinterpret_cast<LPARAM>(creationData);
    if (sendMessage(handle, WM_NCCREATE, 0, data) == FALSE) {
        if (findWindow(handle)) {
            deleteWindow(handle);
        }
        return nullptr;
    }
    if (sendMessage(handle, WM_CREATE, 0, data) == -1) {
        DestroyWindow(handle);
    }
    return findWindow(handle) ? handle : nullptr;
}

BOOL DestroyWindow(HWND handle) {
    Window* window = findWindow(handle);
    if (!window || window->destroying) {
        return FALSE;
    }
    window->destroying = true;
    hide(*window);
    for (const HWND other : std::vector<HWND>(windowOrder())) {
        const Window* owned = findWindow(other);
        if (owned && owned->owner == handle) {
            DestroyWindow(other);
        }
    }
    sendMessage(handle, WM_DESTROY, 0, 0);
    deleteWindow(handle);
    return TRUE;
}

BOOL ShowWindow(HWND handle, int command) {
    Window* window = findWindow(handle);
    if (!window) {
        return FALSE;
    }
    const bool wasVisible = window->visible;
    if (command != SW_HIDE) {
        show(handle, command == SW_MAXIMIZE);
    } else if (wasVisible) {
        hide(*window);
    }
    return wasVisible ? TRUE : FALSE;
}

BOOL MoveWindow(HWND handle, int x, int y, int width, int height, BOOL repaint) {
    Window* window = findWindow(handle);
    if (!window) {
        return FALSE;
    }
    const POINT origin = originOf(*window);
    const bool resized =
        placeWindow(*window, grantedRectangle(window->style, origin.x + x, origin.y + y, width, height));
    const bool redraws = resized && (window->classStyle & (CS_HREDRAW | CS_VREDRAW)) != 0;
    if (repaint || redraws) {
        invalidateWindow(*window, true);
    }
    if (resized) {
        sendSize(handle, SIZE_RESTORED);
    }
    return TRUE;
}

BOOL SetWindowPos(HWND handle, HWND, int x, int y, int width, int height, UINT) {
    return MoveWindow(handle, x, y, width, height, FALSE);
}

BOOL GetClientRect(HWND handle, RECT* rect) {
    noteWorkBetweenPolls();
    const Window* window = findWindow(handle);
    if (!window) {
        return FALSE;
    }
    *rect = {0, 0, window->client.width, window->client.height};
    return TRUE;
}

BOOL GetWindowRect(HWND handle, RECT* rect) {
    const Window* window = findWindow(handle);
    if (!window) {
        return FALSE;
    }
    *rect = window->outer;
    return TRUE;
}
