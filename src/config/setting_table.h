// SPDX-License-Identifier: GPL-3.0-or-later
// The table of the fixed keys of the ini file: section and key, kind of value, field, default, and position
// in the order of saving. settings_file.cpp and the generated manual chapter both use it, so that each key
// is described once. The section Mameoptions, whose keys are game names, is not part of the table.
//
// The values of the section Extras are checked on loading: a number outside its range or an unknown word is
// reported on standard error and replaced by the default. All other values are taken as they are.
#pragma once

#include "config/settings.h"

#include <array>
#include <span>
#include <variant>

enum class SettingKind {
    flag,         // "0" is false, anything else is true
    number,       // decimal
    shortNumber,  // decimal, truncated to 16 bits
    keyCode,      // decimal; 0 when it is not a number
    joystickCode, // as keyCode
    colour,       // hexadecimal, 0x00BBGGRR
    text,         // up to 254 characters
    optionalText, // as text, but null when empty
    choice,       // one of the words of the row
};

struct ChoiceWord {
    const char* word;
    std::int32_t number;
};

struct SettingRange {
    std::int32_t lowest;
    std::int32_t highest;
};

using SettingField = std::variant<std::int32_t Settings::*, std::int16_t Settings::*, COLORREF Settings::*,
                                  char * Settings::*>;

constexpr int notSaved = 0;
constexpr int savedSettingCount = 24;

struct SettingRow {
    const char* section;
    const char* key;
    SettingKind kind;
    SettingField field;
    const char* defaultText;                // null for optional text
    int saveOrder;                          // 1 to savedSettingCount in the order of writing, or notSaved
    const char* description;                // one or two sentences for the manual
    std::span<const ChoiceWord> words = {}; // for a choice; a word or number not listed means the default
    SettingRange range = {};                // for the numbers, flags and codes of the section Extras
};

// Whether the value is checked on loading.
bool isExtra(const SettingRow& row);

// In the order of reading; the rows of the section Extras are the last.
extern const std::array<SettingRow, 113> settingTable;
