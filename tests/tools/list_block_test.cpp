// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml2info/list_block.h"
#include "xml2info/machine_attributes.h"

#include <gtest/gtest.h>

namespace {

std::string blockOf(const Machine& machine) {
    Segment segment;
    return appendBlock(segment, machine) ? segment.text : "";
}

TEST(ListBlock, WritesUnambiguousValues) {
    Machine machine;
    machine.name = " a\n";
    machine.description = "Line\r\nend\t\x7F\xC2\x81\")";
    machine.year = "\n";
    machine.manufacturer = "\n \t";
    machine.cloneOf = "b\nname c";
    machine.hasDisplay = true;
    machine.screen = "two words )";
    machine.control = " \n";
    EXPECT_EQ(blockOf(machine),
              "game (\n\tname a\n\tdescription \"Line  end   \")\"\n\tmanufacturer \"<unknown>\"\n"
              "\tcloneof b name c\n\tvideo ( screen two_words_) orientation horizontal )\n"
              "\tinput ( players 0 control none buttons 0 coins 0 )\n)\n");
}

TEST(ListBlock, LimitsTheLengthOfLines) {
    Machine machine;
    for (std::string* text : {&machine.name, &machine.description, &machine.year, &machine.manufacturer,
                              &machine.cloneOf, &machine.screen, &machine.control}) {
        *text = std::string(5000, 'x');
    }
    machine.hasDisplay = true;
    const std::string block = blockOf(machine);
    std::size_t longest = 0;
    for (std::size_t start = 0, end = 0; (end = block.find('\n', start)) != std::string::npos;
         start = end + 1) {
        longest = std::max(longest, end + 1 - start);
        const char last = block[end - 1];
        const std::string key = block.substr(start + 1, 5);
        EXPECT_EQ(last == '"', key == "descr" || key == "manuf") << key;
        EXPECT_EQ(last == ')', end == start + 1 || key == "video" || key == "input") << key;
    }
    EXPECT_EQ(longest, 1000u);
}

TEST(MachineAttributes, ConvertsControlTypes) {
    const struct {
        const char* type;
        const char* ways;
        const char* word;
    } cases[] = {
        {"joy", "2", "joy2way"},
        {"joy", "vertical2", "joy2way"},
        {"joy", "4", "joy4way"},
        {"joy", "3 (half4)", "joy4way"},
        {"joy", "8", "joy8way"},
        {"joy", "5 (half8)", "joy8way"},
        {"joy", "strange2", "joy8way"},
        {"joy", "1", "joy8way"},
        {"joy", "", "joy8way"},
        {"doublejoy", "4", "doublejoy8way"},
        {"triplejoy", "8", "doublejoy8way"},
        {"stick", "", "stick"},
        {"dial", "", "dial"},
        {"paddle", "", "paddle"},
        {"trackball", "", "trackball"},
        {"only_buttons", "", "only_buttons"},
        {"joy8way", "", "joy8way"},
        {"joy4way", "", "joy4way"},
        {"joy2way", "", "joy2way"},
        {"vjoy2way", "", "joy2way"},
        {"joy3half4way", "", "joy4way"},
        {"joy5half8way", "", "joy8way"},
        {"doublejoy4way", "", "doublejoy8way"},
        {"vdoublejoy2way", "", "doublejoy8way"},
    };
    for (const auto& row : cases) {
        const char* attributes[] = {"type", row.type, "ways", row.ways, nullptr};
        Machine machine;
        bool isFirstPlayersControl = false;
        readControlAttributes(machine, attributes, isFirstPlayersControl);
        EXPECT_EQ(machine.control, row.word) << row.type << ' ' << row.ways;
    }
}

TEST(MachineAttributes, LimitsNumbersTo16Bits) {
    const struct {
        const char* value;
        int expected;
    } cases[] = {{"0", 0},  {"12", 12}, {"40000", 32767}, {"99999999999", 32767},
                 {"-3", 0}, {"", 0},    {"x", 0}};
    for (const auto& row : cases) {
        const char* attributes[] = {"players", row.value, nullptr};
        Machine machine;
        readInputAttributes(machine, attributes);
        EXPECT_EQ(machine.players, row.expected) << row.value;
    }
}

TEST(MachineAttributes, ReportsTheSizeAfterRotation) {
    const char* const rotations[] = {"0", "90", "180", "270", ""};
    for (const char* const rotate : rotations) {
        const char* attributes[] = {"type", "raster", "rotate", rotate, "width",
                                    "320",  "height", "240",    nullptr};
        Machine machine;
        readDisplayAttributes(machine, attributes);
        const std::string angle = rotate;
        EXPECT_EQ(machine.vertical, angle == "90" || angle == "270") << angle;
        EXPECT_EQ(machine.x, machine.vertical ? 240 : 320) << angle;
        EXPECT_EQ(machine.y, machine.vertical ? 320 : 240) << angle;
    }
}

} // namespace
