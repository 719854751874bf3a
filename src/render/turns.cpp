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

// Puts the corners of a rectangle that was turned clockwise by the rotation in order again.
void swapReversedSides(RECT& rect, std::int32_t rotation) {
    if (rotation == 90 || rotation == 180) {
        std::swap(rect.left, rect.right);
    }
    if (rotation == -90 || rotation == 180) {
        std::swap(rect.top, rect.bottom);
    }
}

// The start of a run of the given length around a centre, held between two limits. The lower one prevails.
LONG placeWithin(LONG centre, LONG length, LONG lowest, LONG highest) {
    return std::max(std::min(centre - length / 2, highest - length), lowest);
}

} // namespace

SIZE sizeAsRead(const RECT& room) {
    const SIZE size{widthOf(room), heightOf(room)};
    return isQuarterTurn(settings.orientation) ? SIZE{size.cy, size.cx} : size;
}

RECT turnedRect(const RECT& room, const RECT& read) {
    RECT rect = read;
    rotatePoint(rect.left, rect.top, widthOf(room), heightOf(room));
    rotatePoint(rect.right, rect.bottom, widthOf(room), heightOf(room));
    swapReversedSides(rect, settings.orientation);
    return {rect.left + room.left, rect.top + room.top, rect.right + room.left, rect.bottom + room.top};
}

RECT rectAsRead(const RECT& room, const RECT& rect) {
    RECT read{rect.left - room.left, rect.top - room.top, rect.right - room.left, rect.bottom - room.top};
    rotatePointBack(read.left, read.top, widthOf(room), heightOf(room));
    rotatePointBack(read.right, read.bottom, widthOf(room), heightOf(room));
    swapReversedSides(read, oppositeRotation(settings.orientation));
    return read;
}

RECT placeTurned(const TurnedPlace& place, const SIZE& size) {
    const SIZE read = sizeAsRead({0, 0, size.cx, size.cy});
    const LONG left = placeWithin(place.centre.x, read.cx, place.bounds.left, place.bounds.right);
    const LONG top = placeWithin(place.centre.y, read.cy, place.bounds.top, place.bounds.bottom);
    return turnedRect(place.room, {left, top, left + read.cx, top + read.cy});
}
