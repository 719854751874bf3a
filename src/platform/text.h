// Fonts, text and its metrics. Called by everything that draws
// text. Text is 8-bit, in the Windows code page 1252, and
// becomes glyphs here only; one line at a time, without shaping.
#pragma once

#include "platform/logical_font.h"
#include "platform/types.h"

// The documented record; tmHeight, tmAscent, tmDescent, tmInternalLeading, tmExternalLeading and tmWeight are
// filled, the rest is 0.
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

// A font, owned by the caller. The face name is matched as family or full name, without regard to case; a
// face that is not installed gets a metric-compatible one. A weight or slant that the face lacks is made from
// it. Null when the machine has no usable font at all or the height is absurd (above 4096 pixels).
HFONT CreateFontIndirectA(const LOGFONTA* description);

// Metrics of the selected font along its own axes, the same at every escapement: the height is ascent plus
// descent of the font's OS/2 table, the external leading what its hhea table asks for beyond that. FALSE on a
// bad handle.
BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);

// Width (sum of the advances) and height of `length` bytes of text in the selected font, along its own axes.
// FALSE on a bad handle or a negative length.
BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, int length, SIZE* size);

// Draws `length` bytes of text in the text colour. (x, y) is the top left corner of the text cell along the
// text's own axes, at every escapement. With OPAQUE the cell is filled with the background colour first. Cut
// to the surface.
BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int length);
