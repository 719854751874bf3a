// SPDX-License-Identifier: GPL-3.0-or-later
// Maps rectangles between the frame and the screen as the player reads it at the current rotation. The views
// and the status bar compute their layout as read, as if the screen were not turned, and map it to the frame
// with these functions. Stateless; draws nothing.
//
// Coordinates "as read" are pixels relative to an area of the frame: x runs along a line of text, y from line
// to line, and (0, 0) is the corner of the area where reading starts. At rotation 0 they differ from frame
// coordinates only by the origin.
#pragma once

#include "platform/types.h"

// Size of an area as read: cx is the length of a line.
SIZE sizeAsRead(const RECT& area);

// Maps a rectangle as read to the frame.
RECT turnedRect(const RECT& area, const RECT& read);

// Maps a rectangle of the frame to coordinates as read; the inverse of turnedRect.
RECT rectAsRead(const RECT& area, const RECT& rect);

// Position of a picture on a turned screen: centred on a point, then moved by the shortest distance into the
// bounds. A picture larger than the bounds is aligned with their left or top side.
struct PicturePlacement {
    RECT area;    // of the frame
    POINT centre; // as read
    RECT bounds;  // as read
};

// Returns the frame rectangle of a picture whose size is given in frame coordinates.
RECT placePicture(const PicturePlacement& placement, const SIZE& size);
