#include "catalogue/list_parser.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

namespace {

// A longer line arrives in pieces, each of which counts as a line.
constexpr int lineBufferSize = 1024;

// A text of the block in hand; a line, and so a text, is shorter than the buffer.
struct DraftText {
    bool given = false;
    std::size_t length = 0;
    char bytes[lineBufferSize];

    void set(std::string_view text) {
        given = true;
        length = text.size();
        std::memcpy(bytes, text.data(), text.size());
    }
};

// The block in hand. It becomes a record of exactly its size when it is complete.
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

bool isWhite(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

// How many characters at the head of a text are white, or are not.
std::size_t countWhite(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && isWhite(text[count])) {
        ++count;
    }
    return count;
}

std::size_t countBlack(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && !isWhite(text[count])) {
        ++count;
    }
    return count;
}

// Takes the first word off a text; empty when there is none.
std::string_view takeWord(std::string_view& text) {
    text.remove_prefix(countWhite(text));
    const std::string_view word = text.substr(0, countBlack(text));
    text.remove_prefix(word.size());
    return word;
}

// What follows the first word of a line, to the line's end.
std::string_view valueOf(std::string_view line) {
    line.remove_prefix(countBlack(line));
    return line.substr(countWhite(line));
}

void setText(DraftText& text, std::string_view value) {
    if (!value.empty()) {
        text.set(value);
    }
}

// The value stands in quotes, whatever its first and last character are.
void setQuotedText(DraftText& text, std::string_view value) {
    if (!value.empty()) {
        text.set(value.size() < 2 ? std::string_view("") : value.substr(1, value.size() - 2));
    }
}

// The number at the head of a text; 0 when there is none or it passes 32 bits.
std::int32_t numberAtHead(std::string_view text) {
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    std::int32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// Calls use(key, value) for each pair of words. A word that stands alone at the end, which is the closing
// bracket, ends the line.
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

// What stands behind "video (" or "input (".
std::string_view insideBlock(std::string_view line) {
    constexpr std::size_t headLength = 7;
    return line.substr(std::min(line.size(), headLength));
}

void readVideo(Draft& draft, std::string_view line) {
    draft.hasVideo = true;
    draft.video = {};
    draft.screen.given = false;
    forEachPair(insideBlock(line), [&draft](std::string_view key, std::string_view value) {
        if (key == "screen") {
            draft.screen.set(value);
        } else if (key == "orientation") {
            draft.video.orientation = value == "vertical" ? orientationVertical : orientationHorizontal;
        } else if (key == "x") {
            draft.video.x = static_cast<std::uint16_t>(numberAtHead(value));
        } else if (key == "y") {
            draft.video.y = static_cast<std::uint16_t>(numberAtHead(value));
        }
    });
}

struct ControlWord {
    std::string_view word;
    GameControl control;
};

// A word that is not here counts as a joystick with four ways.
constexpr ControlWord controlWords[] = {
    {"joy8way", controlJoy8Way}, {"dial", controlDial},   {"doublejoy8way", controlDoubleJoy8Way},
    {"paddle", controlPaddle},   {"stick", controlStick}, {"trackball", controlTrackball},
};

GameControl controlOfWord(std::string_view word) {
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
            draft.input.players = static_cast<std::int16_t>(numberAtHead(value));
        } else if (key == "buttons") {
            draft.input.buttons = static_cast<std::int16_t>(numberAtHead(value));
        } else if (key == "coins") {
            draft.input.coins = static_cast<std::int16_t>(numberAtHead(value));
        } else if (key == "control") {
            draft.input.control = controlOfWord(value);
        }
    });
    if (draft.input.control == 0) {
        draft.input.control = controlJoy4Way;
        draft.input.buttons = static_cast<std::int16_t>(draft.input.buttons - 2);
    }
}

// Most statements are known by the head of the line alone, so that other letters may follow.
struct Statement {
    std::string_view text;
    bool isWholeLine;
    void (*read)(Draft& draft, std::string_view line);
};

constexpr Statement statements[] = {
    {"game (", true, [](Draft&, std::string_view) {}},
    {"resource (", true, [](Draft& draft, std::string_view) { draft.isResource = true; }},
    {")", true, [](Draft& draft, std::string_view) { draft.complete = true; }},
    {"name", false, [](Draft& draft, std::string_view line) { setText(draft.name, valueOf(line)); }},
    {"description", false,
     [](Draft& draft, std::string_view line) { setQuotedText(draft.description, valueOf(line)); }},
    {"year", false, [](Draft& draft, std::string_view line) { draft.year = numberAtHead(valueOf(line)); }},
    {"manufacturer", false,
     [](Draft& draft, std::string_view line) { setQuotedText(draft.manufacturer, valueOf(line)); }},
    {"cloneof", false, [](Draft& draft, std::string_view line) { setText(draft.cloneOf, valueOf(line)); }},
    {"romof", false, [](Draft& draft, std::string_view line) { setText(draft.romOf, valueOf(line)); }},
    {"video", false, readVideo},
    {"input", false, readInput},
};

// The line must not be empty.
void readStatement(Draft& draft, std::string_view line) {
    for (const Statement& statement : statements) {
        if (line[0] == statement.text[0] &&
            (statement.isWholeLine ? line == statement.text : line.starts_with(statement.text))) {
            statement.read(draft, line);
            return;
        }
    }
}

// Copies a text to `place`, moves it on, and gives the copy; null when the text was not given.
char* placeText(const DraftText& text, char*& place) {
    if (!text.given) {
        return nullptr;
    }
    char* copy = place;
    std::memcpy(copy, text.bytes, text.length);
    copy[text.length] = '\0';
    place += text.length + 1;
    return copy;
}

GameRecord* makeRecord(const Draft& draft) {
    std::size_t size = sizeof(GameRecord);
    size += draft.hasVideo ? sizeof(VideoInfo) : 0;
    size += draft.hasInput ? sizeof(InputInfo) : 0;
    for (const DraftText* text : {&draft.name, &draft.description, &draft.manufacturer, &draft.cloneOf,
                                  &draft.romOf, &draft.screen}) {
        size += text->given ? text->length + 1 : 0;
    }
    char* place = static_cast<char*>(std::malloc(size));
    if (place == nullptr) {
        return nullptr;
    }
    auto* record = new (place) GameRecord{};
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
    // What the sort and the search for a name read stands next to the numbers.
    record->description = placeText(draft.description, place);
    record->name = placeText(draft.name, place);
    record->manufacturer = placeText(draft.manufacturer, place);
    record->cloneOf = placeText(draft.cloneOf, place);
    record->romOf = placeText(draft.romOf, place);
    char* screen = placeText(draft.screen, place);
    if (record->video != nullptr) {
        record->video->screen = screen;
    }
    return record;
}

} // namespace

GameRecord* parseGameRecord(FILE* stream) {
    Draft draft;
    char buffer[lineBufferSize];
    while (!draft.complete && std::fgets(buffer, lineBufferSize, stream) != nullptr) {
        // The last character goes whatever it is: normally the line end.
        const std::size_t length = std::strlen(buffer);
        char* end = buffer + (length > 0 ? length - 1 : 0);
        *end = '\0';
        const std::string_view line(skipWhitespace(buffer), end);
        if (!line.empty()) {
            draft.started = true;
            readStatement(draft, line);
        }
    }
    return draft.started ? makeRecord(draft) : nullptr;
}

const char* skipWhitespace(const char* text) {
    while (isWhite(*text)) {
        ++text;
    }
    return text;
}

void freeGameRecord(GameRecord* record) {
    if (record == nullptr) {
        return;
    }
    for (std::int32_t line = 0; line < record->infoLineCount; ++line) {
        std::free(record->infoLines[line]);
    }
    std::free(static_cast<void*>(record->infoLines));
    std::free(record);
}
