#include "platform/text_file.h"

#include "platform/codepage.h"
#include "platform/files/file_io.h"
#include "platform/files/paths.h"

#include <unistd.h>
#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t bufferSize = std::size_t{64} * 1024;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

struct TextFile {
    FileDescriptor descriptor;
    bool returnHeld = false; // the last byte read was a carriage return, and what follows it is not known yet
    bool isUtf8 = false;
    std::string cutCharacter; // the head of a UTF-8 character whose rest has not been read
    std::string converted;    // what of it stands behind `given` waits for the reader
    std::size_t given = 0;
    std::array<char, bufferSize> streamBuffer; // of the FILE, which has to live as long
};

// Takes the carriage return out of each CR LF, in place; gives the new length.
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

// Fills up to `size` (above 1) bytes with joined line ends: 0 at the end of the file only, -1 on an error.
std::ptrdiff_t readJoined(TextFile& file, char* buffer, std::size_t size) {
    for (;;) {
        const std::size_t held = file.returnHeld ? 1 : 0;
        const std::ptrdiff_t length = readSome(file.descriptor.number(), buffer + held, size - held);
        if (held != 0) {
            *buffer = '\r';
        }
        if (length <= 0) {
            file.returnHeld = false;
            return length < 0 ? -1 : static_cast<std::ptrdiff_t>(held);
        }
        std::size_t filled = static_cast<std::size_t>(length) + held;
        file.returnHeld = buffer[filled - 1] == '\r';
        filled = joinLineEnds(buffer, filled - (file.returnHeld ? 1 : 0));
        if (filled > 0) {
            return static_cast<std::ptrdiff_t>(filled);
        }
    }
}

// Bytes at the end of the text that begin a UTF-8 character without ending it.
std::size_t cutTail(std::string_view text) {
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

// Makes the next piece of converted text. False at the end of the file or on an error; `failed` tells which.
bool convertMore(TextFile& file, bool& failed) {
    std::string piece = std::move(file.cutCharacter);
    const std::size_t head = piece.size();
    piece.resize(head + bufferSize);
    const std::ptrdiff_t length = readJoined(file, piece.data() + head, bufferSize);
    failed = length < 0;
    piece.resize(head + static_cast<std::size_t>(std::max<std::ptrdiff_t>(length, 0)));
    const std::size_t tail = length > 0 ? cutTail(piece) : 0;
    file.cutCharacter = piece.substr(piece.size() - tail);
    piece.resize(piece.size() - tail);
    file.converted = utf8ToCodePage(piece);
    file.given = 0;
    return length > 0 || !file.converted.empty();
}

ssize_t readStream(void* cookie, char* buffer, std::size_t size) {
    TextFile& file = *static_cast<TextFile*>(cookie);
    if (!file.isUtf8) {
        return readJoined(file, buffer, size);
    }
    while (file.given == file.converted.size()) {
        bool failed = false;
        if (!convertMore(file, failed)) {
            return failed ? -1 : 0;
        }
    }
    const std::size_t length = std::min(size, file.converted.size() - file.given);
    std::memcpy(buffer, file.converted.data() + file.given, length);
    file.given += length;
    return static_cast<ssize_t>(length);
}

int closeStream(void* cookie) {
    delete static_cast<TextFile*>(cookie);
    return 0;
}

// Passes over the byte order mark when there is one.
bool takeByteOrderMark(const FileDescriptor& file) {
    std::array<char, byteOrderMark.size()> head;
    return pread(file.number(), head.data(), head.size(), 0) == static_cast<ssize_t>(head.size()) &&
           std::string_view(head.data(), head.size()) == byteOrderMark &&
           lseek(file.number(), static_cast<off_t>(head.size()), SEEK_SET) >= 0;
}

// Whether the first byte beyond ASCII begins a character of UTF-8, as it does in UTF-8 without a mark; in
// text of the code page it hardly ever does.
bool looksLikeUtf8(const FileDescriptor& file) {
    std::array<unsigned char, bufferSize> block;
    for (off_t offset = 0;;) {
        const ssize_t length = pread(file.number(), block.data(), block.size(), offset);
        if (length <= 0) {
            return false;
        }
        const auto end = block.begin() + length;
        const auto found =
            std::find_if(block.begin(), end, [](unsigned char letter) { return letter >= 0x80; });
        offset += found - block.begin();
        if (found != end) {
            std::array<unsigned char, 4> character{};
            utf8proc_int32_t letter = 0;
            const ssize_t read = pread(file.number(), character.data(), character.size(), offset);
            return read > 0 && utf8proc_iterate(character.data(), read, &letter) > 0;
        }
    }
}

} // namespace

FILE* openTextFile(LPCSTR path) {
    auto file = std::make_unique<TextFile>();
    file->descriptor = openPlainFile(nativePath(path ? path : "").c_str());
    if (!file->descriptor.isOpen()) {
        return nullptr;
    }
    file->isUtf8 = takeByteOrderMark(file->descriptor) || looksLikeUtf8(file->descriptor);
    cookie_io_functions_t functions{};
    functions.read = readStream;
    functions.close = closeStream;
    FILE* const stream = fopencookie(file.get(), "r", functions);
    if (stream) {
        setvbuf(stream, file->streamBuffer.data(), _IOFBF, file->streamBuffer.size());
        static_cast<void>(file.release()); // closeStream ends it
    }
    return stream;
}
