// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml2info/list_converter.h"

#include "xml2info/byte_input.h"
#include "xml2info/list_start.h"
#include "xml2info/xml_list_parser.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <system_error>
#include <thread>

namespace {

// Bytes to read at a time when the list is parsed as one part.
constexpr std::size_t streamBlockSize = 256 << 10;

struct PartResult {
    Segment segment;
    bool listEnded = false;
    std::string problem;
};

// State shared by the workers and protected by the lock. A worker that parses the remaining list holds the
// lock to the end.
struct SharedWork {
    SharedWork(int descriptor, const PartSizes& partSizes) : input(descriptor), sizes(partSizes) {}

    std::mutex lock;
    ByteInput input;
    PartSizes sizes;
    std::string opening; // start tag of the root element, added before each part
    std::string closing; // end tag of the root element, added after each part
    bool divisible = false;
    bool inputTaken = false;
    std::vector<PartResult> results; // in the order of the list
};

// False when there are comments, CDATA sections or processing instructions, which could contain a machine's
// tag as text.
bool containsOnlyElements(std::string_view text) {
    for (const char mark : {'!', '?'}) {
        for (std::size_t at = text.find(mark); at != std::string_view::npos; at = text.find(mark, at + 1)) {
            if (at > 0 && text[at - 1] == '<') {
                return false;
            }
        }
    }
    return true;
}

// Offset of the last start tag of a machine after the given offset, or 0.
std::size_t lastMachine(std::string_view text, std::size_t after) {
    for (std::size_t at = text.rfind('<'); at != std::string_view::npos && at > after;
         at = text.rfind('<', at - 1)) {
        const std::string_view tag = text.substr(at + 1);
        if (tag.starts_with("machine ") || tag.starts_with("game ")) {
            return at;
        }
    }
    return 0;
}

struct Part {
    std::size_t length = 0;  // bytes in the parser's buffer
    bool isComplete = false; // false when the rest of the input belongs to the same document
};

// Fills the parser's buffer with the start tag of the root element, the next part and the end tag.
Part takePart(SharedWork& work, XmlListParser& parser) {
    const std::size_t opening = work.opening.size();
    parser.reset();
    char* buffer = parser.buffer(work.sizes.largest);
    std::memcpy(buffer, work.opening.data(), opening);
    const std::size_t limit = work.sizes.largest - work.closing.size();
    std::size_t length = opening;
    std::size_t wanted = work.sizes.usual;
    std::size_t cut = 0;
    while (cut == 0 && wanted <= work.sizes.largest) {
        std::size_t count = 1;
        while (count > 0 && length < std::min(wanted, limit)) {
            count = work.input.read(buffer + length, std::min(wanted, limit) - length);
            length += count;
        }
        if (count == 0) {
            work.inputTaken = true;
            cut = length;
        } else {
            cut = lastMachine({buffer, length}, opening);
        }
        wanted *= 2;
    }
    if (cut == 0 || !containsOnlyElements({buffer, cut})) {
        work.inputTaken = true;
        return {length, false};
    }
    work.input.putBack({buffer + cut, length - cut});
    std::memcpy(buffer + cut, work.closing.data(), work.closing.size());
    parser.expectClosingAt(cut);
    return {cut + work.closing.size(), true};
}

// Parses the bytes that are already in the parser's buffer and then the remaining input.
bool parseToEnd(SharedWork& work, XmlListParser& parser, std::size_t length) {
    while (parser.parse(length, length == 0)) {
        if (length == 0 || parser.listEnded()) {
            return true;
        }
        length = work.input.read(parser.buffer(streamBlockSize), streamBlockSize);
    }
    return false;
}

void finishPart(PartResult& result, XmlListParser& parser, bool wellFormed) {
    result.listEnded = parser.listEnded();
    if (!wellFormed) {
        result.problem = parser.problem();
        return;
    }
    result.segment = parser.takeSegment();
    result.segment.text.shrink_to_fit();
}

void parseParts(SharedWork& work) {
    XmlListParser parser;
    for (;;) {
        PartResult result;
        std::unique_lock locked(work.lock);
        if (work.inputTaken) {
            return;
        }
        const Part part = takePart(work, parser);
        const std::size_t index = work.results.size();
        work.results.emplace_back();
        if (part.isComplete) {
            locked.unlock();
            finishPart(result, parser, parser.parse(part.length, true));
            locked.lock();
        } else {
            finishPart(result, parser, parseToEnd(work, parser, part.length));
        }
        work.results[index] = std::move(result);
    }
}

void parseInParts(SharedWork& work, const ListStart& start) {
    work.opening = "<" + start.rootName + ">";
    work.closing = "</" + start.rootName + ">";
    work.input.putBack(std::string_view(start.bytes).substr(start.firstMachine));
    std::thread second;
    try {
        second = std::thread(parseParts, std::ref(work));
    } catch (const std::system_error&) {
        // The calling thread does all the work alone.
    }
    parseParts(work);
    if (second.joinable()) {
        second.join();
    }
}

void parseAsOnePart(SharedWork& work, const ListStart& start) {
    XmlListParser parser;
    work.input.putBack(start.bytes);
    const std::size_t length = work.input.read(parser.buffer(streamBlockSize), streamBlockSize);
    finishPart(work.results.emplace_back(), parser, parseToEnd(work, parser, length));
}

} // namespace

Conversion convertList(int inputDescriptor, const PartSizes& sizes) {
    SharedWork work(inputDescriptor, sizes);
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
        parseAsOnePart(work, *start);
    }
    Conversion conversion;
    for (PartResult& result : work.results) {
        if (!result.problem.empty()) {
            return {{}, "the game list is damaged or cut off: " + result.problem};
        }
        conversion.segments.push_back(std::move(result.segment));
        if (result.listEnded) {
            // Lets the writer of a pipe finish, although what follows the list is ignored.
            work.input.drain();
            if (work.input.failed()) {
                break;
            }
            return conversion;
        }
    }
    return {{}, work.input.failed() ? "the input cannot be read" : "the game list is cut off"};
}
