// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/word_wrap.h"

#include "platform/device_contexts.h"
#include "platform/window.h"
#include "render/primitives.h"
#include "support/popup_fixture.h"

#include <stdio_ext.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

class WordWrapTest : public PopupTest {
protected:
    WordWrapTest() { selectFont(dc, settings.fontFace, 18, 0, 0); }
    ~WordWrapTest() override { DeleteDC(dc); }

    // Wraps a line to the width of another text. Returns the wrapped lines, each followed by a bar.
    std::string wrap(const std::string& line, const std::string& width) {
        const LONG limit = textWidth(dc, width.c_str());
        MoveWindow(mainWindow, 0, 0, isQuarterTurn(settings.orientation) ? 20 : limit + 12,
                   isQuarterTurn(settings.orientation) ? limit + 12 : 20, FALSE);
        const char* lines[] = {line.c_str()};
        std::int32_t count = -1;
        char** wrapped = wordWrapText(mainWindow, dc, lines, 1, &count);
        std::string result;
        for (std::int32_t index = 0; index < count; ++index) {
            result += std::string(wrapped[index]) + "|";
            std::free(wrapped[index]);
        }
        std::free(static_cast<void*>(wrapped));
        return result;
    }

    HDC dc = CreateCompatibleDC(nullptr);
};

TEST_F(WordWrapTest, BreaksAtWhiteSpaceAndInsideWideWords) {
    const struct {
        const char* line;
        const char* width;
        const char* expected;
    } rows[] = {
        {"", "mm", "|"},
        {"one two", "one two", "one two|"},
        {"one two", "one tw", "one|two|"},
        {"one two", "one ", "one|two|"},
        {"one two", "one", "one|two|"},
        {"one\ttwo\vthree", "three", "one|two|three|"},
        {"one  two", "one two", "one |two|"},
        {"one two ", "one two", "one two|"},
        {"mmmmmm", "mmm", "mmm|mmm|"},
        {"mmmmm mm", "mm", "mm|mm|m|mm|"},
        {"ii mmmmm", "mm", "ii|mm|mm|m|"},
        {"mm", "", "m|m|"},
        {"m", "i", "m|"},
        {" mm", "m", "|m|m|"},
    };
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = rotation;
        for (const auto& row : rows) {
            EXPECT_EQ(wrap(row.line, row.width), row.expected) << row.line << " in " << row.width;
        }
    }
}

TEST_F(WordWrapTest, ReportsATextThatCannotBeMeasured) {
    const char* lines[] = {"text", ""};
    std::int32_t count = -1;
    testing::internal::CaptureStdout();
    EXPECT_EQ(wordWrapText(mainWindow, nullptr, lines, 2, &count), nullptr);
    EXPECT_EQ(__fpending(stdout), 0U)
        << "the message must not stay in the stdio buffer, where it could block the exit";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "GetTextExtentPoint32 failed in wordWrapText()!");
    EXPECT_EQ(count, 0);
}

} // namespace
