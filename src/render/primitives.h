// SPDX-License-Identifier: GPL-3.0-or-later
// Drawing primitives: selecting fonts at any rotation, measuring text, counting lines and tiles that fit, and
// mapping points to the current rotation. Called by the views, the overlay windows and the tick. Stateless;
// device contexts belong to the caller.
#pragma once

#include "platform/types.h"

#include <cstdint>
#include <string>

// Pixels between a text and the start or end of its line in titles, status bar, menu and scroller.
constexpr std::int32_t textMargin = 6;

// Creates and selects a font of the given size in points, turned clockwise by the rotation (0, 90, -90 or 180
// degrees), extra bold and italic if emphasis is not 0. Deletes the font it replaces. Returns 0 and keeps the
// old font when the new one cannot be created.
int selectFont(HDC dc, const char* faceName, std::int32_t points, std::int32_t rotation, int emphasis);

// Returns the line height of the selected font in pixels, which does not depend on the rotation. On failure,
// shows a message box and returns 0.
std::int32_t textHeight(HDC dc);

// Returns the length of the text in pixels, which does not depend on the rotation. On failure, shows a
// message box and returns 0.
std::int32_t textWidth(HDC dc, const char* text);

// Returns the text if it is at most `width` pixels long in the selected font, else its longest beginning that
// fits with "..." after it, at least "...".
std::string shortenedText(HDC dc, const char* text, std::int32_t width);

// Returns the number of whole lines of the selected font that fit into the height (the width at 90 and -90)
// less the reserved pixels. Zero or negative when there is no space.
std::int32_t linesThatFit(HDC dc, std::int32_t width, std::int32_t height, std::int32_t reserved);

// Returns the number of tiles, not counting the first, that fit into the height (the width at 90 and -90) of
// the image browser less the reserved pixels. Zero or negative when there is no space.
std::int32_t tileRows(std::int32_t width, std::int32_t height, std::int32_t reserved);

// Returns the setting previewModeSpacer, which the ini file may set to any value, limited to 0 to 32767
// pixels.
std::int32_t tileSpacer();

// Maps a point as read, on a surface of the given size, to the surface at the current rotation. The mapped
// top left corner of a rectangle is in general no longer its top left corner.
void rotatePoint(std::int32_t& x, std::int32_t& y, std::int32_t width, std::int32_t height);

// The inverse of rotatePoint on the same surface.
void rotatePointBack(std::int32_t& x, std::int32_t& y, std::int32_t width, std::int32_t height);

// True at 90 and -90.
bool isQuarterTurn(std::int32_t rotation);

// Returns the rotation that undoes the given one.
std::int32_t oppositeRotation(std::int32_t rotation);

// Returns the point of a rectangle at which text of the current rotation begins: `along` pixels from the edge
// where the line starts and `across` pixels from the edge at the top of the line.
POINT textOrigin(const RECT& rect, std::int32_t along, std::int32_t across);

void fillRect(HDC dc, const RECT& rect, COLORREF color);

// Draws a zero-terminated text in the current font and colours.
void drawText(HDC dc, POINT origin, const char* text);
