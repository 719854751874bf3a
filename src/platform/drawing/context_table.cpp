// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing/context_table.h"

#include "platform/base/handle_table.h"
#include "platform/drawing/object_table.h"

namespace {

constexpr unsigned deviceContextHandleKind = 2;

// Far above normal use, so that a leak of device contexts fails here before it exhausts memory.
constexpr std::size_t maxContextCount = 10000;

HandleTable<DeviceContext>& contexts() {
    static HandleTable<DeviceContext> table(deviceContextHandleKind);
    return table;
}

std::uintptr_t numberOf(HDC dc) {
    return reinterpret_cast<std::uintptr_t>(dc);
}

} // namespace

HDC addContext(HGDIOBJ bitmap, Surface* surface) {
    if (contexts().size() >= maxContextCount) {
        return nullptr;
    }
    auto context = std::make_unique<DeviceContext>();
    context->surface = surface;
    context->bitmap = bitmap;
    context->brush = stockObject(Stock::whiteBrush);
    context->pen = stockObject(Stock::blackPen);
    context->font = stockObject(Stock::systemFont);
    for (HGDIOBJ object : {context->bitmap, context->brush, context->pen, context->font}) {
        retainObject(object);
    }
    return reinterpret_cast<HDC>(contexts().insert(std::move(context)));
}

void removeContext(HDC dc) {
    const std::unique_ptr<DeviceContext> context = contexts().remove(numberOf(dc));
    for (HGDIOBJ object : {context->bitmap, context->brush, context->pen, context->font}) {
        releaseObject(object);
    }
}

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
