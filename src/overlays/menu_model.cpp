// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/menu_model.h"

#include "platform/font_list.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

char** fontNames = nullptr;
std::int32_t fontNameCount = 0;

namespace {

constexpr std::int32_t smallestSize = 8;
constexpr std::int32_t sizeStep = 2;
constexpr std::int32_t sizeCount = 15;
constexpr std::int32_t largestCount = 8;

int compareFontNames(const void* first, const void* second) {
    return std::strcmp(*static_cast<char* const*>(first), *static_cast<char* const*>(second));
}

int fontEnumCallback(const LOGFONTA* entry, const TEXTMETRICA*, DWORD fontType, LPARAM) {
    if (fontType != TRUETYPE_FONTTYPE) {
        return 1;
    }
    const auto size = static_cast<std::size_t>(fontNameCount + 1) * sizeof(char*);
    auto** grown = static_cast<char**>(std::realloc(static_cast<void*>(fontNames), size));
    if (grown) {
        fontNames = grown;
        const auto* font = reinterpret_cast<const ENUMLOGFONTEXA*>(entry);
        fontNames[fontNameCount++] = copyString(reinterpret_cast<const char*>(font->elfFullName));
    }
    return 1;
}

char* numberText(std::int32_t number) {
    char text[12];
    std::snprintf(text, sizeof(text), "%i", number);
    return copyString(text);
}

MenuItem* newLabelledItem(const char* label, std::int32_t count) {
    MenuItem* item = newMenuItem(count);
    item->label = copyString(label);
    return item;
}

} // namespace

void enumerateFonts(HDC dc) {
    freeFontNames();
    LOGFONTA description{};
    description.lfCharSet = ANSI_CHARSET;
    EnumFontFamiliesExA(dc, &description, fontEnumCallback, 0, 0);
    if (fontNameCount > 0) {
        std::qsort(static_cast<void*>(fontNames), static_cast<std::size_t>(fontNameCount), sizeof(char*),
                   compareFontNames);
    }
}

void freeFontNames() {
    for (std::int32_t font = 0; font < fontNameCount; ++font) {
        std::free(fontNames[font]);
    }
    std::free(static_cast<void*>(fontNames));
    fontNames = nullptr;
    fontNameCount = 0;
}

MenuItem* newMenuItem(std::int32_t count) {
    auto* item = static_cast<MenuItem*>(std::calloc(1, sizeof(MenuItem)));
    item->choices = static_cast<char**>(std::calloc(static_cast<std::size_t>(count), sizeof(char*)));
    item->choiceCount = count;
    return item;
}

char* copyString(const char* text) {
    return text ? strdup(text) : nullptr;
}

MenuItem* newSizeItem(const char* label, std::int32_t size) {
    MenuItem* item = newLabelledItem(label, sizeCount);
    for (std::int32_t choice = 0; choice < sizeCount; ++choice) {
        item->choices[choice] = numberText(sizeOfChoice(choice));
    }
    item->current = std::clamp(size / sizeStep - smallestSize / sizeStep, 0, sizeCount - 1);
    return item;
}

std::int32_t sizeOfChoice(std::int32_t choice) {
    return smallestSize + sizeStep * choice;
}

MenuItem* newCountItem(const char* label, std::int32_t value) {
    MenuItem* item = newLabelledItem(label, largestCount + 1);
    for (std::int32_t choice = 0; choice <= largestCount; ++choice) {
        item->choices[choice] = numberText(choice);
    }
    item->current = std::clamp(value, 0, largestCount);
    return item;
}

MenuItem* newFontItem(const char* label, const char* face) {
    MenuItem* item = newLabelledItem(label, std::max(fontNameCount, 1));
    if (fontNameCount == 0) {
        item->choices[0] = copyString(face);
    }
    for (std::int32_t font = 0; font < fontNameCount; ++font) {
        item->choices[font] = copyString(fontNames[font]);
        if (std::strcmp(fontNames[font], face) == 0) {
            item->current = font;
        }
    }
    return item;
}

MenuItem* newYesNoItem(const char* label, std::int32_t flag) {
    MenuItem* item = newLabelledItem(label, 2);
    item->choices[0] = copyString("Yes");
    item->choices[1] = copyString("No");
    item->current = flag != 0 ? 0 : 1;
    return item;
}

void freeMenuItem(MenuItem* item) {
    if (!item) {
        return;
    }
    if (item->subItemCount > 0) {
        freeMenuList(item->subItems, item->subItemCount);
    }
    for (std::int32_t choice = 0; choice < item->choiceCount; ++choice) {
        std::free(item->choices[choice]);
    }
    std::free(static_cast<void*>(item->choices));
    std::free(item->label);
    std::free(item);
}

void freeMenuList(MenuItem** items, std::int32_t count) {
    for (std::int32_t item = 0; item < count; ++item) {
        freeMenuItem(items[item]);
    }
    std::free(static_cast<void*>(items));
}
