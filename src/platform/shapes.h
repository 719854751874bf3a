// SPDX-License-Identifier: GPL-3.0-or-later
// Pens, brushes by description, and rounded rectangles. Called by the image browser for the ring around the
// selected tile. Pens and brushes are selected with device_contexts.h and deleted with drawing_objects.h.
#pragma once

#include "platform/types.h"

constexpr int PS_SOLID = 0;
constexpr UINT BS_SOLID = 0;
constexpr UINT BS_HOLLOW = 1;

struct LOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    std::uintptr_t lbHatch;
};

// Creates a solid pen, owned by the caller. The width is in pixels; 0 means 1. Returns null for a style other
// than PS_SOLID or a negative width.
HPEN CreatePen(int style, int width, COLORREF color);

// Creates a BS_SOLID brush, or a BS_HOLLOW one, which fills nothing. The caller owns it. Returns null for any
// other style.
HBRUSH CreateBrushIndirect(const LOGBRUSH* description);

// Draws a rectangle with rounded corners, filled with the selected brush and outlined with the selected pen.
// left/right and top/bottom may be swapped; the larger one is exclusive. The outline is centred on the
// outermost pixels of the rectangle, so half of a wide pen falls outside. The corners are quarters of an
// ellipse of the given width and height. An empty rectangle draws nothing. Returns FALSE for a bad handle.
BOOL RoundRect(HDC dc, int left, int top, int right, int bottom, int ellipseWidth, int ellipseHeight);
