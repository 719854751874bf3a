// One machine of the emulator's list and the block of text that it becomes in the list file. Filled by the
// XML parser, formatted here, put together by the output. Knows nothing of XML; the romof line is left out
// of a block, since its value is only known when the whole list has been read.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// What the XML says about one machine. Texts are UTF-8 as they come; numbers are 0 when not stated.
struct Machine {
    std::string name;
    std::string description;
    std::string year;
    std::string manufacturer;
    std::string cloneOf;
    std::string romOf;
    bool isResource = false; // a device, a BIOS or anything else that cannot be started

    bool hasDisplay = false;
    std::string screen;
    bool vertical = false;
    int x = 0; // pixels as the player sees them
    int y = 0;

    bool hasInput = false;
    int players = 0;
    int coins = 0;
    int buttons = 0;
    std::string control; // a word of the list file; empty when there is no control
};

// A finished block. name and romOf (empty when not stated) are cleaned, as they stand in the list file.
struct Block {
    std::string name;
    std::string romOf;
    std::size_t romOfAt; // offset in Segment::text at which the romof line belongs
    std::size_t end;     // offset behind the block; the next block starts there
};

// Consecutive blocks and their text.
struct Segment {
    std::string text;
    std::vector<Block> blocks;
};

// No line of the list file is longer, its new-line included: the reader takes lines in pieces of 1,023.
constexpr std::size_t longestLine = 1000;

// Appends a line "key value", cut to longestLine. The value is clean code page text.
void appendLine(std::string& text, std::string_view key, std::string_view value);

// Appends the machine's block. False, with nothing appended, when the machine has no name.
bool appendBlock(Segment& segment, const Machine& machine);
