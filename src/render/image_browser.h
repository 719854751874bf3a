// The view of marquees: one column of tiles along the left of the screen as its player sees it, the selected
// one ringed. Called by drawScreen, which fills the other side afterwards. It keeps a page of tiles in
// scratchDC, so that moving the selection inside the page reads no file, and moves topIndex by whole pages.
#pragma once

#include "platform/types.h"
#include "render/turns.h"

// Draws the column over the whole area, the frame less the status bar, which is not changed. The bitmap is
// the one selected in the device context. Always 1.
int drawImageBrowser(HDC dc, HBITMAP bitmap, const RECT* area);

enum class PictureHalf { Upper, Lower };

// The place of a picture on a turned screen: at the edge of the area that is opposite to the column, in the
// upper or lower half as the player reads it. It covers tiles only where it is larger than what they leave
// free. Not for a screen at 0, whose pictures have places of their own.
TurnedPlace turnedPicturePlace(const RECT& area, PictureHalf which);
