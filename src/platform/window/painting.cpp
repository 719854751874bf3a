// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/painting.h"

#include "platform/drawing/context_table.h"
#include "platform/messages.h"
#include "platform/window/compositor.h"
#include "platform/window/window_record.h"

#include <vector>

BOOL InvalidateRect(HWND handle, const RECT*, BOOL erase) {
    Window* window = findWindow(handle);
    if (!window) {
        return FALSE;
    }
    invalidateWindow(*window, erase != FALSE);
    return TRUE;
}

BOOL UpdateWindow(HWND handle) {
    const Window* window = findWindow(handle);
    if (!window) {
        return FALSE;
    }
    if (window->visible && window->invalid) {
        sendMessage(handle, WM_PAINT, 0, 0);
    }
    return TRUE;
}

HDC BeginPaint(HWND handle, PAINTSTRUCT* paint) {
    *paint = {};
    Window* window = findWindow(handle);
    if (!window) {
        return nullptr;
    }
    paint->hdc = createSurfaceDC(&window->client);
    paint->rcPaint = {0, 0, window->client.width, window->client.height};
    const bool erase = window->eraseDue;
    window->invalid = false;
    window->eraseDue = false;
    if (erase) {
        const LRESULT erased = sendMessage(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint->hdc), 0);
        paint->fErase = erased == 0 ? TRUE : FALSE;
    }
    return paint->hdc;
}

BOOL EndPaint(HWND handle, const PAINTSTRUCT* paint) {
    deleteSurfaceDC(paint->hdc);
    Window* window = findWindow(handle);
    if (!window) {
        return FALSE;
    }
    window->firstPaint = false;
    refreshScreen();
    return TRUE;
}

HDC GetDC(HWND handle) {
    Window* window = findWindow(handle);
    if (!window) {
        return nullptr;
    }
    const HDC dc = createSurfaceDC(&window->client);
    if (dc) {
        window->contexts.push_back(dc);
    }
    return dc;
}

int ReleaseDC(HWND handle, HDC dc) {
    Window* window = findWindow(handle);
    if (!window || std::erase(window->contexts, dc) == 0) {
        return 0;
    }
    return deleteSurfaceDC(dc) ? 1 : 0;
}
