// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/library_pages.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

// Resident KiB of a library's code; -1 when it is not loaded.
int residentCode(const std::string& library) {
    std::ifstream mappings("/proc/self/smaps");
    bool found = false;
    for (std::string line; std::getline(mappings, line);) {
        if (line.find(" r-xp ") != std::string::npos) {
            found = line.find(library) != std::string::npos;
        } else if (found && line.starts_with("Rss:")) {
            return std::stoi(line.substr(4));
        }
    }
    return -1;
}

TEST(LibraryPages, OnlyThoseOfLaterLibrariesAreDropped) {
    const int count = libraryCount();
    ASSERT_EQ(residentCode("libmpv.so"), -1);
    void* player = dlopen("libmpv.so.2", RTLD_LAZY | RTLD_LOCAL);
    ASSERT_NE(player, nullptr);
    const int loaded = residentCode("libmpv.so");
    EXPECT_GT(loaded, 0);
    const int others = residentCode("libcairo.so");
    dropLibraryPages(libraryCount());
    EXPECT_EQ(residentCode("libmpv.so"), loaded);
    dropLibraryPages(count);
    EXPECT_EQ(residentCode("libmpv.so"), 0);
    EXPECT_EQ(residentCode("libcairo.so"), others);
    EXPECT_NE(dlsym(player, "mpv_create"), nullptr);
}

} // namespace
