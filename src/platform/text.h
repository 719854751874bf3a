// SPDX-License-Identifier: GPL-3.0-or-later
// Fonts, text output and text metrics. Called by everything that draws text. Text is 8-bit in Windows code
// page 1252 and is mapped to glyphs byte by byte, without shaping or kerning. Each call handles one line;
// wrapping is left to the caller.
#pragma once

#include "platform/logical_font.h"
#include "platform/types.h"

// Win32 text metrics, in pixels. Only tmHeight, tmAscent, tmDescent, tmInternalLeading, tmExternalLeading and
// tmWeight are filled in; the other fields are 0.
struct TEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};

// Creates a font, which the caller deletes with DeleteObject. The face name is matched case-insensitively
// against family and full names; a face that is not installed is replaced by a metric-compatible one. A bold
// or slanted style that the face lacks is synthesised. Returns null when no usable font is installed or the
// absolute height exceeds 4096 pixels.
HFONT CreateFontIndirectA(const LOGFONTA* description);

// Retrieves the metrics of the selected font. They do not depend on the escapement. The height is the ascent
// plus the descent from the font's OS/2 table; the external leading is the part of the hhea line spacing that
// exceeds it. Returns FALSE for a bad handle.
BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);

// Measures `length` bytes of text in the selected font: cx is the sum of the advances, cy the font height.
// They do not depend on the escapement. Returns FALSE for a bad handle or a negative length.
BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, int length, SIZE* size);

// Draws `length` bytes of text in the text colour, clipped to the surface. (x, y) is the top left corner of
// the unrotated text cell, which the escapement rotates about that point. In OPAQUE mode the cell is filled
// with the background colour first. Returns FALSE for a bad handle or a negative length.
BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int length);
