// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/list_parser.h"

#include "support/game_list.h"
#include "support/separate_blocks.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

class ListParser : public testing::Test {
protected:
    std::vector<GameRecord*> parseAll(const std::string& text) {
        std::vector<GameRecord*> records;
        FILE* stream = openText(text);
        while (GameRecord* record = parseGameRecord(stream, memory)) {
            records.push_back(record);
        }
        std::fclose(stream);
        return records;
    }

    const GameRecord* parseLine(const std::string& line) {
        const auto records = parseAll("game (\n" + line + "\n)\n");
        EXPECT_EQ(records.size(), 1U) << line;
        return records.at(0);
    }

private:
    SeparateBlocks memory;
};

TEST_F(ListParser, ReadsWholeBlocks) {
    const auto records = parseAll(
        "game (\n\tname alpha\n\tdescription \"Alpha \"One\" \\ (set 1)\"\n\tyear 1982\n"
        "\tmanufacturer \"Two Words\"\n\tcloneof beta\n\tromof gamma\n\tchip ( type cpu name z80 )\n"
        "\tvideo ( screen raster orientation vertical x 224 y 256 freq 60 )\n\tsound ( channels 1 )\n"
        "\tinput ( players 2 control joy8way buttons 3 coins 1 )\n)\n\n \t\v\n"
        "resource (\nname bios\n)\n\n\n");
    ASSERT_EQ(records.size(), 2U);
    const GameRecord& game = *records[0];
    EXPECT_STREQ(game.name, "alpha");
    EXPECT_STREQ(game.description, "Alpha \"One\" \\ (set 1)");
    EXPECT_EQ(game.year, 1982);
    EXPECT_STREQ(game.manufacturer, "Two Words");
    EXPECT_STREQ(game.cloneOf, "beta");
    EXPECT_STREQ(game.romOf, "gamma");
    EXPECT_STREQ(game.video->screen, "raster");
    EXPECT_EQ(game.video->orientation, orientationVertical);
    EXPECT_EQ(game.video->x, 224);
    EXPECT_EQ(game.video->y, 256);
    EXPECT_EQ(game.input->players, 2);
    EXPECT_EQ(game.input->buttons, 3);
    EXPECT_EQ(game.input->coins, 1);
    EXPECT_EQ(game.input->control, controlJoy8Way);
    EXPECT_EQ(game.isResource, 0);
    EXPECT_STREQ(records[1]->name, "bios");
    EXPECT_EQ(records[1]->isResource, 1);
    EXPECT_EQ(records[1]->description, nullptr);
    EXPECT_EQ(records[1]->cloneOf, nullptr);
    EXPECT_EQ(records[1]->video, nullptr);
    EXPECT_EQ(records[1]->input, nullptr);
}

TEST_F(ListParser, TakesTheRestOfTheLineAsText) {
    const std::pair<const char*, const char*> names[] = {
        {"name pong", "pong"},    {"  name\tpong 2  ", "pong 2  "},
        {"nametag pong", "pong"}, {"name a\nname b", "b"},
        {"namepong", nullptr},    {"name", nullptr},
    };
    for (const auto& [line, expected] : names) {
        EXPECT_STREQ(parseLine(line)->name, expected) << line;
    }
    const std::pair<const char*, const char*> descriptions[] = {
        {"description \"\"", ""}, {"description xyz", "y"},      {"description x", ""},
        {"description", nullptr}, {"description \"a\" ", "a\""}, {"description \"a \"b\" c\"", "a \"b\" c"},
    };
    for (const auto& [line, expected] : descriptions) {
        EXPECT_STREQ(parseLine(line)->description, expected) << line;
    }
    EXPECT_STREQ(parseLine("cloneofs the rest")->cloneOf, "the rest");
    EXPECT_STREQ(parseLine("romofs the rest")->romOf, "the rest");
    const std::pair<const char*, int> years[] = {
        {"year 1999", 1999}, {"year 19??", 19},       {"year 198?", 198}, {"year ????", 0},
        {"year", 0},         {"year 99999999999", 0}, {"yearly +7", 7}};
    for (const auto& [line, expected] : years) {
        EXPECT_EQ(parseLine(line)->year, expected) << line;
    }
}

TEST_F(ListParser, ReadsControlAndButtonsOfInputLines) {
    struct Case {
        const char* line;
        int control;
        int buttons;
    };
    const Case cases[] = {
        {"input ( buttons 6 )", 4, 4},
        {"input ( buttons 1 )", 4, -1},
        {"input ( )", 4, -2},
        {"input", 4, -2},
        {"input (buttons 3 control dial )", 1, 3},
        {"input ( control doublejoy8way buttons 2 )", 2, 2},
        {"input ( control joy4way buttons 2 )", 4, 2},
        {"input ( control joy2way buttons 2 )", 4, 2},
        {"input ( control lightgun buttons 2 )", 4, 2},
        {"input ( control joy8ways buttons 2 )", 4, 2},
        {"input ( control paddle )", 16, 0},
        {"input ( control stick )", 32, 0},
        {"input ( control dial control trackball )", 64, 0},
        {"input ( control dial )\ninput ( control paddle buttons 1 )", 16, 1},
        {"input ( control dial buttons 5 )\ninput ( coins 1 )", 4, -2},
        {"input ( tilt 1 control joy8way buttons 65535 )", 8, -1},
    };
    for (const Case& row : cases) {
        const GameRecord* record = parseLine(row.line);
        EXPECT_EQ(record->input->control, row.control) << row.line;
        EXPECT_EQ(record->input->buttons, row.buttons) << row.line;
    }
}

TEST_F(ListParser, ReadsScreenAndOrientationOfVideoLines) {
    struct Case {
        const char* line;
        const char* screen;
        int orientation;
        int x;
    };
    const Case cases[] = {
        {"video ( screen vector orientation horizontal x 65537 )", "vector", 2, 1},
        {"video ( orientation verticals )", nullptr, 2, 0},
        {"video ( screens raster aspect 4 )", nullptr, 0, 0},
        {"video (", nullptr, 0, 0},
        {"video ( screen raster x 9 )\nvideo ( orientation vertical )", nullptr, 1, 0},
    };
    for (const Case& row : cases) {
        const GameRecord* record = parseLine(row.line);
        EXPECT_STREQ(record->video->screen, row.screen) << row.line;
        EXPECT_EQ(record->video->orientation, row.orientation) << row.line;
        EXPECT_EQ(record->video->x, row.x) << row.line;
    }
}

TEST_F(ListParser, ReadsMalformedFiles) {
    const std::string longLine(5000, 'x');
    const std::string splitLine = "name " + std::string(1018, 'y') + "\n";
    struct Case {
        std::string text;
        std::size_t count;
    };
    const Case cases[] = {
        {"", 0},
        {"\n\n  \n", 0},
        {"junk", 1},
        {"game (\nname a\n)", 1},
        {"game (\nname a\n) \nname b\n)\n", 1},
        {"name a\n)\n)\n", 2},
        {"game (\nname a", 1},
        {longLine + "\n)\n", 1},
        {std::string(100000, '\0'), 0},
        {std::string("game (\nname a\0b\n)\n", 18), 1},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(parseAll(row.text).size(), row.count) << row.text.substr(0, 30);
    }
    EXPECT_STREQ(parseAll("game (\nname ab").front()->name, "a");
    // The line end of a line of 1,023 characters is read as a separate piece, so the line loses its last
    // letter.
    EXPECT_EQ(std::string(parseAll(splitLine + ")\n").front()->name).size(), 1017U);
}

TEST_F(ListParser, ReadsABlockOfAMillionLines) {
    std::string text = "game (\n";
    for (int line = 0; line < 1'000'000; ++line) {
        text += "name a\n";
    }
    const auto records = parseAll(text + "name last\n)\n");
    ASSERT_EQ(records.size(), 1U);
    EXPECT_STREQ(records[0]->name, "last");
}

TEST_F(ListParser, FreesInformationLines) {
    GameRecord* record = parseAll("game (\n)\n").at(0);
    record->infoLines = static_cast<char**>(std::malloc(sizeof(char*)));
    record->infoLines[0] = static_cast<char*>(std::calloc(1, 1));
    record->infoLineCount = 1;
    freeGameRecord(record); // checked by the leak sanitizer
    freeGameRecord(nullptr);
}

TEST_F(ListParser, SkipsAllWhiteSpaceCharacters) {
    EXPECT_STREQ(skipWhitespace(" \t\n\v\f\rx "), "x ");
    EXPECT_STREQ(skipWhitespace("  "), "");
    EXPECT_STREQ(skipWhitespace("\xa0"), "\xa0");
}

} // namespace
