// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/turns.h"

#include "config/settings.h"
#include "render/primitives.h"

#include <algorithm>
#include <utility>

namespace {

LONG widthOf(const RECT& rect) {
    return rect.right - rect.left;
}

LONG heightOf(const RECT& rect) {
    return rect.bottom - rect.top;
}

// Restores left <= right and top <= bottom in a rectangle whose corners were turned clockwise by the
// rotation.
void normalize(RECT& rect, std::int32_t rotation) {
    if (rotation == 90 || rotation == 180) {
        std::swap(rect.left, rect.right);
    }
    if (rotation == -90 || rotation == 180) {
        std::swap(rect.top, rect.bottom);
    }
}

// Returns the start of an interval of the given length around a centre, limited to the range from lowest to
// highest. An interval longer than the range starts at lowest.
LONG centreWithin(LONG centre, LONG length, LONG lowest, LONG highest) {
    return std::max(std::min(centre - length / 2, highest - length), lowest);
}

} // namespace

SIZE sizeAsRead(const RECT& area) {
    const SIZE size{widthOf(area), heightOf(area)};
    return isQuarterTurn(settings.orientation) ? SIZE{size.cy, size.cx} : size;
}

RECT turnedRect(const RECT& area, const RECT& read) {
    RECT rect = read;
    rotatePoint(rect.left, rect.top, widthOf(area), heightOf(area));
    rotatePoint(rect.right, rect.bottom, widthOf(area), heightOf(area));
    normalize(rect, settings.orientation);
    return {rect.left + area.left, rect.top + area.top, rect.right + area.left, rect.bottom + area.top};
}

RECT rectAsRead(const RECT& area, const RECT& rect) {
    RECT read{rect.left - area.left, rect.top - area.top, rect.right - area.left, rect.bottom - area.top};
    rotatePointBack(read.left, read.top, widthOf(area), heightOf(area));
    rotatePointBack(read.right, read.bottom, widthOf(area), heightOf(area));
    normalize(read, oppositeRotation(settings.orientation));
    return read;
}

RECT placePicture(const PicturePlacement& placement, const SIZE& size) {
    const SIZE read = sizeAsRead({0, 0, size.cx, size.cy});
    const LONG left =
        centreWithin(placement.centre.x, read.cx, placement.bounds.left, placement.bounds.right);
    const LONG top = centreWithin(placement.centre.y, read.cy, placement.bounds.top, placement.bounds.bottom);
    return turnedRect(placement.area, {left, top, left + read.cx, top + read.cy});
}
