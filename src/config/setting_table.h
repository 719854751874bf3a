// The table of the 85 keys of the ini file: where each stands, what kind of value it has, which field holds
// it, its default and its place in the order of saving. loadSettings, saveSettings and the generated chapter
// of the manual all go by it, so a key exists once. The options of single games are no part of it.
#pragma once

#include "config/settings.h"

#include <array>
#include <span>
#include <variant>

enum class SettingKind {
    flag,         // "0" is false, everything else true
    number,       // decimal
    shortNumber,  // decimal, of which 16 bits are kept
    code,         // decimal; text that is no number gives 0
    colour,       // hexadecimal, 0x00BBGGRR
    text,         // up to 254 characters
    optionalText, // as text; null when empty
    choice,       // one of the row's words
};

struct ChoiceWord {
    const char* word;
    std::int32_t number;
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
    const char* defaultText; // null for optional text
    int savePlace;           // 1 to savedSettingCount in the order of writing, or notSaved
    const char* description; // one sentence or two for the manual
    std::span<const ChoiceWord> words =
        {}; // of a choice: a word or number that matches none counts as the default
};

// In the order of reading.
extern const std::array<SettingRow, 85> settingTable;
