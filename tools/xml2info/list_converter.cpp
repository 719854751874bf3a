#include "xml2info/list_converter.h"

#include "xml2info/byte_input.h"
#include "xml2info/list_parser.h"
#include "xml2info/list_start.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <system_error>
#include <thread>

namespace {

// Parts of this size stay in a processor's cache between being read and being parsed.
constexpr std::size_t partSize = 1 << 20;

// A part that finds no place for a cut up to here is parsed in one piece with all that follows.
constexpr std::size_t longestPart = 8 << 20;

// What is read at a time when the list is parsed in one piece.
constexpr std::size_t streamBlock = 256 << 10;

struct PartResult {
    Segment segment;
    bool listEnded = false;
    std::string problem;
};

// What the workers share, under one lock; a worker that parses in one piece keeps the lock to the end.
struct Work {
    explicit Work(int descriptor) : input(descriptor) {}

    std::mutex lock;
    ByteInput input;
    std::string opening; // start and end tag of the root, which complete a part
    std::string closing;
    bool divisible = false;
    bool allTaken = false;
    std::vector<PartResult> results; // in the order of the list
};

// Comments, character data sections and instructions could hold the text of a machine's tag.
bool holdsOnlyElements(std::string_view text) {
    for (const char sign : {'!', '?'}) {
        for (std::size_t at = text.find(sign); at != std::string_view::npos; at = text.find(sign, at + 1)) {
            if (at > 0 && text[at - 1] == '<') {
                return false;
            }
        }
    }
    return true;
}

// Offset of the last tag of a machine behind the given place, or 0.
std::size_t lastMachine(std::string_view text, std::size_t behind) {
    for (std::size_t at = text.rfind('<'); at != std::string_view::npos && at > behind;
         at = text.rfind('<', at - 1)) {
        const std::string_view tag = text.substr(at + 1);
        if (tag.starts_with("machine ") || tag.starts_with("game ")) {
            return at;
        }
    }
    return 0;
}

struct Part {
    std::size_t length = 0; // bytes in the parser's buffer
    bool isWhole = false;   // else the document goes on behind it, in the same parser
};

// Fills the parser's buffer with the root's start tag, the next part and the root's end tag.
Part takePart(Work& work, ListParser& parser) {
    const std::size_t opening = work.opening.size();
    parser.reset();
    char* buffer = parser.buffer(longestPart);
    std::memcpy(buffer, work.opening.data(), opening);
    const std::size_t limit = longestPart - work.closing.size();
    std::size_t length = opening;
    std::size_t wanted = partSize;
    std::size_t cut = 0;
    while (cut == 0 && wanted <= longestPart) {
        std::size_t count = 1;
        while (count > 0 && length < std::min(wanted, limit)) {
            count = work.input.read(buffer + length, std::min(wanted, limit) - length);
            length += count;
        }
        if (count == 0) {
            work.allTaken = true;
            cut = length;
        } else {
            cut = lastMachine({buffer, length}, opening);
        }
        wanted *= 2;
    }
    if (cut == 0 || !holdsOnlyElements({buffer, cut})) {
        work.allTaken = true;
        return {length, false};
    }
    work.input.putBack({buffer + cut, length - cut});
    std::memcpy(buffer + cut, work.closing.data(), work.closing.size());
    parser.expectClosingAt(cut);
    return {cut + work.closing.size(), true};
}

// Parses everything that is left behind the bytes which stand in the parser's buffer already.
bool parseToEnd(Work& work, ListParser& parser, std::size_t length) {
    while (parser.parse(length, length == 0)) {
        if (length == 0 || parser.listEnded()) {
            return true;
        }
        length = work.input.read(parser.buffer(streamBlock), streamBlock);
    }
    return false;
}

void finishPart(PartResult& result, ListParser& parser, bool wellFormed) {
    result.listEnded = parser.listEnded();
    if (!wellFormed) {
        result.problem = parser.problem();
        return;
    }
    result.segment = parser.takeSegment();
    result.segment.text.shrink_to_fit();
}

void parseParts(Work& work) {
    ListParser parser;
    for (;;) {
        PartResult result;
        std::unique_lock locked(work.lock);
        if (work.allTaken) {
            return;
        }
        const Part part = takePart(work, parser);
        const std::size_t place = work.results.size();
        work.results.emplace_back();
        if (part.isWhole) {
            locked.unlock();
            finishPart(result, parser, parser.parse(part.length, true));
            locked.lock();
        } else {
            finishPart(result, parser, parseToEnd(work, parser, part.length));
        }
        work.results[place] = std::move(result);
    }
}

void parseInParts(Work& work, const ListStart& start) {
    work.opening = "<" + start.rootName + ">";
    work.closing = "</" + start.rootName + ">";
    work.input.putBack(std::string_view(start.bytes).substr(start.firstMachine));
    std::thread second;
    try {
        second = std::thread(parseParts, std::ref(work));
    } catch (const std::system_error&) {
        // One worker does it too.
    }
    parseParts(work);
    if (second.joinable()) {
        second.join();
    }
}

void parseInOnePiece(Work& work, const ListStart& start) {
    ListParser parser;
    work.input.putBack(start.bytes);
    const std::size_t length = work.input.read(parser.buffer(streamBlock), streamBlock);
    finishPart(work.results.emplace_back(), parser, parseToEnd(work, parser, length));
}

} // namespace

Conversion convertList(int inputDescriptor) {
    Work work(inputDescriptor);
    const std::optional<ListStart> start = findListStart(work.input);
    if (work.input.failed()) {
        return {{}, "the input cannot be read"};
    }
    if (!start) {
        return {{}, "the input holds no game list"};
    }
    if (start->divisible) {
        parseInParts(work, *start);
    } else {
        parseInOnePiece(work, *start);
    }
    Conversion conversion;
    for (PartResult& result : work.results) {
        if (!result.problem.empty()) {
            return {{}, "the game list is damaged or cut off: " + result.problem};
        }
        conversion.segments.push_back(std::move(result.segment));
        if (result.listEnded) {
            // The writer of a pipe is let finish, though nothing behind the list matters.
            work.input.drain();
            if (work.input.failed()) {
                break;
            }
            return conversion;
        }
    }
    return {{}, work.input.failed() ? "the input cannot be read" : "the game list is cut off"};
}
