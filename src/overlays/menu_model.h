// SPDX-License-Identifier: GPL-3.0-or-later
// The data of a menu: its lines with their choices, and the list of installed fonts. options_menu.cpp builds
// the lines; menu_window.cpp shows them and changes `current`. Draws nothing and knows no settings.
#pragma once

#include "platform/types.h"

#include <cstdint>

// One line of a menu. All pointers are owned and allocated with malloc.
struct MenuItem {
    char* label;
    char** choices; // in the order in which the player steps through them
    std::int32_t choiceCount;
    std::int32_t current; // index of the choice shown, 0 to choiceCount - 1
    MenuItem** subItems;  // null for a line without a sub-menu
    std::int32_t subItemCount;
};

// The full names of the installed fonts, sorted by byte value. Valid between enumerateFonts and
// freeFontNames.
extern char** fontNames;
extern std::int32_t fontNameCount;

// Rebuilds the list of fonts.
void enumerateFonts(HDC dc);
void freeFontNames();

// Creates a line with the given number of choices. The caller fills in the label and the choices.
MenuItem* newMenuItem(std::int32_t count);

// Returns a copy allocated with malloc; null for null.
char* copyString(const char* text);

// Creates a line with the font sizes 8, 10, ... 36. The current choice is the largest size not above the
// given one, or the nearest end of the range.
MenuItem* newSizeItem(const char* label, std::int32_t size);

// Returns the font size of a choice of such a line.
std::int32_t sizeOfChoice(std::int32_t choice);

// Creates a line with the numbers 0 to 8. The current choice is the nearest to the given value.
MenuItem* newCountItem(const char* label, std::int32_t value);

// Creates a line with all fontNames. The current choice is the last one equal to the face, case-sensitive, or
// the first. When no font is installed, the face itself is the only choice.
MenuItem* newFontItem(const char* label, const char* face);

// Creates a line with the choices Yes and No. The current choice is Yes for any flag other than 0.
MenuItem* newYesNoItem(const char* label, std::int32_t flag);

// Releases a line with its sub-menu, or an array of lines. Null is allowed.
void freeMenuItem(MenuItem* item);
void freeMenuList(MenuItem** items, std::int32_t count);
