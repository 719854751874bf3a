// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/settings_writer.h"

#include "platform/files.h"
#include "setup/ini_lines.h"
#include "setup/whole_file.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <vector>

namespace {

constexpr std::size_t commentWidth = 100;

constexpr std::string_view introduction =
    "; Settings of Kestravox, written by kestravox-setup. Lines that start with a semicolon are comments. "
    "The program\n"
    "; itself changes only the values of its options menu and the selected game.\n";

constexpr std::string_view optionsSection = "[Mameoptions]\n"
                                            "; Options of single games, one line each: the short name of the "
                                            "game, and what is added to the command line.\n"
                                            "; For example, without the semicolon: pong=-video soft\n";

// Breaks a comment into lines of at most commentWidth characters.
std::string commentLines(std::string_view text) {
    std::string lines;
    while (!text.empty()) {
        std::size_t end = text.size();
        if (end > commentWidth) {
            end = text.rfind(' ', commentWidth);
        }
        lines += "; " + std::string(text.substr(0, end)) + "\n";
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string commentOf(const SettingRow& row) {
    std::string text = row.description;
    if (!row.words.empty()) {
        text += " One of:";
        for (const ChoiceWord& choice : row.words) {
            text += std::string(" ") + choice.word;
        }
        text += ".";
    } else if (row.kind == SettingKind::flag) {
        text += " 1: yes, 0: no.";
    } else if (row.range.highest > row.range.lowest && row.kind == SettingKind::number) {
        text += " " + std::to_string(row.range.lowest) + " to " + std::to_string(row.range.highest) + ".";
    }
    if (row.defaultText) {
        text += std::string(" Default: ") + row.defaultText + ".";
    }
    return commentLines(text);
}

// A pair of quotes around a value and blanks at its ends are dropped by the reader.
std::string quotedIfNeeded(const std::string& value) {
    const bool quoted = value.size() >= 2 && value.front() == '"' && value.back() == '"';
    return quoted || trimmed(value) != value ? "\"" + value + "\"" : value;
}

// The sections of the table in the order of their first rows.
std::vector<std::string_view> knownSections() {
    std::vector<std::string_view> names;
    for (const SettingRow& row : settingTable) {
        if (std::ranges::find(names, row.section) == names.end()) {
            names.emplace_back(row.section);
        }
    }
    return names;
}

// The comment lines that the set-up writes itself.
std::set<std::string> ownComments() {
    std::string text(introduction);
    for (const SettingRow& row : settingTable) {
        text += commentOf(row);
    }
    std::set<std::string> lines;
    for (const IniLine& line : splitIni(text)) {
        lines.insert(line.text);
    }
    return lines;
}

bool isKnownKey(const IniLine& line) {
    return line.kind == IniLineKind::key && std::ranges::any_of(settingTable, [&line](const SettingRow& row) {
               return sameName(row.section, line.section) && sameName(row.key, line.key);
           });
}

// The lines of the section that the set-up does not know.
std::string keptLines(const std::vector<IniLine>& lines, std::string_view section) {
    static const std::set<std::string> own = ownComments();
    std::string kept;
    for (const IniLine& line : lines) {
        const bool isContent = line.kind != IniLineKind::blank && line.kind != IniLineKind::section;
        if (isContent && sameName(line.section, section) && !own.contains(line.text) && !isKnownKey(line)) {
            kept += line.text + "\n";
        }
    }
    return kept;
}

// The sections that have no fixed keys, as they are.
std::string otherSections(const std::vector<IniLine>& lines) {
    const std::vector<std::string_view> known = knownSections();
    std::string text;
    bool hasOptions = false;
    for (const IniLine& line : lines) {
        const auto isSame = [&line](std::string_view name) { return sameName(name, line.section); };
        if (line.section.empty() || std::ranges::any_of(known, isSame)) {
            continue;
        }
        hasOptions = hasOptions || isSame("Mameoptions");
        if (line.kind == IniLineKind::section) {
            text += "\n";
        }
        if (line.kind != IniLineKind::blank) {
            text += line.text + "\n";
        }
    }
    return hasOptions ? text : "\n" + std::string(optionsSection) + text;
}

std::string withLineEndsOf(std::string_view existing, const std::string& text) {
    if (existing.find("\r\n") == existing.npos) {
        return text;
    }
    std::string converted;
    for (const char c : text) {
        converted += c == '\n' ? std::string("\r\n") : std::string(1, c);
    }
    return converted;
}

} // namespace

std::string settingsText(const ChosenSettings& chosen, std::string_view existing) {
    const std::vector<IniLine> lines = splitIni(existing);
    std::string text = std::string(introduction) + keptLines(lines, "");
    for (const std::string_view section : knownSections()) {
        text += "\n[" + std::string(section) + "]\n";
        for (const SettingRow& row : settingTable) {
            if (row.section == section) {
                text += commentOf(row) + row.key + "=" + quotedIfNeeded(chosen.valueOf(row)) + "\n";
            }
        }
        text += keptLines(lines, section);
    }
    return withLineEndsOf(existing, text + otherSections(lines));
}

std::string writeSettings(const ChosenSettings& chosen, const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path folder = fs::absolute(path, error).parent_path();
    fs::create_directories(folder, error);
    if (!fs::is_directory(folder, error)) {
        return "The folder " + folder.string() + " cannot be created.";
    }
    std::string existing;
    if (fs::exists(path, error)) {
        const auto text = readWholeFile(path);
        if (!text || !replaceFileText((path + ".bak").c_str(), *text)) {
            return "The existing file " + path + " cannot be kept as " + path + ".bak.";
        }
        existing = *text;
    }
    return replaceFileText(path.c_str(), settingsText(chosen, existing))
               ? ""
               : "The file " + path + " cannot be written.";
}
