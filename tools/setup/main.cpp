// SPDX-License-Identifier: GPL-3.0-or-later
// kestravox-setup: sets up the front end for a real emulator.
#include "setup/command_line.h"
#include "setup/pages/key_display.h"
#include "setup/pages/pages.h"
#include "setup/terminal.h"

#include <cstdio>

int main(int count, char** arguments) {
    SetupOptions options;
    const std::string wrong = parseOptions({arguments + 1, arguments + count}, options);
    if (!wrong.empty()) {
        std::fprintf(stderr, "kestravox-setup: %s Try --help.\n", wrong.c_str());
        return 2;
    }
    switch (options.task) {
    case SetupTask::check:
        return checkOnTerminal(options);
    case SetupTask::rebuild:
        return rebuildOnTerminal(options);
    case SetupTask::help:
        std::fputs(helpText().c_str(), stdout);
        return 0;
    case SetupTask::version:
        std::puts("kestravox-setup " KESTRAVOX_VERSION);
        return 0;
    case SetupTask::keys:
        return showPressedKeys();
    case SetupTask::pages:
        if (const auto result = runSetupPages(options)) {
            return *result;
        }
        return writeOnTerminal(options);
    case SetupTask::write:
        return writeOnTerminal(options);
    }
    return 0;
}
