#include "platform/drawing/device_context.h"
#include "platform/window/window_internal.h"

#include <algorithm>

namespace {

void eraseBackground(Window& window, HDC dc) {
    const RECT client{0, 0, window.client.width, window.client.height};
    if (window.background) {
        FillRect(dc, &client, window.background);
    }
}

} // namespace

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
