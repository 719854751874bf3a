// The small tools on which all drawing rests: fonts at any rotation, measuring text, counting what fits, and
// mapping points to the rotation in force. Called by the views, the overlay windows and the tick. They hold
// no state; a device context is the caller's and is only selected into.
#pragma once

#include "platform/types.h"

#include <cstdint>

// Pixels between a text and the edge at which its line begins or ends: titles, status bar, menu and scroller.
constexpr std::int32_t textMargin = 6;

// Makes a font of the size in points, turned clockwise by the rotation (0, 90, -90 or 180 degrees), extra
// bold and italic with emphasis, selects it and deletes the one that it replaces: a device context that goes
// through here holds one such font at a time. 0, with the former font kept, when the font cannot be made.
int selectFont(HDC dc, const char* faceName, std::int32_t points, std::int32_t rotation, int emphasis);

// Line height in pixels of the selected font, along its own axes at every rotation; a message box and 0 on
// failure.
std::int32_t textHeight(HDC dc);

// Width in pixels of the text, along its own axes; a message box and 0 on failure.
std::int32_t textWidth(HDC dc, const char* text);

// Whole text lines of the selected font that fit the height, or the width when the screen is turned by a
// quarter, less the reserved pixels. Zero or negative when there is no room.
std::int32_t linesThatFit(HDC dc, std::int32_t width, std::int32_t height, std::int32_t reserved);

// Tiles of the image browser's column after the first that fit the height, or the width when the screen is
// turned by a quarter, less the reserved pixels. Zero or negative when there is no room.
std::int32_t tileRows(std::int32_t width, std::int32_t height, std::int32_t reserved);

// The setting previewModeSpacer within the sizes that a frame can have: it comes from the ini file as it is.
std::int32_t tileSpacer();

// Turns a point of a surface of the given size to the rotation in force: the point that was drawn at (x, y)
// at 0. The corners of a rectangle come out in reversed order.
void rotatePoint(std::int32_t& x, std::int32_t& y, std::int32_t width, std::int32_t height);

// Undoes rotatePoint on the same surface.
void rotatePointBack(std::int32_t& x, std::int32_t& y, std::int32_t width, std::int32_t height);

// True at 90 and -90.
bool isQuarterTurn(std::int32_t rotation);

// The rotation that turns back.
std::int32_t oppositeRotation(std::int32_t rotation);

// The point of a rectangle at which text of the rotation in force begins: `along` pixels in from the edge at
// which reading starts, and `across` pixels in from the edge that is the top of the line.
POINT textOrigin(const RECT& rect, std::int32_t along, std::int32_t across);

// Fills a rectangle with one colour.
void fillRect(HDC dc, const RECT& rect, COLORREF color);

// Draws a zero-terminated text.
void drawText(HDC dc, POINT origin, const char* text);
