#include "xml2info/list_parser.h"

#include "xml2info/machine_attributes.h"

#include <cstring>
#include <new>

namespace {

// A list is four elements deep. Damage that opens elements without end must not fill the memory.
constexpr int deepestElement = 100;

// Titles are far shorter, and a line of the list file keeps less.
constexpr std::size_t longestText = 4000;

// A tag or comment that is longer was opened by damage.
constexpr std::size_t longestToken = 4 << 20;

enum Level { documentLevel, rootLevel, machineLevel, childLevel };

} // namespace

bool isMachineElement(const char* elementName) {
    return std::strcmp(elementName, "machine") == 0 || std::strcmp(elementName, "game") == 0;
}

ListParser::ListParser() : parser(XML_ParserCreate(nullptr), XML_ParserFree) {
    if (!parser) {
        throw std::bad_alloc();
    }
    reset();
}

ListParser::~ListParser() = default;

void ListParser::reset() {
    XML_ParserReset(parser.get(), nullptr);
    XML_SetUserData(parser.get(), this);
    XML_SetElementHandler(parser.get(), startElement, endElement);
    depth = documentLevel;
    inMachine = false;
    inInput = false;
    collected = nullptr;
    ended = false;
    closingAt = static_cast<std::size_t>(-1);
    fed = 0;
    ownProblem = nullptr;
    segment = {};
}

char* ListParser::buffer(std::size_t size) {
    void* memory = XML_GetBuffer(parser.get(), static_cast<int>(size));
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return static_cast<char*>(memory);
}

bool ListParser::parse(std::size_t length, bool isLast) {
    if (ended) {
        return true;
    }
    fed += length;
    const XML_Status status = XML_ParseBuffer(parser.get(), static_cast<int>(length), isLast);
    if (ended) {
        return true;
    }
    if (status != XML_STATUS_OK) {
        return false;
    }
    const XML_Index position = XML_GetCurrentByteIndex(parser.get());
    if (!isLast && position >= 0 && fed - static_cast<std::size_t>(position) > longestToken) {
        ownProblem = "a tag or comment does not end";
        return false;
    }
    return true;
}

const char* ListParser::problem() const {
    return ownProblem != nullptr ? ownProblem : XML_ErrorString(XML_GetErrorCode(parser.get()));
}

Segment ListParser::takeSegment() {
    return std::move(segment);
}

void ListParser::stop(const char* why) {
    ownProblem = why;
    XML_StopParser(parser.get(), XML_FALSE);
}

void ListParser::collect(std::string& target) {
    target.clear();
    collected = &target;
    XML_SetCharacterDataHandler(parser.get(), text);
}

void ListParser::startChild(const XML_Char* name, const XML_Char** attributes) {
    // Most elements of a list are roms, switches and devices, so the first letter sorts nearly all of them
    // out.
    switch (name[0]) {
    case 'd':
        if (std::strcmp(name, "description") == 0) {
            collect(machine.description);
        } else if (!machine.hasDisplay && std::strcmp(name, "display") == 0) {
            readDisplayAttributes(machine, attributes);
        }
        break;
    case 'y':
        if (std::strcmp(name, "year") == 0) {
            collect(machine.year);
        }
        break;
    case 'm':
        if (std::strcmp(name, "manufacturer") == 0) {
            collect(machine.manufacturer);
        }
        break;
    case 'v':
        if (!machine.hasDisplay && std::strcmp(name, "video") == 0) {
            readVideoAttributes(machine, attributes);
        }
        break;
    case 'i':
        if (!machine.hasInput && std::strcmp(name, "input") == 0) {
            inInput = true;
            readInputAttributes(machine, attributes);
            firstPlayersControl = !machine.control.empty();
        }
        break;
    default:
        break;
    }
}

void XMLCALL ListParser::startElement(void* self, const XML_Char* name, const XML_Char** attributes) {
    ListParser& list = *static_cast<ListParser*>(self);
    switch (list.depth++) {
    case rootLevel:
        if (isMachineElement(name)) {
            list.inMachine = true;
            list.machine = {};
            readMachineAttributes(list.machine, attributes);
        }
        break;
    case machineLevel:
        if (list.inMachine) {
            list.startChild(name, attributes);
        }
        break;
    case childLevel:
        if (list.inInput && std::strcmp(name, "control") == 0) {
            readControlAttributes(list.machine, attributes, list.firstPlayersControl);
        }
        break;
    case deepestElement:
        list.stop("too many elements inside each other");
        break;
    default:
        break;
    }
}

void XMLCALL ListParser::endElement(void* self, const XML_Char*) {
    ListParser& list = *static_cast<ListParser*>(self);
    switch (--list.depth) {
    case machineLevel:
        list.inInput = false;
        if (list.collected != nullptr) {
            list.collected = nullptr;
            XML_SetCharacterDataHandler(list.parser.get(), nullptr);
        }
        break;
    case rootLevel:
        if (list.inMachine && !appendBlock(list.segment, list.machine)) {
            list.stop("a machine has no name");
        }
        list.inMachine = false;
        break;
    case documentLevel:
        if (static_cast<std::size_t>(XML_GetCurrentByteIndex(list.parser.get())) < list.closingAt) {
            list.ended = true;
            XML_StopParser(list.parser.get(), XML_FALSE);
        }
        break;
    default:
        break;
    }
}

void XMLCALL ListParser::text(void* self, const XML_Char* characters, int length) {
    std::string& target = *static_cast<ListParser*>(self)->collected;
    if (target.size() < longestText) {
        target.append(characters, static_cast<std::size_t>(length));
    }
}
