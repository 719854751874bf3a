#include "platform/drawing/device_context.h"

#include "platform/base/handle_table.h"
#include "platform/drawing/gdi_objects.h"

namespace {

constexpr unsigned deviceContextHandleKind = 2;

// As for objects: a limit that only a program that forgets to delete can reach.
constexpr std::size_t largestContextCount = 10000;

HandleTable<DeviceContext>& contexts() {
    static HandleTable<DeviceContext> table(deviceContextHandleKind);
    return table;
}

std::uintptr_t numberOf(HDC dc) {
    return reinterpret_cast<std::uintptr_t>(dc);
}

// Adds a context that draws into the bitmap, or into the surface when the bitmap is null.
HDC addContext(HGDIOBJ bitmap, Surface* surface) {
    if (contexts().size() >= largestContextCount) {
        return nullptr;
    }
    auto context = std::make_unique<DeviceContext>();
    context->surface = surface;
    context->bitmap = bitmap;
    context->brush = stockObject(Stock::WhiteBrush);
    context->pen = stockObject(Stock::BlackPen);
    context->font = stockObject(Stock::SystemFont);
    for (HGDIOBJ object : {context->bitmap, context->brush, context->pen, context->font}) {
        holdObject(object);
    }
    return reinterpret_cast<HDC>(contexts().insert(std::move(context)));
}

void removeContext(HDC dc) {
    const std::unique_ptr<DeviceContext> context = contexts().remove(numberOf(dc));
    for (HGDIOBJ object : {context->bitmap, context->brush, context->pen, context->font}) {
        letGoObject(object);
    }
}

// Whether the context may take the bitmap: a bitmap that others draw into at the same time is shared by
// nobody, but the stock bitmap that every new context holds is.
bool mayTakeBitmap(const DeviceContext& context, HGDIOBJ handle, const GdiObject& bitmap) {
    return context.bitmap && (bitmap.stock || bitmap.selections == 0 || context.bitmap == handle);
}

} // namespace

DeviceContext* findDeviceContext(HDC dc) {
    return contexts().find(numberOf(dc));
}

FontObject* selectedFont(const DeviceContext& context) {
    auto& font = std::get<std::unique_ptr<FontObject>>(findSelected(context.font)->content);
    if (!font) {
        font = loadFont(LOGFONTA{});
    }
    return font.get();
}

HDC createSurfaceDC(Surface* surface) {
    return surface ? addContext(nullptr, surface) : nullptr;
}

bool deleteSurfaceDC(HDC dc) {
    const DeviceContext* context = findDeviceContext(dc);
    if (!context || context->bitmap) {
        return false;
    }
    removeContext(dc);
    return true;
}

HDC CreateCompatibleDC(HDC) {
    HGDIOBJ bitmap = stockObject(Stock::Bitmap);
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
        if (!mayTakeBitmap(*context, handle, *object)) {
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
    holdObject(handle);
    HGDIOBJ former = std::exchange(*place, handle);
    letGoObject(former);
    return former;
}
