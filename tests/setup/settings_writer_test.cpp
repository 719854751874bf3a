// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/settings_writer.h"

#include "setup/ini_lines.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

int countOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST(SettingsWriter, WhatIsWrittenIsReadBack) {
    const TemporaryFolder folder;
    ChosenSettings chosen;
    // Values that the reader of ini files would change without care.
    chosen.set("Settings", "Mame.exe", R"("/opt/my mame/mame" -rompath "/my roms")");
    chosen.set("Settings", "Roms.dir", "/my roms");
    chosen.set("Sounds", "Select", "\"quoted.wav\"");
    chosen.set("Extras", "ExitCommand", "systemctl poweroff");
    ASSERT_EQ(writeSettings(chosen, folder.pathOf("new/folder/k.ini")), "");
    ChosenSettings read;
    ASSERT_TRUE(read.load(folder.pathOf("new/folder/k.ini")));
    for (const SettingRow& row : settingTable) {
        EXPECT_EQ(read.valueOf(row), chosen.valueOf(row)) << row.key;
    }
    const std::string text = folder.read("new/folder/k.ini");
    EXPECT_NE(text.find("[Mameoptions]"), text.npos);
    for (const IniLine& line : splitIni(text)) {
        EXPECT_NE(line.kind, IniLineKind::other) << line.text;
        EXPECT_LE(line.text.size(), 254U);
    }
}

TEST(SettingsWriter, KeepsWhatItDoesNotKnow) {
    const std::string existing =
        "; my own comment\r\n[settings]\r\nfontsize=31\r\nMy Key=5\r\n; about my key\r\n\r\n"
        "[Mameoptions]\r\npong=-video soft\r\n; pong needs it\r\n[Mine]\r\nother=1\r\n";
    const std::string once = settingsText(ChosenSettings(), existing);
    for (const char* kept :
         {"; my own comment\r\n", "My Key=5\r\n", "; about my key\r\n",
          "[Mameoptions]\r\npong=-video soft\r\n; pong needs it\r\n", "[Mine]\r\nother=1\r\n"}) {
        EXPECT_EQ(countOf(once, kept), 1) << kept;
    }
    EXPECT_EQ(countOf(once, "\n"), countOf(once, "\r\n"));
    EXPECT_EQ(once.find("fontsize=31"), once.npos) << "the new value replaces it";
    EXPECT_EQ(countOf(once, "Fontsize="), 1);
    EXPECT_EQ(settingsText(ChosenSettings(), once), once) << "a second time changes nothing";
}

TEST(SettingsWriter, KeepsTheFormerFileAndFailsWithoutHarm) {
    const TemporaryFolder folder;
    folder.write("k.ini", "[Mine]\na=1\n");
    EXPECT_EQ(writeSettings(ChosenSettings(), folder.pathOf("k.ini")), "");
    EXPECT_EQ(folder.read("k.ini.bak"), "[Mine]\na=1\n");
    std::filesystem::create_directory(folder.pathOf("x.ini"));
    EXPECT_NE(writeSettings(ChosenSettings(), folder.pathOf("x.ini")), "");
    EXPECT_NE(writeSettings(ChosenSettings(), folder.pathOf("k.ini/below/x.ini")), "");
}

} // namespace
