// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/module.h"

#include "platform/files/paths.h"
#include "platform/process/command_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

TEST(ModuleTest, CommandLineStartsWithTheQuotedName) {
    const std::string line = GetCommandLineA();
    const std::string name = testing::internal::GetArgvs().at(0);
    EXPECT_EQ(line.substr(0, name.size() + 2), '"' + name + '"');
}

TEST(ModuleTest, FileNameIsCutToTheBuffer) {
    const std::string path = std::filesystem::read_symlink("/proc/self/exe");
    char buffer[4096];
    const DWORD length = GetModuleFileNameA(nullptr, buffer, sizeof(buffer));
    EXPECT_EQ(length, path.size());
    EXPECT_EQ(nativePath(buffer), path);
    EXPECT_EQ(buffer[0], '\\');
    EXPECT_EQ(programFolder(), std::filesystem::path(path).parent_path());
    char small[5] = "xxxx";
    EXPECT_EQ(GetModuleFileNameA(nullptr, small, sizeof(small)), sizeof(small));
    EXPECT_EQ(std::string(small), std::string(buffer).substr(0, 4));
}

} // namespace
