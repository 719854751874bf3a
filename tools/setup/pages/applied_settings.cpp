// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/applied_settings.h"
#include "config/settings_file.h"

#include "catalogue/game_filter.h"
#include "catalogue/rom_scan.h"
#include "catalogue/visible_games.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <variant>

namespace {

std::int32_t numberOf(const SettingRow& row, const std::string& value) {
    if (row.words.empty()) {
        return std::atoi(value.c_str());
    }
    const auto found =
        std::ranges::find_if(row.words, [&value](const ChoiceWord& choice) { return value == choice.word; });
    return found == row.words.end() ? row.words.front().number : found->number;
}

struct Apply {
    const SettingRow& row;
    const std::string& value;

    void operator()(std::int32_t Settings::*field) const { settings.*field = numberOf(row, value); }
    void operator()(std::int16_t Settings::*field) const {
        settings.*field = static_cast<std::int16_t>(numberOf(row, value));
    }
    void operator()(COLORREF Settings::*field) const {
        constexpr int hexadecimal = 16;
        settings.*field = static_cast<COLORREF>(std::strtoul(value.c_str(), nullptr, hexadecimal));
    }
    void operator()(char* Settings::*field) const {
        const bool isNull = row.kind == SettingKind::optionalText && value.empty();
        settings.*field = isNull ? nullptr : strdup(value.c_str());
    }
};

} // namespace

void applySettings(const ChosenSettings& chosen) {
    freeSettings();
    for (const SettingRow& row : settingTable) {
        std::visit(Apply{row, chosen.valueOf(row)}, row.field);
    }
    settings.baseOrientation = settings.orientation;
    settings.useJoystick = 1;
}

int countListedGames(const ChosenSettings& chosen) {
    applySettings(chosen);
    scanRoms();
    filterGames();
    return visibleCount;
}
