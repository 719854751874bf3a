#include "platform/diagnostics.h"

#include <climits>
#include <poll.h>
#include <unistd.h>

#include <string>

void writeDiagnostic(int stream, std::string_view text) {
    const std::string line = std::string(text.substr(0, PIPE_BUF - 1)) + "\n";
    pollfd target = {stream, POLLOUT, 0};
    if (poll(&target, 1, 0) == 1 && (target.revents & POLLOUT) != 0) {
        const ssize_t written = write(stream, line.data(), line.size());
        static_cast<void>(written);
    }
}
