// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/settings_file.h"

#include "config/setting_table.h"
#include "config/settings.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace {

class SettingsTest : public ::testing::Test {
protected:
    SettingsTest() { iniPath = path.c_str(); }
    ~SettingsTest() override { freeSettings(); }

    void load() {
        freeSettings();
        loadSettings();
        settings.baseOrientation = settings.orientation;
    }

    void loadText(const std::string& text) {
        folder.write("front.ini", text);
        load();
    }

    TemporaryFolder folder;
    std::string path = folder.pathOf("front.ini");
};

// Returns the current values of all fields, in table order.
std::vector<std::string> currentValues() {
    std::vector<std::string> values;
    for (const SettingRow& row : settingTable) {
        std::visit(
            [&](auto field) {
                if constexpr (std::is_same_v<decltype(field), char * Settings::*>) {
                    values.emplace_back(settings.*field ? settings.*field : "(none)");
                } else {
                    values.push_back(std::to_string(settings.*field));
                }
            },
            row.field);
    }
    return values;
}

// Returns an ini file with every key.
std::string iniFile(const std::function<std::string(const SettingRow&)>& valueOf) {
    std::map<std::string, std::string> sections;
    for (const SettingRow& row : settingTable) {
        sections[row.section] += row.key + ("=" + valueOf(row)) + "\n";
    }
    std::string file;
    for (const auto& [name, keys] : sections) {
        file += "[" + name + "]\n" + keys;
    }
    return file;
}

// Returns a value other than the default.
std::string nonDefaultValue(const SettingRow& row) {
    if (row.kind == SettingKind::choice) {
        return row.words.front().word == std::string(row.defaultText) ? row.words.back().word
                                                                      : row.words.front().word;
    }
    if (isExtra(row) && row.defaultText) {
        return std::to_string(row.range.highest);
    }
    return row.kind == SettingKind::flag && row.defaultText == std::string("1") ? "0" : "77";
}

std::vector<std::string> keysOf(const std::string& ini) {
    std::vector<std::string> keys;
    std::istringstream lines(ini);
    for (std::string line; std::getline(lines, line);) {
        if (line.find('=') != std::string::npos) {
            keys.push_back(line.substr(0, line.find('=')));
        }
    }
    return keys;
}

TEST_F(SettingsTest, ReadsEveryKeyAndUsesDefaultsWithoutAUsableFile) {
    load();
    const std::vector<std::string> defaults = currentValues();
    loadText(iniFile([](const SettingRow& row) { return row.defaultText ? row.defaultText : ""; }));
    EXPECT_EQ(currentValues(), defaults);
    loadText(iniFile(nonDefaultValue));
    const std::vector<std::string> others = currentValues();
    for (std::size_t row = 0; row < settingTable.size(); ++row) {
        EXPECT_NE(others[row], defaults[row]) << settingTable[row].key;
    }
    for (const std::string& junk :
         {std::string(), std::string("[[[=\n]=\n=1\n\r\r"), std::string(100000, '\0'),
          std::string("[Settings]\n") + std::string(70000, '\xff')}) {
        loadText(junk);
        EXPECT_EQ(currentValues(), defaults);
    }
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    load();
    EXPECT_EQ(currentValues(), defaults);
    saveSettings(nullptr);
    EXPECT_TRUE(std::filesystem::is_directory(path));
}

TEST_F(SettingsTest, FlagsAreFalseOnlyForTheDigitZero) {
    const std::pair<const char*, int> cases[] = {{"0", 0}, {"1", 1},  {"no", 1},
                                                 {"", 1},  {"00", 1}, {"-0", 1}};
    for (const auto& [value, expected] : cases) {
        loadText("[Settings]\nAllowMenu=" + std::string(value) + "\nInvertPlayer2Screen=" + value);
        EXPECT_EQ(settings.allowMenu, expected) << value;
        EXPECT_EQ(settings.invertPlayer2Screen, expected) << value;
    }
}

TEST_F(SettingsTest, NumbersColoursAndCodesAreNotRangeChecked) {
    loadText("[Settings]\r\nScrollBorderPct = "
             "-7\r\nFontcolor=FF\r\nBackgroundcolor=0xff8000\r\nHighlightForecolor=red\r\n"
             "HighlightBackcolor=\r\n[RomOptions]\r\nMaxCoins=65535\r\nMinCoins=x\r\n[keymappings]"
             "\r\nSELECTUP=65\r\n"
             "SelectDown=up\r\nExit=99999999999999999999\r\n[JoystickMappings]\r\nSelectUp=203");
    EXPECT_EQ(settings.scrollBorderPct, -7);
    EXPECT_EQ(settings.fontColor, 0xFFU);
    EXPECT_EQ(settings.backgroundColor, 0xFF8000U);
    EXPECT_EQ(settings.highlightForeColor, 0U);
    EXPECT_EQ(settings.highlightBackColor, 0U);
    EXPECT_EQ(settings.maxCoins, -1);
    EXPECT_EQ(settings.minCoins, 0);
    EXPECT_EQ(settings.keySelectUp, 65);
    EXPECT_EQ(settings.keySelectDown, 0);
    EXPECT_EQ(settings.keyExit, 0x7FFFFFFF);
    EXPECT_EQ(settings.joySelectUp, 203);
}

TEST_F(SettingsTest, ReportsBadValuesOfExtrasAndUsesTheirDefaults) {
    const char* const values[] = {"-1", "10001", "abc", "12x", "1.5", "99999999999999999999"};
    for (const char* value : values) {
        testing::internal::CaptureStderr();
        loadText("[Extras]\nRepeatDelay=" + std::string(value) + "\nLayout=turned\nIdleStep=0\n");
        const std::string report = testing::internal::GetCapturedStderr();
        EXPECT_EQ(settings.repeatDelay, 0) << value;
        EXPECT_EQ(settings.layout, layoutFixed);
        EXPECT_EQ(settings.idleStep, 15);
        for (const char* part : {"RepeatDelay in [Extras]", "from 0 to 10000", value, "Layout", "IdleStep"}) {
            EXPECT_NE(report.find(part), std::string::npos) << part << " in " << report;
        }
    }
    testing::internal::CaptureStderr();
    loadText("[Extras]\nRepeatDelay=10000\nLayout=Turned\nIdleStep=\nJumpBackKey=0\n");
    EXPECT_EQ(settings.repeatDelay, 10000);
    EXPECT_EQ(settings.layout, layoutTurned);
    EXPECT_EQ(settings.idleStep, 15);
    EXPECT_EQ(settings.keyJumpBack, 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(SettingsTest, ChoicesMatchWholeWordsCaseSensitively) {
    struct Case {
        const char* key;
        std::int32_t Settings::*field;
        const char* word;
        std::int32_t expected;
    };
    const Case cases[] = {
        {"Orientation", &Settings::orientation, "ROR", 90},
        {"Orientation", &Settings::orientation, "ROL", -90},
        {"Orientation", &Settings::orientation, "Inverted", 180},
        {"Orientation", &Settings::orientation, "ror", 0},
        {"MenuType", &Settings::menuType, "ImageBrowser", 2},
        {"MenuType", &Settings::menuType, "imagebrowser", 1},
        {"PreviewPictures", &Settings::previewPictures, "Cabinets", 0},
        {"PreviewPictures", &Settings::previewPictures, "Marquees", 4},
        {"PreviewPictures", &Settings::previewPictures, "Titles2", 1},
        {"PreviewPictures", &Settings::previewPictures, "", 1},
    };
    for (const Case& row : cases) {
        loadText("[Settings]\n" + std::string(row.key) + "=" + row.word);
        EXPECT_EQ(settings.*row.field, row.expected) << row.key << "=" << row.word;
    }
    loadText("[RomOptions]\nSortBy=Manufacturer\n");
    EXPECT_EQ(settings.sortBy, sortByManufacturer);
}

TEST_F(SettingsTest, TextsAreTruncatedTo254Characters) {
    const std::string longText(10000, 'a');
    loadText("[Settings]\nFontface=" + longText + "\n[Sounds]\nStartup=" + longText +
             "\nSelect=\nError=beep.wav\n");
    EXPECT_EQ(std::string(settings.fontFace), longText.substr(0, 254));
    EXPECT_EQ(std::string(settings.soundStartup), longText.substr(0, 254));
    EXPECT_EQ(settings.soundSelect, nullptr);
    EXPECT_STREQ(settings.soundError, "beep.wav");
    saveSettings(nullptr);
    EXPECT_NE(folder.read("front.ini").find("Fontface=" + longText.substr(0, 254) + "\n"), std::string::npos);
}

TEST_F(SettingsTest, SavesTheMenuKeysInOrderAndTheSelectionIfAny) {
    load();
    saveSettings(nullptr);
    std::vector<std::string> expected = {
        "MenuType",          "PreviewPictures",   "Fontface",      "Fontsize",      "MenuFontSize",
        "StatusBarFontFace", "StatusBarFontSize", "ShowStatusBar", "Orientation",   "DisplayMissingRoms",
        "DisplayVertical",   "DisplayHorizontal", "DisplayClones", "DisplayNeoGeo", "DisplayNonNeoGeo",
        "DisplayVector",     "DisplayRaster",     "MinPlayers",    "MaxPlayers",    "MinButtons",
        "MaxButtons",        "MinCoins",          "MaxCoins"};
    EXPECT_EQ(keysOf(folder.read("front.ini")), expected);

    std::filesystem::remove(path);
    saveSettings("pong2");
    expected.insert(expected.begin() + 9, "SelectedGame");
    EXPECT_EQ(keysOf(folder.read("front.ini")), expected);
    load();
    EXPECT_STREQ(settings.selectedGame, "pong2");
}

TEST_F(SettingsTest, ASavedFileLoadsToTheSameStateAndKeepsOtherLines) {
    const std::string others =
        "; mine\r\n[Mameoptions]\r\npong2=-nosound\r\n\r\n[Settings]\r\nUnknown=5\r\nSortBy=Name\r\n";
    loadText(others +
             "PreviewPictures=Marquees\r\nMenuType=ImageBrowser\r\nOrientation=ROL\r\nFontsize=31\r\n"
             "[RomOptions]\r\nMaxCoins=65535\r\nDisplayClones=0\r\nSortBy=Year\r\n");
    settings.orientation = 90; // rotated for player 2
    settings.sortBy = sortByManufacturer;
    settings.useMameInfoDat = 0;
    settings.displayRaster = 0;
    saveSettings(nullptr);
    EXPECT_EQ(folder.read("front.ini").find(others), 0U);
    EXPECT_NE(folder.read("front.ini").find("MaxCoins=-1\r\n"), std::string::npos);
    load();
    EXPECT_EQ(settings.previewPictures, previewMarquees);
    EXPECT_EQ(settings.menuType, menuTypeImageBrowser);
    EXPECT_EQ(settings.orientation, -90);
    EXPECT_EQ(settings.fontSize, 31);
    EXPECT_EQ(settings.maxCoins, -1);
    EXPECT_EQ(settings.displayClones, 0);
    EXPECT_EQ(settings.displayRaster, 0);
    EXPECT_EQ(settings.sortBy, sortByYear);
    EXPECT_EQ(settings.useMameInfoDat, 1);
}

} // namespace
