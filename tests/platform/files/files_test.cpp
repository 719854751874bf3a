// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"
#include "platform/text_file.h"

#include "platform/base/end_request.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

class FilesTest : public ::testing::Test {
protected:
    // Returns the name that a search finds, with a separator after a folder's; "-" for no result.
    std::string find(const std::string& pattern) const {
        WIN32_FIND_DATAA found;
        const HANDLE search = FindFirstFileA(pattern.c_str(), &found);
        if (search == INVALID_HANDLE_VALUE) {
            return "-";
        }
        EXPECT_TRUE(FindClose(search));
        return std::string(found.cFileName) + (found.dwFileAttributes == FILE_ATTRIBUTE_DIRECTORY ? "/" : "");
    }

    // Returns the text that fgets reads in pieces of at most pieceSize - 1 bytes.
    std::string readText(std::string_view text, int pieceSize = 1024) const {
        FILE* const file = openTextFile(folder.write("text", text).c_str());
        std::string all;
        std::string piece(static_cast<std::size_t>(pieceSize), '\0');
        while (std::fgets(piece.data(), pieceSize, file)) {
            all += piece.c_str();
        }
        EXPECT_TRUE(std::feof(file));
        EXPECT_EQ(std::fclose(file), 0);
        return all;
    }

    TemporaryFolder folder;
};

TEST_F(FilesTest, FindsByNameAndPattern) {
    folder.write("Game.zip", "");
    folder.write("odd[1].txt", "");
    std::filesystem::create_directories(folder.pathOf("sub/empty"));
    std::filesystem::create_symlink("nowhere", folder.pathOf("sub/dangling"));
    const struct {
        const char* pattern;
        const char* found;
    } cases[] = {
        {"Game.zip", "Game.zip"},
        {"game.zip", "-"},
        {"sub", "sub/"},
        {"sub\\empty", "empty/"},
        {"sub\\", "-"},
        {"none/Game.zip", "-"},
        {"*.zip", "Game.zip"},
        {"G?me.z*p", "Game.zip"},
        {"g*", "-"},
        {"?", "-"},
        {"odd[1].*", "odd[1].txt"},
        {"odd[1]*?", "odd[1].txt"},
        {"s*", "sub/"},
        {"sub\\*.*", "empty/"},
        {"sub/empty/*", "-"},
        {"sub/dangling", "-"},
        {"none/*", "-"},
        {"Game.zip/*", "-"},
    };
    for (const auto& [pattern, found] : cases) {
        EXPECT_EQ(find(pattern), found) << pattern;
    }
    EXPECT_EQ(find(std::string(10'000, 'x')), "-");
    WIN32_FIND_DATAA found;
    EXPECT_EQ(FindFirstFileA("", &found), INVALID_HANDLE_VALUE);
    EXPECT_FALSE(FindClose(INVALID_HANDLE_VALUE));
    EXPECT_FALSE(FindClose(nullptr));
}

TEST_F(FilesTest, OpensExistingAndNewFiles) {
    const auto opened = [](const std::string& file, DWORD access, DWORD disposition) {
        return CloseHandle(CreateFileA(file.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                                       FILE_ATTRIBUTE_NORMAL, nullptr)) == TRUE;
    };
    folder.write("old", "text");
    std::filesystem::create_directory(folder.pathOf("sub"));
    ASSERT_EQ(mkfifo(folder.pathOf("pipe").c_str(), 0600), 0);
    EXPECT_TRUE(opened(folder.pathOf("old"), GENERIC_READ, OPEN_EXISTING));
    EXPECT_EQ(folder.read("old"), "text");
    EXPECT_FALSE(opened(folder.pathOf("old"), GENERIC_WRITE, OPEN_EXISTING));
    EXPECT_EQ(folder.read("old"), "text");
    EXPECT_TRUE(opened(".\\old", GENERIC_WRITE, CREATE_ALWAYS));
    EXPECT_EQ(folder.read("old"), "");
    EXPECT_FALSE(opened(folder.pathOf("none"), GENERIC_READ, OPEN_EXISTING));
    EXPECT_FALSE(opened(folder.pathOf("sub"), GENERIC_READ, OPEN_EXISTING));
    EXPECT_FALSE(opened(folder.pathOf("sub"), GENERIC_WRITE, CREATE_ALWAYS));
    EXPECT_FALSE(opened(folder.pathOf("none/new"), GENERIC_WRITE, CREATE_ALWAYS));
    EXPECT_FALSE(opened(folder.pathOf("pipe"), GENERIC_WRITE, CREATE_ALWAYS));
}

// A partial game list would be accepted at every later start.
TEST_F(FilesTest, AnOutputFileGetsItsNameWhenItIsClosed) {
    const auto create = [&] {
        return CreateFileA(folder.pathOf("old").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0,
                           nullptr);
    };
    folder.write("old", "text");
    const HANDLE file = create();
    EXPECT_EQ(folder.read("old"), "text");
    EXPECT_EQ(folder.read("old.new~"), "");
    EXPECT_EQ(create(), INVALID_HANDLE_VALUE) << "the temporary file is locked by the first handle";
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_FALSE(CloseHandle(file));
    EXPECT_EQ(folder.read("old"), "");
    EXPECT_FALSE(folder.has("old.new~"));

    folder.write("old", "text");
    folder.write("old.new~", "left by a power failure");
    const HANDLE second = create();
    requestEnd(EndRequest::close);
    EXPECT_TRUE(CloseHandle(second));
    EXPECT_EQ(folder.read("old"), "text") << "an end was requested before the handle was closed";
    EXPECT_FALSE(folder.has("old.new~"));
    forgetEndRequest();
}

TEST_F(FilesTest, ReadsTextWithAnyLineEndAndEncoding) {
    using namespace std::string_view_literals;
    const struct {
        std::string_view text;
        std::string_view shown;
    } cases[] = {
        {"", ""},
        {"a\r\nb\nc", "a\nb\nc"},
        {"a\rb\r\r\nc\r", "a\rb\r\nc\r"},
        {"\r\n\r\n", "\n\n"},
        {"\r", "\r"},
        {"\xEF\xBB\xBF", ""},
        {"\xEF\xBB\xBFPok\xC3\xA9\r\n\xE2\x82\xAC", "Pok\xE9\n\x80"},
        {"\xEF\xBB\xBFx\xC3", "x\xC3"},
        {"\xEF\xBB", "\xEF\xBB"},
        {"Pok\xC3\xA9 \xE2\x82\xAC", "Pok\xE9 \x80"}, // UTF-8 without a mark
        {"Pok\xE9 \xC3\xA9", "Pok\xE9 \xC3\xA9"},
    };
    for (const auto& [text, shown] : cases) {
        EXPECT_EQ(readText(text), shown) << text;
    }
}

TEST_F(FilesTest, ReadsTextAcrossBufferBoundaries) {
    // Each shift places another byte of the line end and of the three-byte character at the buffer boundary.
    for (std::size_t shift = 0; shift < 12; ++shift) {
        const std::string lead(64 * 1024 - shift, 'x');
        EXPECT_EQ(readText(lead + "\r\n\r\r\n\rb", 700), lead + "\n\r\n\rb") << shift;
        EXPECT_EQ(readText("\xEF\xBB\xBF" + lead + "\r\n\xE2\x82\xAC\xC3\xA9z", 700), lead + "\n\x80\xE9z")
            << shift;
    }
}

TEST_F(FilesTest, OpensOnlyPlainFilesAsText) {
    std::filesystem::create_directory(folder.pathOf("sub"));
    ASSERT_EQ(mkfifo(folder.pathOf("pipe").c_str(), 0600), 0);
    for (const std::string& file : {folder.pathOf("sub"), folder.pathOf("pipe"), folder.pathOf("none"),
                                    std::string("/dev/zero"), std::string()}) {
        EXPECT_EQ(openTextFile(file.c_str()), nullptr) << file;
    }
}

} // namespace
