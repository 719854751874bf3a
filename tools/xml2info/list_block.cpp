// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml2info/list_block.h"

#include "platform/codepage.h"

#include <algorithm>

namespace {

// What the emulator writes for an unknown manufacturer.
constexpr std::string_view unknownManufacturer = "<unknown>";

// Limit in bytes for a value inside "video (" or "input (". Real ones have at most 13.
constexpr std::size_t maximumWordLength = 64;

bool isControlCharacter(char character) {
    const char32_t letter = codePageToUnicode(static_cast<unsigned char>(character));
    return letter < 0x20 || (letter >= 0x7F && letter < 0xA0);
}

// Converts to code page text on one line; empty when it contains only blanks.
std::string cleanText(std::string_view utf8) {
    std::string text = utf8ToCodePage(utf8);
    std::replace_if(text.begin(), text.end(), isControlCharacter, ' ');
    if (text.find_first_not_of(' ') == std::string::npos) {
        text.clear();
    }
    return text;
}

// The same without leading and trailing blanks, which would become part of an unquoted value.
std::string cleanName(std::string_view utf8) {
    std::string text = cleanText(utf8);
    text.erase(text.find_last_not_of(' ') + 1);
    text.erase(0, text.find_first_not_of(' '));
    return text;
}

// The same as a single word.
std::string cleanWord(std::string_view utf8, std::string_view ifEmpty) {
    std::string word = cleanName(utf8);
    if (word.empty()) {
        word = ifEmpty;
    }
    std::replace(word.begin(), word.end(), ' ', '_');
    word.resize(std::min(word.size(), maximumWordLength));
    return word;
}

void appendQuotedLine(std::string& text, std::string_view key, std::string_view value) {
    constexpr std::size_t overhead = 5; // tab, blank, two quotes, new-line
    text.append("\t").append(key).append(" \"");
    text.append(value.substr(0, maximumLineLength - key.size() - overhead)).append("\"\n");
}

void appendPair(std::string& text, std::string_view key, std::string_view word) {
    text.append(" ").append(key).append(" ").append(word);
}

void appendVideo(std::string& text, const Machine& machine) {
    text += "\tvideo (";
    appendPair(text, "screen", machine.hasDisplay ? cleanWord(machine.screen, "unknown") : "none");
    if (machine.hasDisplay) {
        appendPair(text, "orientation", machine.vertical ? "vertical" : "horizontal");
    }
    if (machine.x > 0 || machine.y > 0) {
        appendPair(text, "x", std::to_string(machine.x));
        appendPair(text, "y", std::to_string(machine.y));
    }
    text += " )\n";
}

void appendInput(std::string& text, const Machine& machine) {
    text += "\tinput (";
    appendPair(text, "players", std::to_string(machine.players));
    appendPair(text, "control", cleanWord(machine.control, "none"));
    appendPair(text, "buttons", std::to_string(machine.buttons));
    appendPair(text, "coins", std::to_string(machine.coins));
    text += " )\n";
}

} // namespace

void appendLine(std::string& text, std::string_view key, std::string_view value) {
    constexpr std::size_t overhead = 3; // tab, blank, new-line
    text.append("\t").append(key).append(" ");
    text.append(value.substr(0, maximumLineLength - key.size() - overhead)).append("\n");
}

bool appendBlock(Segment& segment, const Machine& machine) {
    Block block = {};
    block.name = cleanName(machine.name);
    if (block.name.empty()) {
        return false;
    }
    const std::string description = cleanText(machine.description);
    const std::string year = cleanName(machine.year);
    const std::string manufacturer = cleanText(machine.manufacturer);
    const std::string cloneOf = cleanName(machine.cloneOf);
    block.romOf = cleanName(machine.romOf);

    std::string& text = segment.text;
    text += machine.isResource ? "resource (\n" : "game (\n";
    appendLine(text, "name", block.name);
    appendQuotedLine(text, "description", description.empty() ? block.name : description);
    if (!year.empty()) {
        appendLine(text, "year", year);
    }
    appendQuotedLine(text, "manufacturer", manufacturer.empty() ? unknownManufacturer : manufacturer);
    if (!cloneOf.empty()) {
        appendLine(text, "cloneof", cloneOf);
    }
    block.romOfOffset = text.size();
    // A resource has these lines only when the XML describes a display or an input.
    if (!machine.isResource || machine.hasDisplay) {
        appendVideo(text, machine);
    }
    if (!machine.isResource || machine.hasInput) {
        appendInput(text, machine);
    }
    text += ")\n";
    segment.blocks.push_back(std::move(block));
    return true;
}
