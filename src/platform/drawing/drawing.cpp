// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing.h"

#include "platform/drawing/context_table.h"
#include "platform/drawing/object_table.h"
#include "platform/drawing/turned_copy.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>

namespace {

// One axis of a copy, in pixels: its start in the target and in the source, and its length.
struct Span {
    std::int64_t target = 0;
    std::int64_t source = 0;
    std::int64_t length = 0;
};

// Clips a span to the sizes of both surfaces.
Span clip(Span span, std::int64_t targetSize, std::int64_t sourceSize) {
    const std::int64_t skipped = std::max({std::int64_t{0}, -span.target, -span.source});
    span.target += skipped;
    span.source += skipped;
    span.length = std::min({span.length - skipped, targetSize - span.target, sourceSize - span.source});
    return span;
}

// On an overlapping copy downwards the rows are copied from the last to the first, so that no source row is
// overwritten before it is read; memmove does the same within a row.
void copyRows(Surface& target, const Surface& source, const Span& across, const Span& down) {
    const bool lastRowFirst = down.target > down.source;
    for (std::int64_t i = 0; i < down.length; ++i) {
        const std::int64_t line = lastRowFirst ? down.length - 1 - i : i;
        std::memmove(target.row(static_cast<int>(down.target + line)) + across.target,
                     source.row(static_cast<int>(down.source + line)) + across.source,
                     static_cast<std::size_t>(across.length) * sizeof(std::uint32_t));
    }
    target.changed = true;
}

bool isWithin(const Surface& surface, int x, int y, int width, int height) {
    return x >= 0 && y >= 0 && width > 0 && height > 0 && width <= surface.width - x &&
           height <= surface.height - y;
}

// A vector in the target, in pixels.
struct Step {
    std::int64_t x;
    std::int64_t y;
    bool operator==(const Step&) const = default;
};

Step stepBetween(const POINT& from, const POINT& to) {
    return {std::int64_t{to.x} - from.x, std::int64_t{to.y} - from.y};
}

// The clockwise rotation that moves the sides of a rectangle of this size to the given ones.
std::optional<int> rotationOf(const Step& across, const Step& down, int width, int height) {
    const auto isTurn = [&](int cosine, int sine) {
        return across == Step{std::int64_t{width} * cosine, std::int64_t{width} * sine} &&
               down == Step{std::int64_t{-height} * sine, std::int64_t{height} * cosine};
    };
    return isTurn(1, 0)    ? std::optional(0)
           : isTurn(0, 1)  ? std::optional(90)
           : isTurn(-1, 0) ? std::optional(180)
           : isTurn(0, -1) ? std::optional(-90)
                           : std::nullopt;
}

} // namespace

int FillRect(HDC dc, const RECT* rect, HBRUSH brush) {
    DeviceContext* context = findDeviceContext(dc);
    const GdiObject* object = findObject(brush);
    const COLORREF* color = object ? std::get_if<COLORREF>(&object->content) : nullptr;
    if (!context || !color || !rect) {
        return 0;
    }
    context->surface->fill({rect->left, rect->top, rect->right, rect->bottom}, pixelOf(*color));
    return 1;
}

BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation) {
    DeviceContext* targetContext = findDeviceContext(target);
    const DeviceContext* sourceContext = findDeviceContext(source);
    if (!targetContext || !sourceContext || operation != SRCCOPY) {
        return FALSE;
    }
    Surface& to = *targetContext->surface;
    const Surface& from = *sourceContext->surface;
    const Span across = clip({x, sourceX, width}, to.width, from.width);
    const Span down = clip({y, sourceY, height}, to.height, from.height);
    if (across.length > 0 && down.length > 0) {
        copyRows(to, from, across, down);
    }
    return TRUE;
}

BOOL PlgBlt(HDC target, const POINT* corners, HDC source, int sourceX, int sourceY, int width, int height,
            HBITMAP mask, int, int) {
    const DeviceContext* targetContext = findDeviceContext(target);
    const DeviceContext* sourceContext = findDeviceContext(source);
    if (!targetContext || !sourceContext || mask || targetContext->surface == sourceContext->surface) {
        return FALSE;
    }
    const Surface& from = *sourceContext->surface;
    if (!isWithin(from, sourceX, sourceY, width, height)) {
        return FALSE;
    }
    const Step across = stepBetween(corners[0], corners[1]);
    const Step down = stepBetween(corners[0], corners[2]);
    const std::optional<int> rotation = rotationOf(across, down, width, height);
    if (!rotation) {
        return FALSE;
    }
    copyTurned({from.row(sourceY) + sourceX, width, height, from.width}, *rotation, *targetContext->surface,
               corners[0].x + std::min<std::int64_t>(across.x + down.x, 0),
               corners[0].y + std::min<std::int64_t>(across.y + down.y, 0));
    return TRUE;
}

int MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) {
        return -1;
    }
    const std::int64_t product = static_cast<std::int64_t>(number) * numerator;
    const std::int64_t divisor = std::abs(static_cast<std::int64_t>(denominator));
    const std::int64_t magnitude = (std::abs(product) + divisor / 2) / divisor;
    const std::int64_t result = (product < 0) != (denominator < 0) ? -magnitude : magnitude;
    const bool fits = result >= std::numeric_limits<int>::min() && result <= std::numeric_limits<int>::max();
    return fits ? static_cast<int>(result) : -1;
}
