// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/settings_file.h"

#include "config/ini_values.h"
#include "config/setting_table.h"
#include "config/settings.h"
#include "platform/diagnostics.h"
#include "platform/profile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

const char* iniPath = nullptr;

namespace {

std::int32_t& int32Field(const SettingRow& row) {
    return settings.*std::get<std::int32_t Settings::*>(row.field);
}

std::int16_t& int16Field(const SettingRow& row) {
    return settings.*std::get<std::int16_t Settings::*>(row.field);
}

COLORREF& colourField(const SettingRow& row) {
    return settings.*std::get<COLORREF Settings::*>(row.field);
}

char*& textField(const SettingRow& row) {
    return settings.*std::get<char * Settings::*>(row.field);
}

bool isField(const SettingRow& row, SettingField field) {
    return row.field == field;
}

// The number of the word, or that of the row's default when the word is not listed.
std::int32_t numberOfWord(const SettingRow& row, const char* word) {
    std::int32_t number = 0;
    for (const ChoiceWord& choice : row.words) {
        if (std::strcmp(choice.word, word) == 0) {
            return choice.number;
        }
        if (std::strcmp(choice.word, row.defaultText) == 0) {
            number = choice.number;
        }
    }
    return number;
}

const char* wordOfNumber(const SettingRow& row, std::int32_t number) {
    const auto found = std::ranges::find(row.words, number, &ChoiceWord::number);
    return found == row.words.end() ? row.defaultText : found->word;
}

std::int32_t readNumber(const SettingRow& row) {
    return static_cast<std::int32_t>(
        GetPrivateProfileIntA(row.section, row.key, std::atoi(row.defaultText), iniPath));
}

// Reports the value of an extra that cannot be used.
void reportBadValue(const SettingRow& row, const char* value, const std::string& expected) {
    writeDiagnostic(standardError, std::string("The setting ") + row.key + " in [" + row.section +
                                       "] is not " + expected + ": " + value + ". Its default is used.");
}

// Returns the number of an extra; its default when the value is not a whole number within the range.
std::int32_t readNumberInRange(const SettingRow& row) {
    const IniValue value = readIniValue(row.section, row.key, row.defaultText, iniPath);
    const char* end = value.data() + std::strlen(value.data());
    const auto [lowest, highest] = row.range;
    std::int32_t number = 0;
    const auto [parsed, error] = std::from_chars(value.data(), end, number);
    if (parsed == end && error == std::errc() && number >= lowest && number <= highest) {
        return number;
    }
    if (end != value.data()) {
        reportBadValue(row, value.data(),
                       "a number from " + std::to_string(lowest) + " to " + std::to_string(highest));
    }
    return std::atoi(row.defaultText);
}

std::int32_t readChoice(const SettingRow& row) {
    const IniValue value = readIniValue(row.section, row.key, row.defaultText, iniPath);
    const bool known = std::ranges::any_of(row.words, [&value](const ChoiceWord& choice) {
        return std::strcmp(choice.word, value.data()) == 0;
    });
    if (isExtra(row) && value.front() != '\0' && !known) {
        reportBadValue(row, value.data(), "one of its words");
    }
    return numberOfWord(row, value.data());
}

void loadRow(const SettingRow& row) {
    switch (row.kind) {
    case SettingKind::flag:
        int32Field(row) = isExtra(row)
                              ? readNumberInRange(row)
                              : readIniBool(row.section, row.key, std::atoi(row.defaultText), iniPath);
        break;
    case SettingKind::number:
        int32Field(row) = isExtra(row) ? readNumberInRange(row) : readNumber(row);
        break;
    case SettingKind::shortNumber:
        int16Field(row) = static_cast<std::int16_t>(readNumber(row));
        break;
    case SettingKind::keyCode:
    case SettingKind::joystickCode:
        int32Field(row) = isExtra(row) ? readNumberInRange(row)
                                       : readIniInt(row.section, row.key, row.defaultText, iniPath);
        break;
    case SettingKind::colour:
        colourField(row) = readIniHex(row.section, row.key, row.defaultText, iniPath);
        break;
    case SettingKind::text:
        textField(row) = readIniString(row.section, row.key, row.defaultText, iniPath);
        break;
    case SettingKind::optionalText:
        textField(row) = readIniStringOrNull(row.section, row.key, iniPath);
        break;
    case SettingKind::choice:
        int32Field(row) = readChoice(row);
        break;
    }
}

// Holds the digits of a saved number.
using NumberText = std::array<char, 12>;

const char* numberText(NumberText& text, std::int32_t number) {
    std::snprintf(text.data(), text.size(), "%i", number);
    return text.data();
}

// Returns the text that is saved for a row, or null when its key is left unchanged in the file. The text is
// borrowed, from `digits` for a number.
const char* savedText(const SettingRow& row, const char* selectedName, NumberText& digits) {
    switch (row.kind) {
    case SettingKind::flag:
    case SettingKind::number:
        return numberText(digits, int32Field(row));
    case SettingKind::shortNumber:
        return numberText(digits, int16Field(row));
    case SettingKind::choice:
        // The current rotation may be the one for player 2, which is not saved.
        return wordOfNumber(row, isField(row, &Settings::orientation) ? settings.baseOrientation
                                                                      : int32Field(row));
    case SettingKind::text:
        return isField(row, &Settings::selectedGame) ? selectedName : textField(row);
    case SettingKind::keyCode:
    case SettingKind::joystickCode:
    case SettingKind::colour:
    case SettingKind::optionalText:
        break; // settings of these kinds are never saved
    }
    return nullptr;
}

} // namespace

void loadSettings() {
    std::ranges::for_each(settingTable, loadRow);
}

void saveSettings(const char* selectedName) {
    std::array<NumberText, savedSettingCount> digits;
    std::vector<ProfileValue> values;
    for (int order = 1; order <= savedSettingCount; ++order) {
        const SettingRow& row = *std::ranges::find(settingTable, order, &SettingRow::saveOrder);
        if (const char* text = savedText(row, selectedName, digits[static_cast<std::size_t>(order - 1)])) {
            values.push_back({row.section, row.key, text});
        }
    }
    writeProfileValues(values, iniPath);
}

std::uint64_t savedStateHash(const char* selectedName) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
    std::uint64_t hash = 0;
    for (const SettingRow& row : settingTable) {
        NumberText digits;
        const char* text = row.saveOrder == notSaved ? nullptr : savedText(row, selectedName, digits);
        hash = hash * factor + (text ? std::hash<std::string_view>{}(text) : 0);
    }
    return hash;
}

void freeSettings() {
    for (const SettingRow& row : settingTable) {
        if (std::holds_alternative<char * Settings::*>(row.field)) {
            std::free(textField(row));
            textField(row) = nullptr;
        }
    }
}
