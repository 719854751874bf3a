// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml2info/list_output.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

Segment segmentOf(std::initializer_list<std::pair<const char*, const char*>> namesAndRomOf) {
    Segment segment;
    for (const auto& [name, romOf] : namesAndRomOf) {
        Machine machine;
        machine.name = name;
        machine.romOf = romOf;
        appendBlock(segment, machine);
    }
    return segment;
}

TEST(ListOutput, ResolvesRomOfToTheEndOfItsChain) {
    const struct {
        const char* name;
        const char* romOf;
        const char* chainEnd;
    } sets[] = {
        {"hack", "clone", "bios"},
        {"clone", "parent", "bios"},
        {"parent", "bios", "bios"},
        {"bios", "", ""},
        {"orphan", "gone", "gone"},
        {"child", "orphan", "gone"},
        {"self", "self", "self"},
        {"a", "b", "b"},
        {"b", "c", "c"},
        {"c", "a", "a"},
        {"toCycle", "a", "b"},
        {"bios", "other", "other"},
        {"late", "bios", "bios"},
    };
    Segment segment;
    std::vector<const Block*> blocks;
    for (const auto& set : sets) {
        Machine machine;
        machine.name = set.name;
        machine.romOf = set.romOf;
        ASSERT_TRUE(appendBlock(segment, machine));
    }
    for (const Block& block : segment.blocks) {
        blocks.push_back(&block);
    }
    const std::vector<std::string_view> chainEnds = resolveRomOf(blocks);
    for (std::size_t index = 0; index < std::size(sets); ++index) {
        EXPECT_EQ(chainEnds[index], sets[index].chainEnd) << sets[index].name;
    }
}

TEST(ListOutput, RestoresTheFileWhenWritingFails) {
    std::vector<Segment> segments;
    for (int part = 0; part < 50; ++part) {
        segments.push_back(segmentOf({{"a", "b"}, {"b", ""}, {"c", ""}}));
    }
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small = {4096, RLIM_INFINITY};
    for (const off_t before : {0, 10}) {
        FILE* file = std::tmpfile();
        std::fwrite("0123456789", 1, static_cast<std::size_t>(before), file);
        std::fflush(file);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
        EXPECT_FALSE(writeList(fileno(file), segments));
        const rlimit none = {RLIM_INFINITY, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &none);
        struct stat after = {};
        fstat(fileno(file), &after);
        EXPECT_EQ(after.st_size, before);
        std::fclose(file);
    }
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    EXPECT_FALSE(writeList(full, segments));
    close(full);
}

} // namespace
