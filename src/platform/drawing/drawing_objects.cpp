// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing_objects.h"

#include "platform/drawing/object_table.h"

#include <cstring>

HBITMAP CreateCompatibleBitmap(HDC, int width, int height) {
    if (width == 0 || height == 0) {
        width = 1;
        height = 1;
    }
    return addBitmap(width, height);
}

HBRUSH CreateSolidBrush(COLORREF color) {
    return addBrush(color);
}

HGDIOBJ GetStockObject(int index) {
    return index == BLACK_BRUSH ? stockObject(Stock::blackBrush) : nullptr;
}

BOOL DeleteObject(HGDIOBJ handle) {
    return deleteObject(handle) ? TRUE : FALSE;
}

int GetObjectA(HGDIOBJ handle, int size, LPVOID result) {
    const GdiObject* object = findObject(handle);
    const Surface* surface = object ? std::get_if<Surface>(&object->content) : nullptr;
    if (!surface || !result || size < static_cast<int>(sizeof(BITMAP))) {
        return 0;
    }
    BITMAP description{};
    description.bmWidth = surface->width;
    description.bmHeight = surface->height;
    description.bmWidthBytes = surface->width * static_cast<LONG>(sizeof(std::uint32_t));
    description.bmPlanes = 1;
    description.bmBitsPixel = 32;
    std::memcpy(result, &description, sizeof(description));
    return static_cast<int>(sizeof(description));
}
