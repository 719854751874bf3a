// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/entry.h"

#include "platform/base/end_request.h"
#include "platform/base/heap.h"
#include "platform/diagnostics.h"
#include "platform/module.h"
#include "platform/process/command_line.h"
#include "platform/window.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace {

// When a program is started with a standard stream closed, the first file that it opens gets that descriptor,
// and a diagnostic could end up in the settings file.
void fillStandardStreams() {
    int descriptor = open("/dev/null", O_RDWR);
    while (descriptor >= 0 && descriptor <= STDERR_FILENO) {
        descriptor = open("/dev/null", O_RDWR);
    }
    if (descriptor >= 0) {
        close(descriptor);
    }
}

} // namespace

int main() {
    limitHeaps();
    fillStandardStreams();
    replaceStandardStreams();
    // A diagnostic written to a closed pipe must not end the program. Children get the default action back.
    std::signal(SIGPIPE, SIG_IGN);
    const int result = WinMain(GetModuleHandleA(nullptr), nullptr, commandTail(GetCommandLineA()), SW_SHOW);
    constexpr int displayLostCode = 2;
    return result == 0 && endRequest() == EndRequest::displayLost ? displayLostCode : result;
}
