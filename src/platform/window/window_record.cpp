// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/window_record.h"

#include "platform/base/handle_table.h"

#include <algorithm>

namespace {

HandleTable<Window> windows(1);
std::vector<HWND> order;

HWND toHandle(std::uintptr_t value) {
    return reinterpret_cast<HWND>(value);
}

std::uintptr_t toValue(HWND handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

// Inserts a new window: a child directly above its parent, any other on top.
void insertIntoOrder(HWND handle) {
    const Window& window = *findWindow(handle);
    const auto parent = std::find(order.begin(), order.end(), window.owner);
    order.insert(isChild(window) && parent != order.end() ? parent + 1 : order.end(), handle);
}

} // namespace

HWND addWindow(std::unique_ptr<Window> window) {
    Window& record = *window;
    record.handle = toHandle(windows.insert(std::move(window)));
    insertIntoOrder(record.handle);
    return record.handle;
}

void removeWindow(HWND handle) {
    order.erase(std::remove(order.begin(), order.end(), handle), order.end());
    windows.remove(toValue(handle));
}

void raiseWindow(HWND handle) {
    order.erase(std::remove(order.begin(), order.end(), handle), order.end());
    order.push_back(handle);
    // Keep the windows that it owns above it.
    std::stable_partition(order.begin(), order.end(), [&](HWND other) {
        const Window* window = findWindow(other);
        return !window || window->owner != handle;
    });
}

Window* findWindow(HWND handle) {
    return windows.find(toValue(handle));
}

const std::vector<HWND>& windowOrder() {
    return order;
}

HWND mainWindowOfProgram() {
    const auto found =
        std::find_if(order.begin(), order.end(), [](HWND handle) { return !findWindow(handle)->owner; });
    return found != order.end() ? *found : nullptr;
}

bool isChild(const Window& window) {
    return (window.style & WS_CHILD) != 0;
}

int frameOf(const Window& window) {
    return (window.style & WS_THICKFRAME) != 0 ? thickFrame : 0;
}

POINT originOf(const Window& window) {
    const Window* parent = isChild(window) ? findWindow(window.owner) : nullptr;
    return parent ? POINT{parent->outer.left + frameOf(*parent), parent->outer.top + frameOf(*parent)}
                  : POINT{};
}

RECT placeInParent(const Window& window) {
    const POINT origin = originOf(window);
    return {window.outer.left - origin.x, window.outer.top - origin.y, window.outer.right - origin.x,
            window.outer.bottom - origin.y};
}

LRESULT sendMessage(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const Window* window = findWindow(handle);
    return window ? window->procedure(handle, message, wParam, lParam) : 0;
}

void invalidateWindow(Window& window, bool erase) {
    window.invalid = true;
    window.eraseDue = window.eraseDue || erase;
}
