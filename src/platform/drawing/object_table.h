// Bitmaps, brushes, pens and fonts behind their handles: how they are made, counted while selected, and
// ended. Three rules carry them: a count of selections, deletion that waits for it, stock objects that
// survive it. Called by the device contexts and the drawing operations, inside the platform only; it knows
// nothing of contexts or of drawing.
#pragma once

#include "platform/drawing/surface.h"
#include "platform/fonts/fonts.h"

#include <memory>
#include <variant>

struct HollowBrush {};

struct Pen {
    int width = 1; // pixels, at least 1
    COLORREF color = 0;
};

struct GdiObject {
    // A bitmap, the colour of a brush, a brush that fills nothing, a pen, or a font. The font is null only in
    // the system font before its first use and on a machine without fonts.
    std::variant<Surface, COLORREF, HollowBrush, Pen, std::unique_ptr<FontObject>> content;
    int selections = 0; // device contexts that have it selected
    bool stock = false;
    bool deleted = false; // DeleteObject came while it was selected
};

enum class Stock { Bitmap, BlackBrush, WhiteBrush, BlackPen, SystemFont };

// Shared objects that live as long as the program: a 1x1 bitmap, two brushes, and the pen and font of a new
// device context.
HGDIOBJ stockObject(Stock which);

// The object behind a handle, or null. One that was deleted while selected is given only by findSelected.
GdiObject* findObject(HGDIOBJ handle);
GdiObject* findSelected(HGDIOBJ handle);

// As DeleteObject. False when there is no such object.
bool deleteObject(HGDIOBJ handle);

// Counts a selection in and out. Letting go of the last selection of a deleted object ends it.
void holdObject(HGDIOBJ handle);
void letGoObject(HGDIOBJ handle);

// Makes an object, owned by the handle; null when there are too many objects, and for a bitmap without
// memory.
HBITMAP addBitmap(int width, int height);
HBRUSH addBrush(COLORREF color);
HPEN addPen(const Pen& pen);
HBRUSH addHollowBrush();

// Makes a font an object of its own, owned by the handle; null for a null font.
HFONT adoptFont(std::unique_ptr<FontObject> font);

// Objects that live, those of the stock included. Constant after balanced use: the tests look for leaks with
// it.
std::size_t liveObjectCount();
