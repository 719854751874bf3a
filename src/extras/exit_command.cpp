// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exit_command.h"

#include "platform/diagnostics.h"
#include "platform/process.h"
#include "platform/screen.h"

void runExitCommand(std::string command) {
    if (command.empty() || GetSystemMetrics(SM_SHUTTINGDOWN) != 0) {
        return;
    }
    const std::string original = command; // CreateProcessA may modify the command line
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr, nullptr,
                        nullptr, &process)) {
        writeDiagnostic(standardError, "ExitCommand could not be started: " + original);
    }
}
