// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml2info/list_start.h"

#include "xml2info/xml_list_parser.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <strings.h>

namespace {

// A candidate that is undecided after this many bytes is rejected. Real lists have a prologue of about 10 kB.
constexpr std::size_t maximumPrologueSize = 1 << 20;

// The search fails after parsing this many bytes in total, however many candidates there are.
constexpr std::size_t parsingBudget = 256 << 20;

// Bytes parsed of a candidate at first.
constexpr std::size_t firstPieceSize = 1024;

// Cost of resetting the parser, expressed in parsed bytes.
constexpr std::size_t costOfCandidate = 256;

enum class Verdict { undecided, accepted, rejected };

// Tests whether the text from some offset is the beginning of a list: a document whose root element has a
// machine as its first child.
class Candidate {
public:
    Candidate() : parser_(XML_ParserCreate(nullptr), XML_ParserFree) {
        if (!parser_) {
            throw std::bad_alloc();
        }
        reset();
    }

    void reset() {
        XML_ParserReset(parser_.get(), nullptr);
        XML_SetUserData(parser_.get(), this);
        XML_SetStartElementHandler(parser_.get(), startElement);
        XML_SetXmlDeclHandler(parser_.get(), declaration);
        XML_SetStartDoctypeDeclHandler(parser_.get(), documentType);
        XML_SetEntityDeclHandler(parser_.get(), entity);
        depth_ = 0;
        verdict_ = Verdict::undecided;
        divisible = true;
        rootName.clear();
    }

    Verdict parse(std::string_view bytes) {
        const bool wellFormed =
            XML_Parse(parser_.get(), bytes.data(), static_cast<int>(bytes.size()), 0) == XML_STATUS_OK;
        if (!wellFormed && verdict_ == Verdict::undecided) {
            verdict_ = Verdict::rejected;
        }
        return verdict_;
    }

    // Number of bytes that the parser has processed.
    std::size_t position() const {
        return static_cast<std::size_t>(std::max<XML_Index>(XML_GetCurrentByteIndex(parser_.get()), 0));
    }

    std::string rootName;
    bool divisible = true;
    std::size_t firstMachine = 0;

private:
    static void XMLCALL startElement(void* self, const XML_Char* name, const XML_Char**) {
        Candidate& candidate = *static_cast<Candidate*>(self);
        if (candidate.depth_++ == 0) {
            candidate.rootName = name;
            return;
        }
        candidate.firstMachine = candidate.position();
        candidate.verdict_ = isMachineElement(name) ? Verdict::accepted : Verdict::rejected;
        XML_StopParser(candidate.parser_.get(), XML_FALSE);
    }

    static void XMLCALL declaration(void* self, const XML_Char*, const XML_Char* encoding, int) {
        if (encoding && strcasecmp(encoding, "utf-8") != 0) {
            static_cast<Candidate*>(self)->divisible = false;
        }
    }

    static void XMLCALL documentType(void* self, const XML_Char*, const XML_Char* systemId, const XML_Char*,
                                     int) {
        if (systemId) {
            static_cast<Candidate*>(self)->divisible = false;
        }
    }

    static void XMLCALL entity(void* self, const XML_Char*, int, const XML_Char*, int, const XML_Char*,
                               const XML_Char*, const XML_Char*, const XML_Char*) {
        static_cast<Candidate*>(self)->divisible = false;
    }

    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser_;
    int depth_ = 0;
    Verdict verdict_ = Verdict::undecided;
};

bool isNameStart(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte >= 0x80 || byte == '_' || byte == ':' || ((byte | 0x20) >= 'a' && (byte | 0x20) <= 'z');
}

// Whether a document can begin with these bytes, the first of which is '<'.
bool canBeginDocument(std::string_view bytes) {
    constexpr std::string_view declaration = "<?xml";
    constexpr std::string_view documentType = "<!DOCTYPE";
    return bytes.size() < 2 || isNameStart(bytes[1]) || bytes.starts_with(declaration) ||
           bytes.starts_with(documentType);
}

// The bytes that have been read, starting with the current candidate.
class InputWindow {
public:
    explicit InputWindow(ByteInput& input) : input_(input) {}

    std::string_view bytes() const { return std::string_view(bytes_).substr(start_); }

    // Returns false at the end of the input.
    bool readMore() {
        bytes_.erase(0, start_);
        start_ = 0;
        const std::size_t before = bytes_.size();
        bytes_.resize(before + blockSize);
        const std::size_t count = input_.read(bytes_.data() + before, blockSize);
        bytes_.resize(before + count);
        return count > 0;
    }

    // Moves to the next '<' at or after the offset, relative to the current candidate. Returns false when
    // there is none.
    bool moveToBracket(std::size_t offset) {
        for (;;) {
            const std::size_t found = bytes_.find('<', start_ + offset);
            if (found != std::string::npos) {
                start_ = found;
                return bytes_.size() - start_ >= longestMarker || readMore() || bytes_.size() > start_;
            }
            start_ = bytes_.size();
            offset = 0;
            if (!readMore()) {
                return false;
            }
        }
    }

private:
    static constexpr std::size_t blockSize = 65536;
    static constexpr std::size_t longestMarker = 9; // <!DOCTYPE

    ByteInput& input_;
    std::string bytes_;
    std::size_t start_ = 0;
};

Verdict tryCandidate(Candidate& candidate, InputWindow& window, std::size_t& budget) {
    candidate.reset();
    std::size_t parsed = 0;
    std::size_t piece = firstPieceSize;
    Verdict verdict = Verdict::undecided;
    while (verdict == Verdict::undecided) {
        if (parsed >= maximumPrologueSize || (parsed == window.bytes().size() && !window.readMore())) {
            verdict = Verdict::rejected;
            break;
        }
        const std::string_view next = window.bytes().substr(parsed, piece);
        verdict = candidate.parse(next);
        parsed += next.size();
        // The parser scans an incomplete token again with each piece, so doubling the parsed length bounds
        // that cost.
        piece = std::max(piece, parsed);
    }
    // Most candidates are rejected within the first bytes of the first piece.
    const std::size_t examined = parsed > firstPieceSize ? parsed : candidate.position();
    budget -= std::min(budget, examined + costOfCandidate);
    return verdict;
}

} // namespace

std::optional<ListStart> findListStart(ByteInput& input) {
    InputWindow window(input);
    Candidate candidate;
    std::size_t budget = parsingBudget;
    for (std::size_t offset = 0; budget > 0 && window.moveToBracket(offset); offset = 1) {
        if (!canBeginDocument(window.bytes()) ||
            tryCandidate(candidate, window, budget) != Verdict::accepted) {
            continue;
        }
        return ListStart{std::string(window.bytes()), candidate.firstMachine, candidate.rootName,
                         candidate.divisible};
    }
    return std::nullopt;
}
