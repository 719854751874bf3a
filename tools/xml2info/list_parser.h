// Turns the text of a game list, or of a part of one, into blocks by means of expat. Called by the
// converter's workers, one parser each. Reads no file: the caller fills the parser's own buffer, so that
// nothing is copied.
#pragma once

#include "xml2info/list_block.h"

#include <expat.h>
#include <memory>
#include <optional>

// The element of one machine; the older one is "game".
bool isMachineElement(const char* elementName);

class ListParser {
public:
    // Throws std::bad_alloc.
    ListParser();
    ~ListParser();
    ListParser(const ListParser&) = delete;
    ListParser& operator=(const ListParser&) = delete;

    // Forgets everything and expects a new document.
    void reset();

    // An end tag of the root from this byte of the document on was added by the caller, to complete a part,
    // and is not the end of the list. Holds until reset.
    void expectClosingAt(std::size_t offset) { closingAt = offset; }

    // Room for the next bytes of the document, valid until parse or reset. Throws std::bad_alloc.
    char* buffer(std::size_t size);

    // Parses bytes of the buffer. False when the document is not well-formed; problem() then says why. After
    // the end of the list everything counts as good and is ignored.
    bool parse(std::size_t length, bool isLast);

    // The list's own root element has ended.
    bool listEnded() const { return ended; }

    const char* problem() const;

    // Hands over the blocks read since the last reset.
    Segment takeSegment();

private:
    static void XMLCALL startElement(void* self, const XML_Char* name, const XML_Char** attributes);
    static void XMLCALL endElement(void* self, const XML_Char* name);
    static void XMLCALL text(void* self, const XML_Char* characters, int length);

    void startChild(const XML_Char* name, const XML_Char** attributes);
    void collect(std::string& target);
    void stop(const char* why);

    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser;
    int depth = 0; // open elements
    bool inMachine = false;
    bool inInput = false;
    std::string* collected = nullptr; // the text that the current element is read into
    int collectedDepth = 0;
    bool ended = false;
    std::size_t closingAt = 0; // offset of the caller's own end tag
    std::size_t fed = 0;       // bytes of the document so far
    const char* ownProblem = nullptr;
    bool firstPlayersControl = false; // machine.control is player 1's
    Machine machine;
    Segment segment;
};
