// Pens, hollow brushes and the outlines that they draw. Called by the
// image browser for the ring around the selected tile. Pens and brushes
// are selected by device_contexts.h and deleted by drawing_objects.h.
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

// A pen of one colour, owned by the caller. A width of 0 is one pixel; null for any other style or a negative
// width.
HPEN CreatePen(int style, int width, COLORREF color);

// A brush, owned by the caller: BS_SOLID, or BS_HOLLOW, which fills nothing. Null for any other style.
HBRUSH CreateBrushIndirect(const LOGBRUSH* description);

// Draws a rectangle with rounded corners: the inside with the selected brush, the outline with the selected
// pen. The corners may come in any order; right and bottom lie just outside. The outline runs along the
// outermost pixels of the rectangle, and a wide pen lies half on either side of them. The corners are
// quarters of an ellipse of the given width and height. FALSE on a bad handle.
BOOL RoundRect(HDC dc, int left, int top, int right, int bottom, int ellipseWidth, int ellipseHeight);
