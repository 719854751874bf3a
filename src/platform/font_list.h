// The list of installed fonts. Called by the options menu, each time it
// opens. What the machine knows of its fonts is nearly always enough; a
// font that may hold symbols in the places of letters is opened once a run.
// Fonts are made by platform/text.h, which takes these names.
#pragma once

#include "platform/text.h"

constexpr BYTE ANSI_CHARSET = 0;
constexpr DWORD TRUETYPE_FONTTYPE = 4;

// One face. The full name, in code page 1252 and cut to its field, is unique; style and script are empty.
struct ENUMLOGFONTEXA {
    LOGFONTA elfLogFont; // the face name is the head of the full name, which CreateFontIndirectA finds
    BYTE elfFullName[64];
    BYTE elfStyle[32];
    BYTE elfScript[32];
};
static_assert(sizeof(ENUMLOGFONTEXA) == 188);

// The first argument is the elfLogFont of an ENUMLOGFONTEXA; both records live for the call only. 0 ends the
// enumeration.
using FONTENUMPROCA = int (*)(const LOGFONTA* font, const TEXTMETRICA* metrics, DWORD type, LPARAM data);

// Calls the function for each TrueType or OpenType face that has the Latin letters, in no particular order,
// with the type TRUETYPE_FONTTYPE and metrics that are all 0. The faces that no program for this interface
// does without (Arial, Courier New, Times New Roman) are always among them while there is any font: where one
// is missing, the font that CreateFontIndirectA makes in its place goes by that name. Gives the last result
// of the function, 1 when it was never called. The description must ask for ANSI_CHARSET with no face name;
// the device context is not looked at and flags must be 0.
int EnumFontFamiliesExA(HDC dc, const LOGFONTA* description, FONTENUMPROCA function, LPARAM data,
                        DWORD flags);
