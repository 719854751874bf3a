// The frame as its player reads it at the rotation in force. Views and status bar lay their rectangles out as
// on an unturned screen, and these functions map them to the frame. Called by all that is drawn into the
// frame; they hold no state and draw nothing.
//
// Coordinates "as read" are pixels within a rectangle of the frame, the room: x runs along the text, y from
// line to line, and (0, 0) is the corner of the room at which reading starts. At 0 only the origin differs.
#pragma once

#include "platform/types.h"

// Length of a line and height of the column of lines in a room.
SIZE sizeAsRead(const RECT& room);

// The rectangle of the frame that the player reads at the given place of the room.
RECT turnedRect(const RECT& room, const RECT& read);

// The opposite: how the player reads a rectangle of the frame.
RECT rectAsRead(const RECT& room, const RECT& rect);

// Where a picture lies on a turned screen: centred on a point, then moved by as little as brings it into its
// bounds. One that is larger keeps to their left and upper side.
struct TurnedPlace {
    RECT room;
    POINT centre; // as read
    RECT bounds;  // as read
};

// The rectangle of the frame for a picture of that size in the frame.
RECT placeTurned(const TurnedPlace& place, const SIZE& size);
