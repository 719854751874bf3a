#include "xml2info/list_start.h"

#include "xml2info/list_parser.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <strings.h>

namespace {

// The prologue of a list takes 10 kB. A candidate that is undecided after this much is none.
constexpr std::size_t longestPrologue = 1 << 20;

// Parsed in all before junk that keeps looking like the beginning of a list is given up.
constexpr std::size_t parsingBudget = 256 << 20;

// Given to a candidate at first, in bytes.
constexpr std::size_t firstPiece = 1024;

// What the start of a parser costs, in bytes that it could have parsed meanwhile.
constexpr std::size_t costOfCandidate = 256;

enum class Verdict { undecided, isList, isNone };

// Tries whether the text from one place on is the beginning of a list: a document whose root element has a
// machine as its first child.
class Candidate {
public:
    Candidate() : parser(XML_ParserCreate(nullptr), XML_ParserFree) {
        if (!parser) {
            throw std::bad_alloc();
        }
        reset();
    }

    void reset() {
        XML_ParserReset(parser.get(), nullptr);
        XML_SetUserData(parser.get(), this);
        XML_SetStartElementHandler(parser.get(), startElement);
        XML_SetXmlDeclHandler(parser.get(), declaration);
        XML_SetStartDoctypeDeclHandler(parser.get(), documentType);
        XML_SetEntityDeclHandler(parser.get(), entity);
        depth = 0;
        verdict = Verdict::undecided;
        divisible = true;
        rootName.clear();
    }

    Verdict parse(std::string_view bytes) {
        const bool wellFormed =
            XML_Parse(parser.get(), bytes.data(), static_cast<int>(bytes.size()), 0) == XML_STATUS_OK;
        if (!wellFormed && verdict == Verdict::undecided) {
            verdict = Verdict::isNone;
        }
        return verdict;
    }

    // How far the parser has come, in bytes from the place.
    std::size_t position() const {
        return static_cast<std::size_t>(std::max<XML_Index>(XML_GetCurrentByteIndex(parser.get()), 0));
    }

    std::string rootName;
    bool divisible = true;
    std::size_t firstMachine = 0;

private:
    static void XMLCALL startElement(void* self, const XML_Char* name, const XML_Char**) {
        Candidate& candidate = *static_cast<Candidate*>(self);
        if (candidate.depth++ == 0) {
            candidate.rootName = name;
            return;
        }
        candidate.firstMachine = candidate.position();
        candidate.verdict = isMachineElement(name) ? Verdict::isList : Verdict::isNone;
        XML_StopParser(candidate.parser.get(), XML_FALSE);
    }

    static void XMLCALL declaration(void* self, const XML_Char*, const XML_Char* encoding, int) {
        if (encoding != nullptr && strcasecmp(encoding, "utf-8") != 0) {
            static_cast<Candidate*>(self)->divisible = false;
        }
    }

    static void XMLCALL documentType(void* self, const XML_Char*, const XML_Char* systemId, const XML_Char*,
                                     int) {
        if (systemId != nullptr) {
            static_cast<Candidate*>(self)->divisible = false;
        }
    }

    static void XMLCALL entity(void* self, const XML_Char*, int, const XML_Char*, int, const XML_Char*,
                               const XML_Char*, const XML_Char*, const XML_Char*) {
        static_cast<Candidate*>(self)->divisible = false;
    }

    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser;
    int depth = 0;
    Verdict verdict = Verdict::undecided;
};

bool isNameStart(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte >= 0x80 || byte == '_' || byte == ':' || ((byte | 0x20) >= 'a' && (byte | 0x20) <= 'z');
}

// Whether a document can begin with these bytes, of which the first is a '<'.
bool canBeginDocument(std::string_view bytes) {
    constexpr std::string_view declaration = "<?xml";
    constexpr std::string_view documentType = "<!DOCTYPE";
    return bytes.size() < 2 || isNameStart(bytes[1]) || bytes.starts_with(declaration) ||
           bytes.starts_with(documentType);
}

// The bytes from the current candidate on, as far as they have been read.
class Window {
public:
    explicit Window(ByteInput& source) : input(source) {}

    std::string_view bytes() const { return std::string_view(read).substr(from); }

    // False when the input has ended.
    bool readMore() {
        read.erase(0, from);
        from = 0;
        const std::size_t before = read.size();
        read.resize(before + blockSize);
        const std::size_t count = input.read(read.data() + before, blockSize);
        read.resize(before + count);
        return count > 0;
    }

    // Moves to the next '<' at or behind offset. False when there is none before the end of the input.
    bool moveToBracket(std::size_t offset) {
        for (;;) {
            const std::size_t found = read.find('<', from + offset);
            if (found != std::string::npos) {
                from = found;
                return read.size() - from >= longestOpening || readMore() || read.size() > from;
            }
            from = read.size();
            offset = 0;
            if (!readMore()) {
                return false;
            }
        }
    }

private:
    static constexpr std::size_t blockSize = 65536;
    static constexpr std::size_t longestOpening = 9; // <!DOCTYPE

    ByteInput& input;
    std::string read;
    std::size_t from = 0;
};

Verdict tryCandidate(Candidate& candidate, Window& window, std::size_t& budget) {
    candidate.reset();
    std::size_t parsed = 0;
    std::size_t piece = firstPiece;
    Verdict verdict = Verdict::undecided;
    while (verdict == Verdict::undecided) {
        if (parsed >= longestPrologue || (parsed == window.bytes().size() && !window.readMore())) {
            verdict = Verdict::isNone;
            break;
        }
        const std::string_view next = window.bytes().substr(parsed, piece);
        verdict = candidate.parse(next);
        parsed += next.size();
        // Growing pieces keep the cost of a token that is begun anew with every piece in proportion.
        piece = std::max(piece, parsed);
    }
    // Most candidates fail within a few bytes of the first piece; all the bytes of more pieces have been
    // looked at.
    const std::size_t lookedAt = parsed > firstPiece ? parsed : candidate.position();
    budget -= std::min(budget, lookedAt + costOfCandidate);
    return verdict;
}

} // namespace

std::optional<ListStart> findListStart(ByteInput& input) {
    Window window(input);
    Candidate candidate;
    std::size_t budget = parsingBudget;
    for (std::size_t behind = 0; budget > 0 && window.moveToBracket(behind); behind = 1) {
        if (!canBeginDocument(window.bytes()) || tryCandidate(candidate, window, budget) != Verdict::isList) {
            continue;
        }
        return ListStart{std::string(window.bytes()), candidate.firstMachine, candidate.rootName,
                         candidate.divisible};
    }
    return std::nullopt;
}
