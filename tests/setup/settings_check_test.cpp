// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/settings_check.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

class SettingsCheck : public ::testing::Test {
protected:
    CheckResult check(const std::string& lines) {
        folder.write("k.ini", "[Settings]\nMame.exe=./emulator\nRoms.dir=roms\n" + lines);
        return checkSettings(folder.pathOf("k.ini"));
    }

    static std::string textOf(const CheckResult& result) {
        std::string text;
        for (const CheckFinding& finding : result.findings) {
            text +=
                std::to_string(finding.line) + (finding.isProblem ? ": " : ": note: ") + finding.text + "\n";
        }
        return text;
    }

    void SetUp() override {
        folder.write("emulator", "#!/bin/sh\nexit 0\n");
        std::filesystem::permissions(folder.pathOf("emulator"), std::filesystem::perms::owner_all);
        std::filesystem::create_directory(folder.pathOf("roms"));
        folder.write("listinfo.dat", "game (\n\tname pong\n\tdescription \"Pong\"\n)\n");
    }

    const TemporaryFolder folder;
};

TEST_F(SettingsCheck, FindsWhatIsWrongLineByLine) {
    const struct {
        const char* lines; // the first one is line 4
        const char* finding;
    } cases[] = {
        {"Fontzise=5", "4: There is no key Fontzise in the section Settings. The nearest is Fontsize."},
        {"SortBy=Name", "It belongs to the section RomOptions."},
        {"[RomOption]", "4: There is no section RomOption. The nearest is RomOptions."},
        {"just words", "4: This is neither a section"},
        {"Fontsize=12\nfontsize=13", "5: fontsize appears a second time"},
        {"Fontsize=big", "4: Fontsize: \"big\" is no whole number."},
        {"AllowMenu=yes", "4: AllowMenu: \"yes\" is neither 0 nor 1."},
        {"Orientation=RoL", "the nearest is ROL"},
        {"Fontcolor=0x01000000", "4: Fontcolor: \"0x01000000\" is not between 0 and 0xFFFFFF."},
        {"Fontcolor=red", "is no hexadecimal number"},
        {"Title.dir=nowhere", "4: Title.dir: \"nowhere\" is no folder."},
        {"Mameinfo.dat=roms", "is no file"},
        {"[Keymappings]\nExit=7", "5: Exit: \"7\" is the code of no key."},
        {"[Keymappings]\nExit=1000", "is not between 0 and 254"},
        {"[JoystickMappings]\nExit=3", "is the code of no joystick control"},
        {"[Keymappings]\nExit=38", "5: Up arrow is used twice: for SelectUp and Exit."},
        {"[Keymappings]\nGameInfo=32", "5: Space is used twice: for GameInfo and JumpBackKey."},
        {"[Extras]\nRepeatDelay=-1", "5: RepeatDelay: \"-1\" is not between 0 and 10000."},
        {"[Sounds]\nSelect=none.wav", "5: Select: \"none.wav\" is no file."},
    };
    for (const auto& row : cases) {
        const std::string text = textOf(check(row.lines));
        EXPECT_NE(text.find(row.finding), text.npos) << row.finding << "\nin\n" << text;
    }
}

TEST_F(SettingsCheck, AFileWithoutMistakesHasNotesOnly) {
    const CheckResult result = check("; comment\n\nFontcolor=00D8F0FF\n[mameoptions]\npong=-video soft\n");
    for (const CheckFinding& finding : result.findings) {
        EXPECT_FALSE(finding.isProblem) << finding.text;
    }
}

TEST_F(SettingsCheck, FindsProgramsAndListsThatCannotBeUsed) {
    folder.write("emulator", "#!/bin/sh\nexit 3\n");
    EXPECT_NE(textOf(check("")).find("2: Mame.exe: "), std::string::npos);
    std::filesystem::remove(folder.pathOf("emulator"));
    EXPECT_NE(textOf(check("")).find("2: Mame.exe: there is no program ./emulator."), std::string::npos);
    folder.write("listinfo.dat", "");
    EXPECT_NE(textOf(check("")).find("0: The game list listinfo.dat is empty."), std::string::npos);
    std::filesystem::remove(folder.pathOf("listinfo.dat"));
    EXPECT_NE(textOf(check("")).find("0: note: There is no game list"), std::string::npos);
    EXPECT_TRUE(checkSettings(folder.pathOf("missing.ini")).findings.at(0).isProblem);
}

TEST_F(SettingsCheck, CountsTheGamesThatFilesServe) {
    folder.write("listinfo.dat", "game (\n\tname pong\n\tdescription \"Pong\"\n)\n"
                                 "game (\n\tname pongclone\n\tdescription \"Pong 2\"\n\tcloneof pong\n)\n"
                                 "game (\n\tname other\n\tdescription \"Other\"\n)\n");
    folder.write("roms/pong.zip", "");
    folder.write("roms/pong.png", "");
    folder.write("roms/unknown.zip", "");
    folder.write("info.dat", "$info=other\n$bio\n\ntext\n\n$end\n");
    const CheckResult result = check("Mameinfo.dat=info.dat\nMarquee.dir=roms\n");
    const auto has = [&](const char* line) {
        return std::ranges::find(result.counts, line) != result.counts.end();
    };
    EXPECT_TRUE(has("Games in the list: 3"));
    EXPECT_TRUE(has("Games with their ROM: 2"));
    EXPECT_TRUE(has("ROMs: 2 files, for 2 games"));
    EXPECT_TRUE(has("Marquees: 1 files, for 2 games"));
    EXPECT_TRUE(has("Games with information: 1"));
}

} // namespace
