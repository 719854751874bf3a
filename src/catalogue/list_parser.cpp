// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/list_parser.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

namespace {

// A longer line is read in pieces, each of which counts as a line.
constexpr int lineBufferSize = 1024;

// A text of the block being read. It is part of one line, so it always fits.
struct DraftText {
    bool present = false;
    std::size_t length = 0;
    char bytes[lineBufferSize];

    void set(std::string_view text) {
        present = true;
        length = text.size();
        std::memcpy(bytes, text.data(), text.size());
    }
};

// The block being read, from which a record of exactly the required size is made at its end.
struct Draft {
    bool started = false;
    bool complete = false;
    bool hasVideo = false;
    bool hasInput = false;
    bool isResource = false;
    std::int32_t year = 0;
    VideoInfo video{};
    InputInfo input{};
    DraftText name;
    DraftText description;
    DraftText manufacturer;
    DraftText cloneOf;
    DraftText romOf;
    DraftText screen;
};

bool isWhitespace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

// Length of the leading white space of a text.
std::size_t whitespaceLength(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && isWhitespace(text[count])) {
        ++count;
    }
    return count;
}

// Length of the first word of a text without leading white space.
std::size_t wordLength(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && !isWhitespace(text[count])) {
        ++count;
    }
    return count;
}

// Removes the first word from a text and returns it; empty when there is none.
std::string_view takeWord(std::string_view& text) {
    text.remove_prefix(whitespaceLength(text));
    const std::string_view word = text.substr(0, wordLength(text));
    text.remove_prefix(word.size());
    return word;
}

// The rest of a line after its first word.
std::string_view valueOf(std::string_view line) {
    line.remove_prefix(wordLength(line));
    return line.substr(whitespaceLength(line));
}

void setText(DraftText& text, std::string_view value) {
    if (!value.empty()) {
        text.set(value);
    }
}

// Drops the first and last character of the value, which are quotes in a valid file.
void setQuotedText(DraftText& text, std::string_view value) {
    if (!value.empty()) {
        text.set(value.size() < 2 ? std::string_view("") : value.substr(1, value.size() - 2));
    }
}

// The number at the start of a text; 0 when there is none or it exceeds 32 bits.
std::int32_t leadingNumber(std::string_view text) {
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    std::int32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// Calls use(key, value) for each pair of words. A single word at the end, normally the closing bracket, is
// ignored.
template <typename Use> void forEachPair(std::string_view text, Use use) {
    for (;;) {
        const std::string_view key = takeWord(text);
        const std::string_view value = takeWord(text);
        if (value.empty()) {
            return;
        }
        use(key, value);
    }
}

// The part of a line after "video (" or "input (".
std::string_view insideBlock(std::string_view line) {
    constexpr std::size_t prefixLength = 7;
    return line.substr(std::min(line.size(), prefixLength));
}

void readVideo(Draft& draft, std::string_view line) {
    draft.hasVideo = true;
    draft.video = {};
    draft.screen.present = false;
    forEachPair(insideBlock(line), [&draft](std::string_view key, std::string_view value) {
        if (key == "screen") {
            draft.screen.set(value);
        } else if (key == "orientation") {
            draft.video.orientation = value == "vertical" ? orientationVertical : orientationHorizontal;
        } else if (key == "x") {
            draft.video.x = static_cast<std::uint16_t>(leadingNumber(value));
        } else if (key == "y") {
            draft.video.y = static_cast<std::uint16_t>(leadingNumber(value));
        }
    });
}

struct ControlWord {
    std::string_view word;
    GameControl control;
};

// All other words count as a 4-way joystick.
constexpr ControlWord controlWords[] = {
    {"joy8way", controlJoy8Way}, {"dial", controlDial},   {"doublejoy8way", controlDoubleJoy8Way},
    {"paddle", controlPaddle},   {"stick", controlStick}, {"trackball", controlTrackball},
};

GameControl controlFromWord(std::string_view word) {
    for (const ControlWord& row : controlWords) {
        if (row.word == word) {
            return row.control;
        }
    }
    return controlJoy4Way;
}

void readInput(Draft& draft, std::string_view line) {
    draft.hasInput = true;
    draft.input = {};
    forEachPair(insideBlock(line), [&draft](std::string_view key, std::string_view value) {
        if (key == "players") {
            draft.input.players = static_cast<std::int16_t>(leadingNumber(value));
        } else if (key == "buttons") {
            draft.input.buttons = static_cast<std::int16_t>(leadingNumber(value));
        } else if (key == "coins") {
            draft.input.coins = static_cast<std::int16_t>(leadingNumber(value));
        } else if (key == "control") {
            draft.input.control = controlFromWord(value);
        }
    });
    if (draft.input.control == 0) {
        draft.input.control = controlJoy4Way;
        draft.input.buttons = static_cast<std::int16_t>(draft.input.buttons - 2);
    }
}

// Most statements are recognised by the start of the line alone, whatever follows.
struct ListStatement {
    std::string_view text;
    bool isWholeLine;
    void (*read)(Draft& draft, std::string_view line);
};

constexpr ListStatement statements[] = {
    {"game (", true, [](Draft&, std::string_view) {}},
    {"resource (", true, [](Draft& draft, std::string_view) { draft.isResource = true; }},
    {")", true, [](Draft& draft, std::string_view) { draft.complete = true; }},
    {"name", false, [](Draft& draft, std::string_view line) { setText(draft.name, valueOf(line)); }},
    {"description", false,
     [](Draft& draft, std::string_view line) { setQuotedText(draft.description, valueOf(line)); }},
    {"year", false, [](Draft& draft, std::string_view line) { draft.year = leadingNumber(valueOf(line)); }},
    {"manufacturer", false,
     [](Draft& draft, std::string_view line) { setQuotedText(draft.manufacturer, valueOf(line)); }},
    {"cloneof", false, [](Draft& draft, std::string_view line) { setText(draft.cloneOf, valueOf(line)); }},
    {"romof", false, [](Draft& draft, std::string_view line) { setText(draft.romOf, valueOf(line)); }},
    {"video", false, readVideo},
    {"input", false, readInput},
};

// The line must not be empty.
void readStatement(Draft& draft, std::string_view line) {
    for (const ListStatement& statement : statements) {
        if (line[0] == statement.text[0] &&
            (statement.isWholeLine ? line == statement.text : line.starts_with(statement.text))) {
            statement.read(draft, line);
            return;
        }
    }
}

// Copies a text to `place` and advances it past the copy. Returns the copy, or null for a missing text.
char* placeText(const DraftText& text, char*& place) {
    if (!text.present) {
        return nullptr;
    }
    char* copy = place;
    std::memcpy(copy, text.bytes, text.length);
    copy[text.length] = '\0';
    place += text.length + 1;
    return copy;
}

GameRecord* makeRecord(const Draft& draft, std::pmr::memory_resource& memory) {
    std::size_t size = sizeof(GameRecord);
    size += draft.hasVideo ? sizeof(VideoInfo) : 0;
    size += draft.hasInput ? sizeof(InputInfo) : 0;
    for (const DraftText* text : {&draft.name, &draft.description, &draft.manufacturer, &draft.cloneOf,
                                  &draft.romOf, &draft.screen}) {
        size += text->present ? text->length + 1 : 0;
    }
    char* place = static_cast<char*>(memory.allocate(size, alignof(GameRecord)));
    GameRecord* const record = new (place) GameRecord{};
    place += sizeof(GameRecord);
    if (draft.hasVideo) {
        record->video = new (place) VideoInfo(draft.video);
        place += sizeof(VideoInfo);
    }
    if (draft.hasInput) {
        record->input = new (place) InputInfo(draft.input);
        place += sizeof(InputInfo);
    }
    record->year = draft.year;
    record->isResource = draft.isResource ? 1 : 0;
    // The texts that sorting and name lookups read come first, close to the numbers.
    record->description = placeText(draft.description, place);
    record->name = placeText(draft.name, place);
    record->manufacturer = placeText(draft.manufacturer, place);
    record->cloneOf = placeText(draft.cloneOf, place);
    record->romOf = placeText(draft.romOf, place);
    char* screen = placeText(draft.screen, place);
    if (record->video) {
        record->video->screen = screen;
    }
    return record;
}

} // namespace

GameRecord* parseGameRecord(FILE* stream, std::pmr::memory_resource& memory) {
    Draft draft;
    char buffer[lineBufferSize];
    while (!draft.complete && std::fgets(buffer, lineBufferSize, stream)) {
        // The last character is dropped, whatever it is; normally it is the line end.
        const std::size_t length = std::strlen(buffer);
        char* end = buffer + (length > 0 ? length - 1 : 0);
        *end = '\0';
        const std::string_view line(skipWhitespace(buffer), end);
        if (!line.empty()) {
            draft.started = true;
            readStatement(draft, line);
        }
    }
    return draft.started ? makeRecord(draft, memory) : nullptr;
}

const char* skipWhitespace(const char* text) {
    while (isWhitespace(*text)) {
        ++text;
    }
    return text;
}

void freeGameRecord(GameRecord* record) {
    if (!record) {
        return;
    }
    for (std::int32_t line = 0; line < record->infoLineCount; ++line) {
        std::free(record->infoLines[line]);
    }
    std::free(static_cast<void*>(record->infoLines));
}
