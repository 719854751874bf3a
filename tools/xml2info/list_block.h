// SPDX-License-Identifier: GPL-3.0-or-later
// One machine of the emulator's list and its block of text in the list file. The XML parser fills in
// machines, this file formats them and list_output assembles the list file. Blocks do not contain the romof
// line, because its value is only known when the whole list has been read.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// One machine as described by the XML. Texts are unmodified UTF-8; numbers are 0 when not stated.
struct Machine {
    std::string name;
    std::string description;
    std::string year;
    std::string manufacturer;
    std::string cloneOf;
    std::string romOf;
    bool isResource = false; // a device, a BIOS or another machine that cannot be started

    bool hasDisplay = false;
    std::string screen;
    bool vertical = false;
    int x = 0; // pixels as the player sees them
    int y = 0;

    bool hasInput = false;
    int players = 0;
    int coins = 0;
    int buttons = 0;
    std::string control; // as in the list file; empty when there is no control
};

// A formatted block. name and romOf are code page text as in the list file; romOf is empty when not stated.
struct Block {
    std::string name;
    std::string romOf;
    std::size_t romOfOffset; // where the romof line belongs in Segment::text
};

// Consecutive blocks and their text.
struct Segment {
    std::string text;
    std::vector<Block> blocks;
};

// Limit in bytes for the lines of the list file, including the new-line. The reader of the list file splits
// lines after 1,023 bytes.
constexpr std::size_t maximumLineLength = 1000;

// Appends a line "key value", truncated to maximumLineLength. The value is code page text without control
// characters.
void appendLine(std::string& text, std::string_view key, std::string_view value);

// Appends the machine's block. Returns false and appends nothing when the machine has no name.
bool appendBlock(Segment& segment, const Machine& machine);
