// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/chosen_settings.h"

#include "platform/profile.h"

#include <filesystem>
#include <utility>

namespace {

// What differs from the defaults of the program, which are those of a file without the key.
struct Recommendation {
    const char* section;
    const char* key;
    const char* value;
};

constexpr Recommendation recommendations[] = {
    {"Settings", "Mame.exe", ""},
    {"Settings", "Mameinfo.dat", ""},
    {"Settings", "Roms.dir", ""},
    {"Settings", "Snapshot.dir", ""},
    {"Settings", "Title.dir", ""},
    {"Settings", "Flyer.dir", ""},
    {"Settings", "Marquee.dir", ""},
    {"Settings", "Cabinet.dir", ""},
    {"Settings", "Attract.dir", ""},
    {"Settings", "AmbienceFile", ""},
    {"System", "SelectedGame", ""},
    {"Settings", "Fontsize", "24"},
    {"Settings", "MenuFontSize", "20"},
    {"Settings", "StatusBarFontSize", "18"},
    // The stick moves, and no button has two meanings, as the default codes of the shared commands have.
    {"JoystickMappings", "SelectUp", "203"},
    {"JoystickMappings", "SelectDown", "202"},
    {"JoystickMappings", "SelectPageUp", "201"},
    {"JoystickMappings", "SelectPageDown", "200"},
    {"JoystickMappings", "StartGame", "1"},
    {"JoystickMappings", "GameInfo", "2"},
    {"JoystickMappings", "ShowMenu", "4"},
    {"JoystickMappings", "Exit", "128"},
    {"Extras", "JumpBackJoystick", "0"},
    {"Extras", "JumpForwardJoystick", "0"},
    {"Extras", "RandomJoystick", "8"},
    {"Extras", "SortJoystick", "0"},
    {"Extras", "PictureJoystick", "0"},
    {"Extras", "RepeatDelay", "300"},
    {"Extras", "InstantResponse", "1"},
    {"Extras", "JoystickHotplug", "1"},
    {"Extras", "SaveOnChange", "10"},
    {"Extras", "RefreshList", "1"},
};

// The keys of the ini file that a scheme sets, with their colours.
struct SchemeKey {
    const char* key;
    const char* ColourScheme::*colour;
};

constexpr SchemeKey schemeKeys[] = {
    {"Fontcolor", &ColourScheme::text},
    {"Backgroundcolor", &ColourScheme::background},
    {"HighlightBackcolor", &ColourScheme::highlight},
    {"PreviewBackgroundcolor", &ColourScheme::background},
    {"PreviewHighlightBackcolor", &ColourScheme::highlight},
    {"StatusBarForeColor", &ColourScheme::statusText},
    {"StatusBarBackColor", &ColourScheme::statusBackground},
};

std::size_t indexOf(std::string_view section, std::string_view key) {
    std::size_t index = 0;
    while (settingTable[index].section != section || settingTable[index].key != key) {
        ++index;
    }
    return index;
}

} // namespace

const std::array<ColourScheme, 5> colourSchemes = {{
    {"Midnight", "0x00D8F0FF", "0x00301A10", "0x00A85820", "0x0050C0FF", "0x001C0E08"},
    {"Arcade", "0x0080F0FF", "0x00000000", "0x00800040", "0x0060E060", "0x00202020"},
    {"Forest", "0x00D8F0E0", "0x00202C14", "0x00406828", "0x0080D8F0", "0x00141C0C"},
    {"Amber", "0x0040B0FF", "0x00081018", "0x00103850", "0x0040B0FF", "0x00040810"},
    {"Paper", "0x00202020", "0x00F0F8F8", "0x00B0E0FF", "0x00F0F8F8", "0x00503820"},
}};

ChosenSettings::ChosenSettings() {
    for (std::size_t index = 0; index < values_.size(); ++index) {
        values_[index] = settingTable[index].defaultText ? settingTable[index].defaultText : "";
    }
    for (const Recommendation& recommended : recommendations) {
        set(recommended.section, recommended.key, recommended.value);
    }
    applyColours(*this, colourSchemes.front());
}

bool ChosenSettings::load(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return false;
    }
    for (std::size_t index = 0; index < values_.size(); ++index) {
        // A text that no value of a file can be: values have no blanks at their ends.
        constexpr char missing[] = " ";
        char value[255];
        GetPrivateProfileStringA(settingTable[index].section, settingTable[index].key, missing, value,
                                 sizeof(value), path.c_str());
        if (std::string_view(value) != missing) {
            values_[index] = value;
        }
    }
    return true;
}

const std::string& ChosenSettings::value(std::string_view section, std::string_view key) const {
    return values_[indexOf(section, key)];
}

void ChosenSettings::set(std::string_view section, std::string_view key, std::string value) {
    values_[indexOf(section, key)] = std::move(value);
}

const std::string& ChosenSettings::valueOf(const SettingRow& row) const {
    return values_[static_cast<std::size_t>(&row - settingTable.data())];
}

void applyColours(ChosenSettings& chosen, const ColourScheme& scheme) {
    for (const SchemeKey& part : schemeKeys) {
        chosen.set("Settings", part.key, scheme.*part.colour);
    }
}

int chosenScheme(const ChosenSettings& chosen) {
    for (std::size_t index = 0; index < colourSchemes.size(); ++index) {
        bool isChosen = true;
        for (const SchemeKey& part : schemeKeys) {
            isChosen = isChosen && chosen.value("Settings", part.key) == colourSchemes[index].*part.colour;
        }
        if (isChosen) {
            return static_cast<int>(index);
        }
    }
    return -1;
}
