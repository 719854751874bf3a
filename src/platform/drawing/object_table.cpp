// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing/object_table.h"

#include "platform/base/handle_table.h"

#include <array>

namespace {

constexpr unsigned objectHandleKind = 3;

// Far above normal use, so that a leak of objects fails here before it exhausts memory.
constexpr std::size_t maxObjectCount = 10000;

HandleTable<GdiObject>& objects() {
    static HandleTable<GdiObject> table(objectHandleKind);
    return table;
}

// A handle is a number cast to a pointer type; it is never dereferenced.
std::uintptr_t numberOf(HGDIOBJ handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

HGDIOBJ add(std::unique_ptr<GdiObject> object) {
    if (objects().size() >= maxObjectCount) {
        return nullptr;
    }
    return reinterpret_cast<HGDIOBJ>(objects().insert(std::move(object)));
}

// Content is that of a brush, a pen or a font.
template <typename Content> std::unique_ptr<GdiObject> objectOf(Content content) {
    auto object = std::make_unique<GdiObject>();
    object->content = std::move(content);
    return object;
}

std::unique_ptr<GdiObject> bitmapOf(int width, int height) {
    auto bitmap = std::make_unique<GdiObject>();
    return std::get<Surface>(bitmap->content).resize(width, height) ? std::move(bitmap) : nullptr;
}

HGDIOBJ addStock(std::unique_ptr<GdiObject> object) {
    object->stock = true;
    return add(std::move(object));
}

} // namespace

HGDIOBJ stockObject(Stock which) {
    static const std::array<HGDIOBJ, 5> handles = {
        addStock(bitmapOf(1, 1)),
        addStock(objectOf(COLORREF{0x000000})),
        addStock(objectOf(COLORREF{0xFFFFFF})),
        addStock(objectOf(Pen{})),
        addStock(objectOf(std::unique_ptr<FontObject>())),
    };
    return handles[static_cast<std::size_t>(which)];
}

GdiObject* findSelected(HGDIOBJ handle) {
    return objects().find(numberOf(handle));
}

GdiObject* findObject(HGDIOBJ handle) {
    GdiObject* object = findSelected(handle);
    return object && !object->deleted ? object : nullptr;
}

void retainObject(HGDIOBJ handle) {
    if (GdiObject* object = findSelected(handle)) {
        ++object->selections;
    }
}

void releaseObject(HGDIOBJ handle) {
    GdiObject* object = findSelected(handle);
    if (object && --object->selections == 0 && object->deleted) {
        objects().remove(numberOf(handle));
    }
}

std::size_t liveObjectCount() {
    return objects().size();
}

HFONT addFont(std::unique_ptr<FontObject> font) {
    return font ? reinterpret_cast<HFONT>(add(objectOf(std::move(font)))) : nullptr;
}

HPEN addPen(const Pen& pen) {
    return reinterpret_cast<HPEN>(add(objectOf(pen)));
}

HBRUSH addHollowBrush() {
    return reinterpret_cast<HBRUSH>(add(objectOf(HollowBrush{})));
}

HBITMAP addBitmap(int width, int height) {
    std::unique_ptr<GdiObject> bitmap = bitmapOf(width, height);
    return bitmap ? reinterpret_cast<HBITMAP>(add(std::move(bitmap))) : nullptr;
}

HBRUSH addBrush(COLORREF color) {
    return reinterpret_cast<HBRUSH>(add(objectOf(color)));
}

bool deleteObject(HGDIOBJ handle) {
    GdiObject* object = findObject(handle);
    if (!object) {
        return false;
    }
    if (object->stock) {
        return true;
    }
    if (object->selections > 0) {
        object->deleted = true;
    } else {
        objects().remove(numberOf(handle));
    }
    return true;
}
