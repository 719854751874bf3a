// SPDX-License-Identifier: GPL-3.0-or-later
// The set-up on the terminal, with a script in place of the emulator.
#include "setup/terminal.h"

#include "setup/art_folders.h"
#include "setup/game_list_maker.h"
#include "setup/program_output.h"
#include "setup/proposal.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

class SetupTerminal : public ::testing::Test {
protected:
    SetupTerminal() {
        fs::create_directories(folder.pathOf("home/mame/roms"));
        setenv("HOME", folder.pathOf("home").c_str(), 1);
        unsetenv("XDG_CONFIG_HOME");
        setenv("PATH", folder.pathOf("bin").c_str(), 1);
        fs::create_directory(folder.pathOf("bin"));
        writeProgram("bin/mame", "case $1 in\n-showconfig) echo 'rompath \"$HOME/mame/roms;/nowhere\"' ;;\n"
                                 "-version) echo '0.999 (test)' ;;\n*) exit 1 ;;\nesac\n");
    }

    void writeProgram(const std::string& name, const std::string& script) {
        folder.write(name, "#!/bin/sh\n" + script);
        fs::permissions(folder.pathOf(name), fs::perms::owner_all);
    }

    const TemporaryFolder folder;
};

TEST_F(SetupTerminal, FindsTheEmulatorAndTheFoldersThatServeMost) {
    ASSERT_EQ(findEmulators().front(), folder.pathOf("bin/mame"));
    Emulator emulator;
    ASSERT_TRUE(questionEmulator(folder.pathOf("bin/mame"), emulator));
    EXPECT_EQ(emulator.version, "0.999 (test)");
    EXPECT_EQ(foldersOf(emulator, "rompath").front(), folder.pathOf("home/mame/roms"));
    fs::create_directories(folder.pathOf("home/mame/Marquees"));
    fs::create_directories(folder.pathOf("art/marquees"));
    folder.write("home/mame/Marquees/a.png", "");
    folder.write("art/marquees/a.png", "");
    folder.write("art/marquees/b.png", "");
    ChosenSettings chosen;
    chosen.set("Settings", "Flyer.dir", folder.pathOf("art")); // exists, so it stays
    proposeFolders(chosen, emulator, searchRoots(emulator, {folder.pathOf("art")}));
    EXPECT_EQ(chosen.value("Settings", "Roms.dir"), folder.pathOf("home/mame/roms"));
    EXPECT_EQ(chosen.value("Settings", "Marquee.dir"), folder.pathOf("art/marquees"));
    EXPECT_EQ(chosen.value("Settings", "Flyer.dir"), folder.pathOf("art"));
    EXPECT_EQ(chosen.value("Settings", "Title.dir"), "");
    EXPECT_EQ(emulatorCommand(emulator, folder.pathOf("home/mame/roms")),
              folder.pathOf("bin/mame") + " -skip_gameinfo");
    EXPECT_EQ(emulatorCommand(emulator, "/my roms"),
              folder.pathOf("bin/mame") + " -rompath \"/my roms\" -skip_gameinfo");
}

TEST_F(SetupTerminal, RefusesProgramsThatAreNoEmulator) {
    Emulator emulator;
    const char* const scripts[] = {"echo hello\n", "echo rompath x; exit 1\n", "exit 0\n"};
    for (const char* script : scripts) {
        writeProgram("bin/mame", script);
        EXPECT_FALSE(questionEmulator(folder.pathOf("bin/mame"), emulator)) << script;
    }
    writeProgram("bin/slow", "exec /bin/sleep 60\n");
    EXPECT_FALSE(outputOf("slow", 200));
    SetupOptions options;
    options.ini = folder.pathOf("k.ini");
    options.emulator = folder.pathOf("bin/mame");
    EXPECT_EQ(writeOnTerminal(options), 1);
    EXPECT_FALSE(fs::exists(options.ini));
}

TEST_F(SetupTerminal, AFailedListKeepsTheFormerOne) {
    folder.write("listinfo.dat", "game (\n\tname pong\n\tdescription \"Pong\"\n)\n");
    const auto goOn = [](const std::string&) { return true; };
    EXPECT_NE(makeGameList(folder.pathOf("bin/mame"), folder.pathOf("."), goOn), "")
        << "it ends with an error";
    EXPECT_NE(makeGameList("no-such-program", folder.pathOf("."), goOn), "");
    writeProgram("bin/mame", "exec /bin/sleep 60\n");
    EXPECT_EQ(makeGameList("mame", folder.pathOf("."), [](const std::string&) { return false; }), "Stopped.");
    EXPECT_TRUE(loadGameListFrom(folder.pathOf(".")));
    EXPECT_EQ(gamesWithoutRom(), std::vector<std::string>{"pong"});
    EXPECT_EQ(addPlaceholders(folder.pathOf("home/mame/roms")), 1);
    EXPECT_EQ(addPlaceholders(folder.pathOf("home/mame/roms")), 0);
    for (const fs::directory_entry& entry : fs::directory_iterator(".")) {
        EXPECT_EQ(entry.path().string().find(".part"), std::string::npos) << entry.path();
    }
}

TEST(SetupOptions, AreCheckedBeforeAnythingIsDone) {
    const struct {
        std::vector<const char*> arguments;
        const char* wrong; // empty: nothing
    } cases[] = {
        {{}, ""},
        {{"--emulator", "/x", "--roms=/y", "--orientation", "ROL", "--write", "k.ini"}, ""},
        {{"--check", "k.ini"}, ""},
        {{"--check"}, ""},
        {{"--write"}, "--write needs a value."},
        {{"--roms="}, "--roms needs a value."},
        {{"--chek", "k.ini"}, "There is no option --chek."},
        {{"--check", "k.ini", "--rebuild"}, "--rebuild does not go with the options before it."},
    };
    for (const auto& row : cases) {
        SetupOptions options;
        std::vector<char*> arguments;
        for (const char* argument : row.arguments) {
            arguments.push_back(const_cast<char*>(argument));
        }
        EXPECT_EQ(parseOptions(arguments, options), row.wrong);
    }
}

} // namespace
