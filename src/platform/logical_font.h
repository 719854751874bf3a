// SPDX-License-Identifier: GPL-3.0-or-later
// The Win32 description of a font: input of CreateFontIndirectA (text.h) and output of EnumFontFamiliesExA
// (font_list.h).
#pragma once

#include "platform/types.h"

struct LOGFONTA {
    LONG lfHeight;      // pixels; negative: em height, positive: cell height, 0: default size
    LONG lfWidth;       // ignored
    LONG lfEscapement;  // tenths of a degree counter-clockwise, rounded to a multiple of 900
    LONG lfOrientation; // ignored: glyphs always follow the escapement
    LONG lfWeight;      // 1 to 1000: 400 regular, 700 bold; 0 means regular
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
