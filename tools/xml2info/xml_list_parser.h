// SPDX-License-Identifier: GPL-3.0-or-later
// Parses the XML of a game list, or of a part of one, into blocks. Each worker of the converter has one
// parser. Does not read the input: the caller reads directly into the parser's buffer.
#pragma once

#include "xml2info/list_block.h"

#include <expat.h>
#include <memory>
#include <optional>

// True for the element of a machine, which is called "game" in old lists.
bool isMachineElement(const char* elementName);

class XmlListParser {
public:
    // Throws std::bad_alloc.
    XmlListParser();
    ~XmlListParser();
    XmlListParser(const XmlListParser&) = delete;
    XmlListParser& operator=(const XmlListParser&) = delete;

    // Discards all state and starts a new document.
    void reset();

    // Announces that the end tag of the root at this offset of the document was added by the caller, to
    // complete a part, and does not end the list. Valid until reset.
    void expectClosingAt(std::size_t offset) { closingOffset_ = offset; }

    // Returns a buffer of `size` bytes for the next bytes of the document, valid until parse or reset. Throws
    // std::bad_alloc.
    char* buffer(std::size_t size);

    // Parses the first `length` bytes of the buffer. Returns false when the document is not a valid list;
    // problem() then returns the reason. Ignores everything after the end of the list.
    bool parse(std::size_t length, bool isLast);

    // True when the root element of the list itself has ended.
    bool listEnded() const { return ended_; }

    const char* problem() const;

    // Moves out the blocks parsed since the last reset.
    Segment takeSegment();

private:
    static void XMLCALL startElement(void* self, const XML_Char* name, const XML_Char** attributes);
    static void XMLCALL endElement(void* self, const XML_Char* name);
    static void XMLCALL text(void* self, const XML_Char* characters, int length);

    void startChild(const XML_Char* name, const XML_Char** attributes);
    void collect(std::string& target);
    void stop(const char* why);

    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser_;
    int depth_ = 0; // open elements
    bool inMachine_ = false;
    bool inInput_ = false;
    std::string* collected_ = nullptr; // receives the text of the current element; null when it is ignored
    bool ended_ = false;
    std::size_t closingOffset_ = 0;      // of the end tag added by the caller
    std::size_t fedBytes_ = 0;           // size of the document so far
    const char* problem_ = nullptr;      // null when expat reported the error
    bool isFirstPlayersControl_ = false; // machine_.control belongs to player 1
    Machine machine_;
    Segment segment_;
};
