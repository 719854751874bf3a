// SPDX-License-Identifier: GPL-3.0-or-later
#include "launch/emulator_folder.h"

#include "config/settings.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace {

// The folder of the running executable, here the test program.
std::string ownFolder() {
    std::string path = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    std::ranges::replace(path, '/', '\\');
    return path;
}

TEST(EmulatorFolder, IsTheProgramsFolderForADriveOrAnAbsolutePath) {
    const TemporaryFolder folder;
    const std::string base = folder.pathOf("");
    std::filesystem::create_directories("my games/bin");
    for (const char* program : {"mame", "my games/mame", "my games/bin/mame"}) {
        std::filesystem::permissions(folder.write(program, ""), std::filesystem::perms::all);
    }
    std::string backslashes = base + "my games/mame.exe";
    std::ranges::replace(backslashes, '/', '\\');
    const std::pair<std::string, std::string> rows[] = {
        {"c:\\emu\\mame.exe", "c:\\emu"},
        {"c:mame.exe", ownFolder()},
        {"mame", ownFolder()},
        {"./mame", ownFolder()},
        {"", ownFolder()},
        {base + "mame", base},
        {base + "mame.exe", base},
        {base + "mame -rompath /home/player/roms", base},
        {base + "my games/mame", base + "my games"},
        {base + "my games/mame -cfg_directory /x/y z", base + "my games"},
        {"\"" + base + "my games/bin/mame\" -rompath /r", base + "my games/bin"},
        {backslashes + " -window", base + "my games"},
        {base + "missing", ownFolder()},
        {base + "my games", ownFolder()},
    };
    for (const auto& [setting, expected] : rows) {
        std::string text = setting;
        settings.mameExe = text.data();
        EXPECT_EQ(emulatorFolder(),
                  expected.ends_with('/') ? expected.substr(0, expected.size() - 1) : expected)
            << setting;
    }
    settings.mameExe = nullptr;
}

} // namespace
