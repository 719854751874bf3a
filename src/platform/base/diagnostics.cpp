// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/diagnostics.h"

#include <climits>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>

namespace {

// Writes `text`, at most PIPE_BUF bytes, if the stream is ready. Errors and partial writes are ignored.
void writeIfReady(int stream, std::string_view text) {
    pollfd target = {stream, POLLOUT, 0};
    if (poll(&target, 1, 0) == 1 && (target.revents & POLLOUT) != 0) {
        const ssize_t written = write(stream, text.data(), text.size());
        static_cast<void>(written);
    }
}

// The write function of a stdio stream; the cookie is its file descriptor. Always reports that everything was
// written.
ssize_t writeForStdio(void* cookie, const char* text, std::size_t size) {
    for (std::string_view remaining(text, size); !remaining.empty();
         remaining.remove_prefix(std::min<std::size_t>(remaining.size(), PIPE_BUF))) {
        writeIfReady(static_cast<int>(reinterpret_cast<std::intptr_t>(cookie)),
                     remaining.substr(0, PIPE_BUF));
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
    writeIfReady(stream, std::string(text.substr(0, PIPE_BUF - lineEnd.size())).append(lineEnd));
}

void replaceStandardStreams() {
    replaceStream(stdout, standardOutput);
    replaceStream(stderr, standardError);
}
