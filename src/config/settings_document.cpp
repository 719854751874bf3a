#include "config/settings_document.h"

#include "config/setting_table.h"

#include <string_view>

namespace {

constexpr std::string_view introduction =
    R"(# Settings

All settings stand in one ini file: `kestravox.ini` in the current directory, or the file named on the command line.
It is read once, at the start. Sections and keys are found in any case; a line that starts with `;` is a comment.
A key that is missing has its default, and nothing is checked: a value is taken as it is.

The keys marked as saved can be changed in the options menu. They are written back when the program ends normally, with
the selected game; every other line of the file stays as it is. Values are cut at 254 characters.

The section `Mameoptions` holds no fixed keys. Its keys are short names of games, its values the extra options with
which the emulator is started for that game and for its clones.

This page is made from the program's own table by `settings_doc`.

| Kind | Value |
|---|---|
| flag | `0` is off, anything else is on |
| number | a whole number |
| code | the number of a virtual key, or of a joystick button or direction |
| colour | hexadecimal `0xBBGGRR`: blue, green, red, so `0x0000FF` is red |
| text | any text |
| choice | one of the words given, in exactly that spelling; any other word counts as the default |

The joystick codes are 1, 2, 4, 8 and so on to 512 for the first ten buttons, each held alone, 200 for right, 201 for
left, 202 for down and 203 for up. 0 switches a key or joystick mapping off.
)";

std::string_view kindName(SettingKind kind) {
    switch (kind) {
    case SettingKind::flag:
        return "flag";
    case SettingKind::number:
    case SettingKind::shortNumber:
        return "number";
    case SettingKind::code:
        return "code";
    case SettingKind::colour:
        return "colour";
    case SettingKind::text:
    case SettingKind::optionalText:
        return "text";
    case SettingKind::choice:
        return "choice";
    }
    return "";
}

std::string meaningOf(const SettingRow& row) {
    std::string meaning = row.description;
    if (!row.words.empty()) {
        meaning += " Words:";
        const char* separator = " ";
        for (const ChoiceWord& choice : row.words) {
            meaning += std::string(separator) + "`" + choice.word + "`";
            separator = ", ";
        }
        meaning += ".";
    }
    return meaning;
}

std::string lineOf(const SettingRow& row) {
    const std::string defaultText =
        row.defaultText != nullptr ? "`" + std::string(row.defaultText) + "`" : "none";
    std::string line = "| `" + std::string(row.key) + "` | ";
    line += kindName(row.kind);
    return line + " | " + defaultText + " | " + (row.savePlace != notSaved ? "yes" : "") + " | " +
           meaningOf(row) + " |\n";
}

// Whether no row before this one has its section.
bool isFirstOfSection(const SettingRow& row) {
    for (const SettingRow& other : settingTable) {
        if (std::string_view(other.section) == row.section) {
            return &other == &row;
        }
    }
    return false;
}

} // namespace

std::string settingsDocument() {
    std::string document(introduction);
    for (const SettingRow& head : settingTable) {
        if (!isFirstOfSection(head)) {
            continue;
        }
        document += "\n## [" + std::string(head.section) + "]\n\n";
        document += "| Key | Kind | Default | Saved | Meaning |\n|---|---|---|---|---|\n";
        for (const SettingRow& row : settingTable) {
            if (std::string_view(row.section) == head.section) {
                document += lineOf(row);
            }
        }
    }
    return document;
}
