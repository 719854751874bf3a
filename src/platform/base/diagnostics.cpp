#include "platform/diagnostics.h"

#include <climits>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>

namespace {

// What goes through a pipe at once, or nothing.
void writeIfTaken(int stream, std::string_view text) {
    pollfd target = {stream, POLLOUT, 0};
    if (poll(&target, 1, 0) == 1 && (target.revents & POLLOUT) != 0) {
        const ssize_t written = write(stream, text.data(), text.size());
        static_cast<void>(written);
    }
}

// The writer of a stdio stream; the cookie is the number of the stream. Always reports that all is written.
ssize_t writeForStdio(void* cookie, const char* text, std::size_t size) {
    for (std::string_view rest(text, size); !rest.empty();
         rest.remove_prefix(std::min<std::size_t>(rest.size(), PIPE_BUF))) {
        writeIfTaken(static_cast<int>(reinterpret_cast<std::intptr_t>(cookie)), rest.substr(0, PIPE_BUF));
    }
    return static_cast<ssize_t>(size);
}

void replaceStream(FILE*& stream, int number) {
    void* cookie = reinterpret_cast<void*>(static_cast<std::intptr_t>(number));
    FILE* replacement = fopencookie(cookie, "w", {nullptr, writeForStdio, nullptr, nullptr});
    if (replacement) {
        setvbuf(replacement, nullptr, _IONBF, 0);
        stream = replacement;
    }
}

} // namespace

void writeDiagnostic(int stream, std::string_view text, std::string_view lineEnd) {
    writeIfTaken(stream, std::string(text.substr(0, PIPE_BUF - lineEnd.size())).append(lineEnd));
}

void replaceStandardStreams() {
    replaceStream(stdout, standardOutput);
    replaceStream(stderr, standardError);
}
