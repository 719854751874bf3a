// SPDX-License-Identifier: GPL-3.0-or-later
// The values that the set-up proposes, shows, changes and writes: one text for each key of the settings
// table, as it appears in the ini file. Filled from the defaults, the recommendations and an existing file;
// changed by the pages and the command line; written by settings_writer. Checks no values.
#pragma once

#include "config/setting_table.h"

#include <array>
#include <string>
#include <string_view>

class ChosenSettings {
public:
    // The defaults of the program, with the recommended extras switched on and readable colours and sizes.
    ChosenSettings();

    // Takes over the values of the keys that an existing ini file has. Returns false when there is no such
    // file.
    bool load(const std::string& path);

    // The section and the key must be those of a row of the table; case matters.
    const std::string& value(std::string_view section, std::string_view key) const;
    void set(std::string_view section, std::string_view key, std::string value);

    const std::string& valueOf(const SettingRow& row) const;

private:
    std::array<std::string, settingTable.size()> values_;
};

// A set of colours for list, menu, status bar and image browser.
struct ColourScheme {
    const char* name;
    const char* text; // all as in the ini file: 0x00BBGGRR
    const char* background;
    const char* highlight;
    const char* statusText;
    const char* statusBackground;
};

extern const std::array<ColourScheme, 5> colourSchemes;

void applyColours(ChosenSettings& chosen, const ColourScheme& scheme);

// Returns the index of the scheme whose colours are chosen, or -1.
int chosenScheme(const ChosenSettings& chosen);
