// The description of a font. Filled by whoever makes or lists fonts through text.h and font_list.h, and read
// where fonts are found and loaded.
#pragma once

#include "platform/types.h"

struct LOGFONTA {
    LONG lfHeight;      // negative: the em height in pixels; positive: the cell height; 0: a default size
    LONG lfWidth;       // not used
    LONG lfEscapement;  // tenths of a degree, counter-clockwise; rounded to a quarter turn
    LONG lfOrientation; // not used: glyphs always follow the escapement
    LONG lfWeight;      // 0 for any, 400 regular, 700 bold, 800 extra bold
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    char lfFaceName[32];
};
static_assert(sizeof(LOGFONTA) == 60);
