// SPDX-License-Identifier: GPL-3.0-or-later
// The table of drawing objects: it owns bitmaps, brushes, pens and fonts, looked up by handle. Objects are
// reference-counted by the device contexts that have them selected: a deleted object is destroyed when that
// count reaches 0, a stock object never. Called by the device contexts and the drawing operations, inside the
// platform only.
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
    // A bitmap, a solid brush (its colour), a hollow brush, a pen, or a font. The font is null only in the
    // system font, which is loaded on first use, and stays null if no font is installed.
    std::variant<Surface, COLORREF, HollowBrush, Pen, std::unique_ptr<FontObject>> content;
    int selections = 0; // device contexts that have it selected
    bool stock = false;
    bool deleted = false; // DeleteObject was called while it was selected
};

enum class Stock { bitmap, blackBrush, whiteBrush, blackPen, systemFont };

// Returns a shared object that exists until the program ends: a 1x1 bitmap, a brush, or the pen or font of a
// new device context.
HGDIOBJ stockObject(Stock which);

// Return the object of a handle, or null for a bad handle. findSelected also returns objects that were
// deleted while selected.
GdiObject* findObject(HGDIOBJ handle);
GdiObject* findSelected(HGDIOBJ handle);

// Deletes an object by the rules of DeleteObject. Returns false for a bad handle.
bool deleteObject(HGDIOBJ handle);

// Increments and decrements the selection count. releaseObject destroys a deleted object at count 0.
void retainObject(HGDIOBJ handle);
void releaseObject(HGDIOBJ handle);

// Create an object, owned by the table until it is deleted. Return null if 10,000 objects exist; addBitmap
// also for a size that Surface::resize refuses.
HBITMAP addBitmap(int width, int height);
HBRUSH addBrush(COLORREF color);
HPEN addPen(const Pen& pen);
HBRUSH addHollowBrush();

// Adds a font to the table, which takes ownership. Returns null for a null font or if 10,000 objects exist.
HFONT addFont(std::unique_ptr<FontObject> font);

// Returns the number of existing objects, including stock objects. Used by the tests to detect leaks.
std::size_t liveObjectCount();
