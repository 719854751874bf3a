// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text_file.h"

#include "platform/codepage.h"
#include "platform/files/file_io.h"
#include "platform/files/paths.h"

#include <unistd.h>
#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t bufferSize = std::size_t{64} * 1024;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// Bytes below 128 are the same in both encodings, so the first other one decides. In UTF-8 without a mark it
// begins a valid character, which text in the code page almost never does.
enum class Encoding { undecided, codePage, utf8 };

struct TextFile {
    FileDescriptor descriptor;
    bool returnPending = false; // a final carriage return was read; the next byte is not known yet
    Encoding encoding = Encoding::undecided;
    std::string
        partialCharacter;  // UTF-8 that was read but not converted: a character that is not complete yet
    std::string converted; // text for the reader, of which `delivered` bytes were passed on
    std::size_t delivered = 0;
    std::array<char, bufferSize> streamBuffer; // buffer of the FILE; must exist as long as it
};

// Removes the carriage return of each CR LF in place and returns the new length.
std::size_t joinLineEnds(char* text, std::size_t length) {
    char* const end = text + length;
    char* from = text;
    char* to = text;
    while (from < end) {
        char* const found = static_cast<char*>(std::memchr(from, '\r', static_cast<std::size_t>(end - from)));
        const std::size_t plain = static_cast<std::size_t>((found ? found : end) - from);
        if (to != from) {
            std::memmove(to, from, plain);
        }
        to += plain;
        from += plain;
        if (found) {
            ++from;
            if (from == end || *from != '\n') {
                *to++ = '\r';
            }
        }
    }
    return static_cast<std::size_t>(to - text);
}

// Reads up to `size` (at least 2) bytes with joined line ends. Returns 0 only at the end of the file, -1 on
// an error.
std::ptrdiff_t readJoined(TextFile& file, char* buffer, std::size_t size) {
    for (;;) {
        const std::size_t held = file.returnPending ? 1 : 0;
        const std::ptrdiff_t length = readSome(file.descriptor.number(), buffer + held, size - held);
        if (held != 0) {
            *buffer = '\r';
        }
        if (length <= 0) {
            file.returnPending = false;
            return length < 0 ? -1 : static_cast<std::ptrdiff_t>(held);
        }
        std::size_t filled = static_cast<std::size_t>(length) + held;
        file.returnPending = buffer[filled - 1] == '\r';
        filled = joinLineEnds(buffer, filled - (file.returnPending ? 1 : 0));
        if (filled > 0) {
            return static_cast<std::ptrdiff_t>(filled);
        }
    }
}

// Returns the number of bytes at the end of the text that begin a UTF-8 character without completing it.
std::size_t partialTailLength(std::string_view text) {
    constexpr std::size_t longestHead = 3;
    for (std::size_t back = 1; back <= std::min(longestHead, text.size()); ++back) {
        const auto byte = static_cast<unsigned char>(text[text.size() - back]);
        if (byte >= 0xC0) {
            const std::size_t whole = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
            return back < whole ? back : 0;
        }
        if (byte < 0x80) {
            return 0;
        }
    }
    return 0;
}

// Converts the next piece of the file. Returns false at the end of the file or on an error; `failed` is set
// for an error.
bool convertMore(TextFile& file, bool& failed) {
    std::string piece = std::move(file.partialCharacter);
    const std::size_t head = piece.size();
    piece.resize(head + bufferSize);
    const std::ptrdiff_t length = readJoined(file, piece.data() + head, bufferSize);
    failed = length < 0;
    piece.resize(head + static_cast<std::size_t>(std::max<std::ptrdiff_t>(length, 0)));
    const std::size_t tail = length > 0 ? partialTailLength(piece) : 0;
    file.partialCharacter = piece.substr(piece.size() - tail);
    piece.resize(piece.size() - tail);
    file.converted = utf8ToCodePage(piece);
    file.delivered = 0;
    return length > 0 || !file.converted.empty();
}

// Number of bytes below 128 at the start of the text.
std::size_t asciiLength(std::string_view text) {
    std::size_t length = 0;
    for (std::uint64_t bytes = 0; length + sizeof(bytes) <= text.size(); length += sizeof(bytes)) {
        std::memcpy(&bytes, text.data() + length, sizeof(bytes));
        if ((bytes & 0x8080808080808080) != 0) {
            break;
        }
    }
    while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80) {
        ++length;
    }
    return length;
}

// Whether the text begins with a UTF-8 character, whose last bytes may not have been read yet.
bool beginsUtf8(const TextFile& file, std::string_view text) {
    std::array<utf8proc_uint8_t, 4> character{};
    std::size_t length = std::min(text.size(), character.size());
    std::memcpy(character.data(), text.data(), length);
    if (length < character.size() && !file.returnPending) {
        const int number = file.descriptor.number();
        const ssize_t more =
            pread(number, character.data() + length, character.size() - length, lseek(number, 0, SEEK_CUR));
        length += static_cast<std::size_t>(std::max<ssize_t>(more, 0));
    }
    utf8proc_int32_t letter = 0;
    return utf8proc_iterate(character.data(), static_cast<utf8proc_ssize_t>(length), &letter) > 0;
}

// Sets the encoding of the file when the text, which has just been read, contains a byte of 128 or more.
void decideEncoding(TextFile& file, std::string_view text) {
    const std::size_t ascii = asciiLength(text);
    if (ascii < text.size()) {
        file.encoding = beginsUtf8(file, text.substr(ascii)) ? Encoding::utf8 : Encoding::codePage;
    }
}

ssize_t readStream(void* cookie, char* buffer, std::size_t size) {
    TextFile& file = *static_cast<TextFile*>(cookie);
    if (file.encoding != Encoding::utf8) {
        const std::ptrdiff_t length = readJoined(file, buffer, size);
        const std::string_view text(buffer, static_cast<std::size_t>(std::max<std::ptrdiff_t>(length, 0)));
        if (file.encoding == Encoding::undecided) {
            decideEncoding(file, text);
        }
        if (file.encoding != Encoding::utf8) {
            return length;
        }
        file.partialCharacter = text; // is converted with what follows
    }
    while (file.delivered == file.converted.size()) {
        bool failed = false;
        if (!convertMore(file, failed)) {
            return failed ? -1 : 0;
        }
    }
    const std::size_t length = std::min(size, file.converted.size() - file.delivered);
    std::memcpy(buffer, file.converted.data() + file.delivered, length);
    file.delivered += length;
    return static_cast<ssize_t>(length);
}

int closeStream(void* cookie) {
    delete static_cast<TextFile*>(cookie);
    return 0;
}

// Skips the byte order mark and returns true when there is one.
bool takeByteOrderMark(const FileDescriptor& file) {
    std::array<char, byteOrderMark.size()> head;
    return pread(file.number(), head.data(), head.size(), 0) == static_cast<ssize_t>(head.size()) &&
           std::string_view(head.data(), head.size()) == byteOrderMark &&
           lseek(file.number(), static_cast<off_t>(head.size()), SEEK_SET) >= 0;
}

} // namespace

FILE* openTextFile(LPCSTR path) {
    auto file = std::make_unique<TextFile>();
    file->descriptor = openPlainFile(nativePath(path ? path : "").c_str());
    if (!file->descriptor.isOpen()) {
        return nullptr;
    }
    if (takeByteOrderMark(file->descriptor)) {
        file->encoding = Encoding::utf8;
    }
    cookie_io_functions_t functions{};
    functions.read = readStream;
    functions.close = closeStream;
    FILE* const stream = fopencookie(file.get(), "r", functions);
    if (stream) {
        setvbuf(stream, file->streamBuffer.data(), _IOFBF, file->streamBuffer.size());
        static_cast<void>(file.release()); // closeStream deletes it
    }
    return stream;
}
