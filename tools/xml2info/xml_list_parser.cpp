// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml2info/xml_list_parser.h"

#include "xml2info/machine_attributes.h"

#include <cstring>
#include <new>

namespace {

// Limits the memory that a damaged list can use. A list is four elements deep.
constexpr int maximumDepth = 100;

// Limit in bytes for a text. Titles are much shorter, and so are the lines of the list file.
constexpr std::size_t maximumTextSize = 4000;

// Limit in bytes for a tag or comment; only a damaged list has longer ones.
constexpr std::size_t maximumTokenSize = 4 << 20;

enum Level { documentLevel, rootLevel, machineLevel, childLevel };

} // namespace

bool isMachineElement(const char* elementName) {
    return std::strcmp(elementName, "machine") == 0 || std::strcmp(elementName, "game") == 0;
}

XmlListParser::XmlListParser() : parser_(XML_ParserCreate(nullptr), XML_ParserFree) {
    if (!parser_) {
        throw std::bad_alloc();
    }
    reset();
}

XmlListParser::~XmlListParser() = default;

void XmlListParser::reset() {
    XML_ParserReset(parser_.get(), nullptr);
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), startElement, endElement);
    depth_ = documentLevel;
    inMachine_ = false;
    inInput_ = false;
    collected_ = nullptr;
    ended_ = false;
    closingOffset_ = static_cast<std::size_t>(-1);
    fedBytes_ = 0;
    problem_ = nullptr;
    segment_ = {};
}

char* XmlListParser::buffer(std::size_t size) {
    void* memory = XML_GetBuffer(parser_.get(), static_cast<int>(size));
    if (!memory) {
        throw std::bad_alloc();
    }
    return static_cast<char*>(memory);
}

bool XmlListParser::parse(std::size_t length, bool isLast) {
    if (ended_) {
        return true;
    }
    fedBytes_ += length;
    const XML_Status status = XML_ParseBuffer(parser_.get(), static_cast<int>(length), isLast);
    if (ended_) {
        return true;
    }
    if (status != XML_STATUS_OK) {
        return false;
    }
    const XML_Index position = XML_GetCurrentByteIndex(parser_.get());
    if (!isLast && position >= 0 && fedBytes_ - static_cast<std::size_t>(position) > maximumTokenSize) {
        problem_ = "a tag or comment does not end";
        return false;
    }
    return true;
}

const char* XmlListParser::problem() const {
    return problem_ ? problem_ : XML_ErrorString(XML_GetErrorCode(parser_.get()));
}

Segment XmlListParser::takeSegment() {
    return std::move(segment_);
}

void XmlListParser::stop(const char* why) {
    problem_ = why;
    XML_StopParser(parser_.get(), XML_FALSE);
}

void XmlListParser::collect(std::string& target) {
    target.clear();
    collected_ = &target;
    XML_SetCharacterDataHandler(parser_.get(), text);
}

void XmlListParser::startChild(const XML_Char* name, const XML_Char** attributes) {
    // Most elements are roms, switches and devices; the first letter rejects nearly all of them.
    switch (name[0]) {
    case 'd':
        if (std::strcmp(name, "description") == 0) {
            collect(machine_.description);
        } else if (!machine_.hasDisplay && std::strcmp(name, "display") == 0) {
            readDisplayAttributes(machine_, attributes);
        }
        break;
    case 'y':
        if (std::strcmp(name, "year") == 0) {
            collect(machine_.year);
        }
        break;
    case 'm':
        if (std::strcmp(name, "manufacturer") == 0) {
            collect(machine_.manufacturer);
        }
        break;
    case 'v':
        if (!machine_.hasDisplay && std::strcmp(name, "video") == 0) {
            readVideoAttributes(machine_, attributes);
        }
        break;
    case 'i':
        if (!machine_.hasInput && std::strcmp(name, "input") == 0) {
            inInput_ = true;
            readInputAttributes(machine_, attributes);
            isFirstPlayersControl_ = !machine_.control.empty();
        }
        break;
    default:
        break;
    }
}

void XMLCALL XmlListParser::startElement(void* self, const XML_Char* name, const XML_Char** attributes) {
    XmlListParser& list = *static_cast<XmlListParser*>(self);
    switch (list.depth_++) {
    case rootLevel:
        if (isMachineElement(name)) {
            list.inMachine_ = true;
            list.machine_ = {};
            readMachineAttributes(list.machine_, attributes);
        }
        break;
    case machineLevel:
        if (list.inMachine_) {
            list.startChild(name, attributes);
        }
        break;
    case childLevel:
        if (list.inInput_ && std::strcmp(name, "control") == 0) {
            readControlAttributes(list.machine_, attributes, list.isFirstPlayersControl_);
        }
        break;
    case maximumDepth:
        list.stop("too many elements inside each other");
        break;
    default:
        break;
    }
}

void XMLCALL XmlListParser::endElement(void* self, const XML_Char*) {
    XmlListParser& list = *static_cast<XmlListParser*>(self);
    switch (--list.depth_) {
    case machineLevel:
        list.inInput_ = false;
        if (list.collected_) {
            list.collected_ = nullptr;
            XML_SetCharacterDataHandler(list.parser_.get(), nullptr);
        }
        break;
    case rootLevel:
        if (list.inMachine_ && !appendBlock(list.segment_, list.machine_)) {
            list.stop("a machine has no name");
        }
        list.inMachine_ = false;
        break;
    case documentLevel:
        if (static_cast<std::size_t>(XML_GetCurrentByteIndex(list.parser_.get())) < list.closingOffset_) {
            list.ended_ = true;
            XML_StopParser(list.parser_.get(), XML_FALSE);
        }
        break;
    default:
        break;
    }
}

void XMLCALL XmlListParser::text(void* self, const XML_Char* characters, int length) {
    std::string& target = *static_cast<XmlListParser*>(self)->collected_;
    if (target.size() < maximumTextSize) {
        target.append(characters, static_cast<std::size_t>(length));
    }
}
