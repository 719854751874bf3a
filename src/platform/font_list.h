// SPDX-License-Identifier: GPL-3.0-or-later
// The list of installed fonts. Called by the options menu each time it opens, so the list is built from
// fontconfig's data where possible; only a font that may be a symbol font is opened, once per run. The names
// are valid face names for CreateFontIndirectA (text.h), which creates the fonts.
#pragma once

#include "platform/text.h"

constexpr BYTE ANSI_CHARSET = 0;
constexpr DWORD TRUETYPE_FONTTYPE = 4;

// One face. The full name is unique, in code page 1252, and truncated to 63 bytes. Style and script are
// empty.
struct ENUMLOGFONTEXA {
    LOGFONTA elfLogFont; // lfFaceName is the full name, truncated to 31 bytes
    BYTE elfFullName[64];
    BYTE elfStyle[32];
    BYTE elfScript[32];
};
static_assert(sizeof(ENUMLOGFONTEXA) == 188);

// `font` is the elfLogFont of an ENUMLOGFONTEXA. Both records are valid during the call only. Returning 0
// stops the enumeration.
using FONTENUMPROCA = int (*)(const LOGFONTA* font, const TEXTMETRICA* metrics, DWORD type, LPARAM data);

// Calls `function` for each TrueType or OpenType face that contains the Latin letters, in unspecified order,
// with the type TRUETYPE_FONTTYPE and all metrics 0. If any such face is installed, the list also contains
// Arial, Courier New and Times New Roman, which Windows programs rely on, even where CreateFontIndirectA
// substitutes another font for them. `description` must specify ANSI_CHARSET and an empty face name,
// otherwise nothing is enumerated; `dc` and `flags` are ignored. Returns the last result of `function`, or 1
// if it was not called.
int EnumFontFamiliesExA(HDC dc, const LOGFONTA* description, FONTENUMPROCA function, LPARAM data,
                        DWORD flags);
