// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/game_info.h"

#include "config/settings.h"
#include "platform/text_file.h"
#include "support/game_list.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <stdio_ext.h>

namespace {

class GameInfoTest : public ::testing::Test {
protected:
    GameInfoTest() {
        loadCatalogue("game (\nname a\n)\ngame (\nname b\n)\n");
        settings.useMameInfoDat = 1;
    }
    ~GameInfoTest() override { freeGameList(); }

    // Parses a file with this content and returns what the parser printed on standard output.
    std::string load(const std::string& content) {
        FILE* stream = openTextFile(folder.write("info.dat", content).c_str());
        testing::internal::CaptureStdout();
        result = parseGameInfo(stream);
        EXPECT_EQ(__fpending(stdout), 0U) << "unflushed output can block the end of the process";
        std::fclose(stream);
        return testing::internal::GetCapturedStdout();
    }

    // The lines of a game, each followed by a vertical bar.
    static std::string textOf(const char* name) {
        const auto* game = static_cast<const GameRecord*>(hashFind(name, gameIndex));
        std::string text;
        for (int line = 0; line < game->infoLineCount; ++line) {
            text += std::string(game->infoLines[line]) + "|";
        }
        EXPECT_EQ(!game->infoLines, game->infoLineCount == 0);
        return text;
    }

    TemporaryFolder folder;
    std::int32_t result = -1;
};

TEST_F(GameInfoTest, ReadsBlocksAndStopsAtAMisplacedStatement) {
    constexpr const char* errorMessage = "invalid state found!!!\n";
    const struct {
        std::string content;
        const char* first;
        const char* second;
        bool printsError;
        int result;
    } rows[] = {
        {"", "", "", false, 1},
        {"# head\n\n$info=a\n$mame\nOne\n\n\n  Two \n\n$end\n", "One||  Two |", "", false, 1},
        {"$info=a\r\n$bio\r\nOne\r\n\r\n$end\r\n$info=b,a\r\n$drv\r\nX\r\n\r\n$end\r\n", "One|", "", false,
         1},
        {"\xEF\xBB\xBF$info=a\n$mame\nCaf\xC3\xA9\n\n$end\n", "Caf\xE9|", "", false, 1},
        {"$info=a\n$mame\nCaf\xE9\n\n$end\n", "Caf\xE9|", "", false, 1},
        {"$info=b,a,c\n$mame\nOne\n\n$end\n$info:a and more\n$mame\nX\n\n$end\n", "", "One|", false, 1},
        {"$info=zzz\n$mame\nX\n\n$end\n$info\n$mame\nX\n\n$end\n$info=b\n$mame\nY\n\n$end\n", "", "Y|", false,
         1},
        {"$info=a\nlost\n$mame and more\nOne\nlost\nTwo\n$mame\n#no\n$ends\n", "One|Two|", "", false, 1},
        {"$info=a\n$mame\nOne\n\n$end\n$info=a\n$mame\nTwo\n\n$end\n", "Two|", "", false, 1},
        {"$info=a\n$mame\nOne\n\n$end\n$info=a\n$drv\nTwo\n\n$end\n", "", "", false, 1},
        {"$info=a\n$mame\n$end\n", "", "", false, 1},
        {"$info=a\n$mame\nOne\n\n$end\n$info=b\n$mame\nTwo\n", "One|", "", false, 0},
        {"$info=a\n$mame\nOne\n\n$end", "", "", false, 0}, // the last character is dropped, whatever it is
        {"$info=a\n$mame\nOne\n$end\n$info=b\n$mame\nTwo\n\n$end\n", "", "", true, 0},
        {"$info=a\n$mame\nOne\n\n$end\n$end\n$info=b\n$mame\nTwo\n\n$end\n", "One|", "", true, 1},
        {"$info=a\n$info=b\n", "", "", true, 0},
        {"$info=a\n$end\n", "", "", true, 0},
        {"$info=a\n$mame\n$bio\n", "", "", true, 0},
        {"$mame\n", "", "", true, 1},
    };
    for (const auto& row : rows) {
        loadCatalogue("game (\nname a\n)\ngame (\nname b\n)\n");
        EXPECT_EQ(load(row.content), row.printsError ? errorMessage : "") << row.content;
        EXPECT_EQ(result, row.result) << row.content;
        EXPECT_EQ(textOf("a"), row.first) << row.content;
        EXPECT_EQ(textOf("b"), row.second) << row.content;
    }
}

TEST_F(GameInfoTest, SplitsLongLines) {
    load("$info=a\n$mame\n" + std::string(1023, 'x') + "yyy\nThree\n\n$end\n");
    EXPECT_EQ(textOf("a"), std::string(1022, 'x') + "|Three|")
        << "the second piece is skipped as the empty line";
    load("$info=" + std::string(2000, 'n') + ",a\n$mame\nX\n\n$end\n");
    EXPECT_EQ(textOf("b"), "");
}

TEST_F(GameInfoTest, SurvivesTruncatedAndBinaryFiles) {
    const std::string whole = "\xEF\xBB\xBF#c\r\n$info=a,b\r\n$mame\r\nOne\xC3\xA9\r\n\r\n\r\n$end\r\n";
    for (std::size_t length = 0; length < whole.size() - 1; ++length) {
        load(whole.substr(0, length));
        EXPECT_EQ(textOf("a"), "") << length;
    }
    std::string noise = "$info=a\n$mame\n";
    for (int index = 0; index < 200'000; ++index) {
        noise += static_cast<char>(index * 7919 >> 3);
    }
    load(noise);
    load("$info=a\n$mame\n" + std::string(1'000'000, '\n') + "$end\n");
    EXPECT_EQ(textOf("a").size(), 1'000'000U);
    load(std::string("$info=a\n$mame\n") + std::string(100'000'000, 'x'));
    EXPECT_EQ(result, 0);
}

TEST_F(GameInfoTest, DisablesTheInformationWhenTheFileIsMissing) {
    EXPECT_EQ(loadGameInfo(folder.write("info.dat", "$info=a\n$mame\nOne\n\n$end\n").c_str()), 1);
    EXPECT_EQ(textOf("a"), "One|");
    EXPECT_EQ(settings.useMameInfoDat, 1);
    for (const char* path : {"missing.dat", ".", ""}) {
        settings.useMameInfoDat = 1;
        EXPECT_EQ(loadGameInfo(path), 1);
        EXPECT_EQ(settings.useMameInfoDat, 0) << path;
    }
    freeGameList();
    settings.useMameInfoDat = 1;
    EXPECT_EQ(loadGameInfo("info.dat"), 1) << "an empty catalogue has no index";
}

} // namespace
