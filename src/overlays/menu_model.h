// The lines of a menu and the list of installed fonts. Called by the options menu, which builds the lines,
// and by the menu window, which shows them and moves `current`. Nothing is drawn here and no setting is
// known.
#pragma once

#include "platform/types.h"

#include <cstdint>

// One line of a menu, all zero at first. Everything it points to is owned and comes from malloc.
struct MenuItem {
    char* label;
    char** choices; // in the order in which they are stepped through
    std::int32_t choiceCount;
    std::int32_t current; // the choice shown, 0 to choiceCount - 1
    MenuItem** subItems;  // null for a line without a menu of its own
    std::int32_t subItemCount;
};

// The full names of the installed fonts in byte order, owned, between enumerateFonts and freeFontNames.
extern char** fontNames;
extern std::int32_t fontNameCount;

// Rebuilds the list of fonts.
void enumerateFonts(HDC dc);
void freeFontNames();

// A line with room for that many choices, which the caller fills, as well as the label.
MenuItem* newMenuItem(std::int32_t count);

// A copy from malloc; null for null.
char* copyString(const char* text);

// Font sizes 8, 10, ... 36; shows the nearest one not above the size, or the nearest end.
MenuItem* newSizeItem(const char* label, std::int32_t size);

// The size that a choice of such a line stands for.
std::int32_t sizeOfChoice(std::int32_t choice);

// Numbers 0 to 8; shows the nearest.
MenuItem* newCountItem(const char* label, std::int32_t value);

// All fontNames; shows the last one that is the face to the letter, or the first. Without any font the face
// itself is the one choice.
MenuItem* newFontItem(const char* label, const char* face);

// Yes and No; shows Yes for any flag but 0.
MenuItem* newYesNoItem(const char* label, std::int32_t flag);

// Releases a line with its sub-menu, and an array of lines. Null does nothing.
void freeMenuItem(MenuItem* item);
void freeMenuList(MenuItem** items, std::int32_t count);
