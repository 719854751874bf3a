// SPDX-License-Identifier: GPL-3.0-or-later
// Splits the text of an ini file into its lines, as the program reads them. Used by the writer and the check;
// the values themselves are read through the platform.
#pragma once

#include <string>
#include <string_view>
#include <vector>

enum class IniLineKind { blank, comment, section, key, other };

struct IniLine {
    int number; // from 1
    IniLineKind kind;
    std::string text;    // without the line end
    std::string section; // the one that the line belongs to or begins; empty before the first
    std::string key;
    std::string value; // without blanks around it and a pair of quotes
};

std::vector<IniLine> splitIni(std::string_view text);

// Whether two names of sections or keys are the same: case does not matter.
bool sameName(std::string_view first, std::string_view second);

// Returns the text without blanks at its ends.
std::string_view trimmed(std::string_view text);
