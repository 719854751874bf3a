// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/process/command_line.h"

#include <gtest/gtest.h>

namespace {

using Words = std::vector<std::string>;

TEST(CommandLineTest, SplitsByTheDocumentedRules) {
    const struct {
        const char* line;
        Words words;
    } cases[] = {
        {"", {}},
        {" \t ", {}},
        {"a b\tc  d ", {"a", "b", "c", "d"}},
        {"\t a", {"a"}},
        {R"("c:\my games\mame.exe" pac)", {R"(c:\my games\mame.exe)", "pac"}},
        {R"(c:\dir\"a b"\x\\ y)", {R"(c:\dir\a b\x\\)", "y"}},
        {R"(p "a b"c d"e f")", {"p", "a bc", "de f"}},
        {R"(p "" "")", {"p", "", ""}},
        {R"(p a\\b c\)", {"p", R"(a\\b)", R"(c\)"}},
        {R"(p "a\\" b)", {"p", R"(a\)", "b"}},
        {R"(p "a\\\\" b)", {"p", R"(a\\)", "b"}},
        {R"(p a\"b c\\\"d)", {"p", R"(a"b)", R"(c\"d)"}},
        {R"(p "a""b c" d)", {"p", R"(a"b c)", "d"}},
        {R"(p """a b""")", {"p", R"("a b")"}},
        {R"(p "not closed  x)", {"p", "not closed  x"}},
        {R"(p ")", {"p", ""}},
        {R"(p ;|&$(x)`*' <>)", {"p", ";|&$(x)`*'", "<>"}},
    };
    for (const auto& [line, words] : cases) {
        EXPECT_EQ(splitCommandLine(line), words) << line;
    }
}

TEST(CommandLineTest, TailIsUnmodified) {
    const struct {
        const char* line;
        const char* tail;
    } cases[] = {
        {"", ""},
        {"program", ""},
        {" \t\"my program\" \t a  b\t", "a  b\t"},
        {"program \"quoted path\"", "\"quoted path\""},
        {"\"my program\"a.ini", "a.ini"},
        {"my\"program x\" y", "x\" y"},
        {"\"not closed a.ini", ""},
    };
    for (const auto& [line, tail] : cases) {
        std::string text = line;
        EXPECT_STREQ(commandTail(text.data()), tail) << line;
    }
}

} // namespace
