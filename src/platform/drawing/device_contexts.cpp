// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/device_contexts.h"

#include "platform/drawing/context_table.h"
#include "platform/drawing/object_table.h"

#include <utility>

namespace {

constexpr COLORREF invalidColor = 0xFFFFFFFF;

// A bitmap can be selected in one memory device context at a time, except the stock bitmap, which is selected
// in every new one.
bool canSelectBitmap(const DeviceContext& context, HGDIOBJ handle, const GdiObject& bitmap) {
    return context.bitmap && (bitmap.stock || bitmap.selections == 0 || context.bitmap == handle);
}

} // namespace

HDC CreateCompatibleDC(HDC) {
    HGDIOBJ bitmap = stockObject(Stock::bitmap);
    return addContext(bitmap, std::get_if<Surface>(&findObject(bitmap)->content));
}

BOOL DeleteDC(HDC dc) {
    const DeviceContext* context = findDeviceContext(dc);
    if (!context || !context->bitmap) {
        return FALSE;
    }
    removeContext(dc);
    return TRUE;
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ handle) {
    DeviceContext* context = findDeviceContext(dc);
    GdiObject* object = findObject(handle);
    if (!context || !object) {
        return nullptr;
    }
    HGDIOBJ* place = &context->font;
    if (Surface* surface = std::get_if<Surface>(&object->content)) {
        if (!canSelectBitmap(*context, handle, *object)) {
            return nullptr;
        }
        context->surface = surface;
        place = &context->bitmap;
    } else if (std::holds_alternative<COLORREF>(object->content) ||
               std::holds_alternative<HollowBrush>(object->content)) {
        place = &context->brush;
    } else if (std::holds_alternative<Pen>(object->content)) {
        place = &context->pen;
    }
    retainObject(handle);
    HGDIOBJ former = std::exchange(*place, handle);
    releaseObject(former);
    return former;
}

int GetDeviceCaps(HDC dc, int index) {
    return findDeviceContext(dc) && index == LOGPIXELSY ? 96 : 0;
}

COLORREF SetTextColor(HDC dc, COLORREF color) {
    DeviceContext* context = findDeviceContext(dc);
    return context ? std::exchange(context->textColor, color) : invalidColor;
}

COLORREF SetBkColor(HDC dc, COLORREF color) {
    DeviceContext* context = findDeviceContext(dc);
    return context ? std::exchange(context->backgroundColor, color) : invalidColor;
}

int SetBkMode(HDC dc, int mode) {
    DeviceContext* context = findDeviceContext(dc);
    return context && (mode == TRANSPARENT || mode == OPAQUE) ? std::exchange(context->backgroundMode, mode)
                                                              : 0;
}
