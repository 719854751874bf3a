// SPDX-License-Identifier: GPL-3.0-or-later
// The frame that Layout=Turned shows without visible games: that there is none, why, and which control opens
// the options menu.
#pragma once

#include "platform/types.h"

// Draws the message into a device context whose bitmap has the size of the frame, as read at the current
// rotation, in the font and colours of the list.
void drawEmptyFrame(HDC dc, SIZE frame);
