// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/settings_check.h"

#include "catalogue/game_catalogue.h"
#include "catalogue/game_info.h"
#include "catalogue/rom_scan.h"
#include "config/setting_table.h"
#include "config/settings.h"
#include "config/settings_file.h"
#include "input/control_names.h"
#include "platform/program_search.h"
#include "platform/text_file.h"
#include "setup/art_folders.h"
#include "setup/ini_lines.h"
#include "setup/nearest_word.h"
#include "setup/program_output.h"
#include "setup/whole_file.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <limits>
#include <map>
#include <string_view>
#include <utility>

// Map of this file: the findings on one value, by kind; those on the lines of the file; those on the whole
// (controls used twice, the emulator, the list); the counts.

namespace {

namespace fs = std::filesystem;

constexpr std::string_view optionsSection = "Mameoptions";

// In the ini file both \ and / separate folders.
std::string nativeFolder(std::string path) {
    std::ranges::replace(path, '\\', '/');
    return path;
}

// What is wrong with a value; empty when nothing is.
std::string wrongNumber(const std::string& value, int base, std::int64_t lowest, std::int64_t highest) {
    std::string_view digits = value;
    if (base == 16 && (digits.starts_with("0x") || digits.starts_with("0X"))) {
        digits.remove_prefix(2);
    }
    std::int64_t number = 0;
    const char* end = digits.data() + digits.size();
    const auto [parsed, error] = std::from_chars(digits.data(), end, number, base);
    if (parsed != end || digits.empty() || error != std::errc()) {
        return base == 16 ? "is no hexadecimal number" : "is no whole number";
    }
    if (number < lowest || number > highest) {
        const auto text = [base](std::int64_t limit) {
            return base == 16 ? "0xFFFFFF" : std::to_string(limit);
        };
        return "is not between " + std::to_string(lowest) + " and " + text(highest);
    }
    return "";
}

std::string wrongWord(const SettingRow& row, const std::string& value) {
    std::vector<std::string> words;
    for (const ChoiceWord& choice : row.words) {
        if (value == choice.word) {
            return "";
        }
        words.emplace_back(choice.word);
    }
    return "is none of its words; the nearest is " + nearestWord(value, words);
}

std::string wrongControl(const SettingRow& row, const std::string& value) {
    const bool isKey = row.kind == SettingKind::keyCode;
    std::string wrong = wrongNumber(value, 10, 0, isKey ? 254 : 512);
    if (!wrong.empty()) {
        return wrong;
    }
    const int code = std::atoi(value.c_str());
    const bool known = code == 0 || !(isKey ? keyName(code) : joystickName(code)).empty();
    return known ? "" : isKey ? "is the code of no key" : "is the code of no joystick control";
}

std::string wrongPath(const SettingRow& row, const std::string& value) {
    const auto kind = std::ranges::find_if(folderKinds, [&](const FolderKind& known) {
        return std::string_view(known.section) == row.section && std::string_view(known.key) == row.key;
    });
    const bool isSound = std::string_view(row.section) == "Sounds";
    if (value.empty() || (kind == folderKinds.end() && !isSound)) {
        return "";
    }
    const std::string path = nativeFolder(value);
    std::error_code error;
    const bool isFile = isSound || kind->isFile;
    if (isFile ? fs::is_regular_file(path, error) : fs::is_directory(path, error)) {
        return "";
    }
    return isFile ? "is no file" : "is no folder";
}

std::string wrongValue(const SettingRow& row, const std::string& value) {
    switch (row.kind) {
    case SettingKind::flag:
        return value == "0" || value == "1" ? "" : "is neither 0 nor 1";
    case SettingKind::number:
    case SettingKind::shortNumber:
        return isExtra(row) ? wrongNumber(value, 10, row.range.lowest, row.range.highest)
                            : wrongNumber(value, 10, -32768, 1000000);
    case SettingKind::keyCode:
    case SettingKind::joystickCode:
        return wrongControl(row, value);
    case SettingKind::colour:
        return wrongNumber(value, 16, 0, 0xFFFFFF);
    case SettingKind::choice:
        return wrongWord(row, value);
    case SettingKind::text:
    case SettingKind::optionalText:
        return wrongPath(row, value);
    }
    return "";
}

std::string unknownKey(const IniLine& line) {
    std::vector<std::string> keys;
    for (const SettingRow& row : settingTable) {
        if (sameName(row.section, line.section)) {
            keys.emplace_back(row.key);
        }
    }
    std::string text = "There is no key " + line.key + " in the section " + line.section + ".";
    const std::string nearest = nearestWord(line.key, keys);
    if (!nearest.empty()) {
        text += " The nearest is " + nearest + ".";
    }
    for (const SettingRow& row : settingTable) {
        if (sameName(row.key, line.key)) {
            return text + " It belongs to the section " + row.section + ".";
        }
    }
    return text;
}

std::string unknownSection(const std::string& name) {
    std::vector<std::string> names{std::string(optionsSection)};
    for (const SettingRow& row : settingTable) {
        names.emplace_back(row.section);
    }
    return "There is no section " + name + ". The nearest is " + nearestWord(name, names) + ".";
}

bool isSection(const std::string& name) {
    return sameName(name, optionsSection) || std::ranges::any_of(settingTable, [&](const SettingRow& row) {
               return sameName(row.section, name);
           });
}

// The findings on the lines, and the line of each row of the table.
class LineCheck {
public:
    explicit LineCheck(CheckResult& result) : result_(result) {}

    void check(const IniLine& line) {
        if (line.kind == IniLineKind::section && !isSection(line.section)) {
            problem(line.number, unknownSection(line.section));
        } else if (line.kind == IniLineKind::other) {
            problem(line.number, "This is neither a section, a key with its value nor a comment.");
        } else if (line.kind == IniLineKind::key && isSection(line.section) &&
                   !sameName(line.section, optionsSection)) {
            checkKey(line);
        }
    }

    int lineOf(const SettingRow& row) const {
        const auto found = lines_.find(&row);
        return found == lines_.end() ? 0 : found->second;
    }

private:
    void checkKey(const IniLine& line) {
        const auto row = std::ranges::find_if(settingTable, [&](const SettingRow& candidate) {
            return sameName(candidate.section, line.section) && sameName(candidate.key, line.key);
        });
        if (row == settingTable.end()) {
            problem(line.number, unknownKey(line));
        } else if (!lines_.emplace(&*row, line.number).second) {
            problem(line.number, line.key + " appears a second time; only the first one counts.");
        } else if (const std::string wrong = wrongValue(*row, line.value); !wrong.empty()) {
            problem(line.number, line.key + ": \"" + line.value + "\" " + wrong + ".");
        }
    }

    void problem(int line, std::string text) { result_.findings.push_back({line, true, std::move(text)}); }

    CheckResult& result_;
    std::map<const SettingRow*, int> lines_;
};

std::int32_t codeOf(const SettingRow& row) {
    return settings.*std::get<std::int32_t Settings::*>(row.field);
}

// The standard joystick codes of the shared commands are those of mapped ones, so a double use is no problem
// unless the file itself says so.
void checkDoubleUse(const LineCheck& lines, CheckResult& result) {
    for (const SettingRow& row : settingTable) {
        const bool isControl = row.kind == SettingKind::keyCode || row.kind == SettingKind::joystickCode;
        if (!isControl || codeOf(row) == 0) {
            continue;
        }
        for (const SettingRow* other = settingTable.data(); other != &row; ++other) {
            if (other->kind == row.kind && codeOf(*other) == codeOf(row)) {
                const int line = std::max(lines.lineOf(*other), lines.lineOf(row));
                const bool isKey = row.kind == SettingKind::keyCode;
                const std::string name = isKey ? keyName(codeOf(row)) : joystickName(codeOf(row));
                result.findings.push_back({line, line > 0,
                                           (name.empty() ? "Code " + std::to_string(codeOf(row)) : name) +
                                               " is used twice: for " + other->key + " and " + row.key +
                                               "."});
            }
        }
    }
}

void checkEmulator(const LineCheck& lines, CheckResult& result) {
    const auto row = std::ranges::find(settingTable, std::string_view("Mame.exe"), &SettingRow::key);
    const std::string program = findProgram(settings.mameExe);
    std::string text;
    if (program.empty()) {
        text = "Mame.exe: there is no program " + std::string(settings.mameExe) + ".";
    } else if (!outputOf("\"" + program + "\" -version")) {
        text = "Mame.exe: " + program + " does not start.";
    } else {
        return;
    }
    result.findings.push_back({lines.lineOf(*row), true, text});
}

void loadCatalogue(CheckResult& result) {
    constexpr char listFile[] = "listinfo.dat";
    freeGameList();
    if (FILE* list = openTextFile(listFile)) {
        readGameList(list);
        std::fclose(list);
        if (gameCount == 0) {
            result.findings.push_back(
                {0, true, "The game list listinfo.dat is empty. Make it anew with --rebuild."});
        }
    } else {
        result.findings.push_back(
            {0, false, "There is no game list listinfo.dat yet; the first start makes it."});
    }
    scanRoms();
    loadGameInfo(settings.mameInfoPath);
}

template <typename Condition> int countGames(Condition condition) {
    int count = 0;
    for (std::int32_t index = 0; index < gameCount; ++index) {
        count += allGames[index]->isResource == 0 && condition(*allGames[index]) ? 1 : 0;
    }
    return count;
}

void addCounts(CheckResult& result) {
    const int games = countGames([](const GameRecord&) { return true; });
    const int withRom = countGames([](const GameRecord& game) { return game.romPresent != 0; });
    const int withText = countGames([](const GameRecord& game) { return game.infoLineCount > 0; });
    result.counts.push_back("Games in the list: " + std::to_string(games));
    result.counts.push_back("Games with their ROM: " + std::to_string(withRom));
    for (const FolderKind& kind : folderKinds) {
        const auto row = std::ranges::find_if(settingTable, [&](const SettingRow& candidate) {
            return std::string_view(candidate.section) == kind.section &&
                   std::string_view(candidate.key) == kind.key;
        });
        const char* path = settings.*std::get<char * Settings::*>(row->field);
        if (!kind.isFile && path) {
            const FolderCount count = countFolder(kind, nativeFolder(path));
            result.counts.push_back(std::string(kind.title) + ": " + std::to_string(count.files) +
                                    " files, for " + std::to_string(count.games) + " games");
        }
    }
    result.counts.push_back("Games with information: " + std::to_string(withText));
}

} // namespace

CheckResult checkSettings(const std::string& path) {
    CheckResult result;
    std::error_code error;
    const fs::path file = fs::absolute(path, error);
    const auto text = readWholeFile(file.string());
    if (!text) {
        result.findings.push_back({0, true, "The file cannot be read."});
        return result;
    }
    fs::current_path(file.parent_path(), error);
    static std::string absolutePath;
    absolutePath = file.string();
    iniPath = absolutePath.c_str();
    freeSettings();
    loadSettings();
    LineCheck lines(result);
    for (const IniLine& line : splitIni(*text)) {
        lines.check(line);
    }
    checkDoubleUse(lines, result);
    checkEmulator(lines, result);
    loadCatalogue(result);
    addCounts(result);
    std::ranges::stable_sort(result.findings, {}, [](const CheckFinding& finding) {
        return finding.line > 0 ? finding.line : std::numeric_limits<int>::max();
    });
    return result;
}
