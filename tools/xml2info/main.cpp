// SPDX-License-Identifier: GPL-3.0-or-later
// xml2info: reads the emulator's game list as XML from standard input and writes the list file of the front
// end to standard output. Writes either the whole list or nothing; the exit code is 1 in the second case.

#include "xml2info/list_converter.h"
#include "xml2info/list_output.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The front end redirects both streams to the list file, where a message would be taken for a list.
bool errorsGoToList() {
    struct stat output = {};
    struct stat error = {};
    return fstat(STDOUT_FILENO, &output) == 0 && fstat(STDERR_FILENO, &error) == 0 &&
           output.st_dev == error.st_dev && output.st_ino == error.st_ino && isatty(STDERR_FILENO) == 0;
}

int fail(const char* problem) {
    if (!errorsGoToList()) {
        std::fprintf(stderr, "xml2info: %s; no list was written\n", problem);
    }
    return 1;
}

// Ensures that no incomplete list is left. Writing to a closed pipe or beyond a size limit fails instead of
// ending the program, and termination signals are blocked for the few milliseconds that writing takes.
void blockSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    sigset_t blocked;
    sigemptyset(&blocked);
    for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
        sigaddset(&blocked, number);
    }
    sigprocmask(SIG_BLOCK, &blocked, nullptr);
}

} // namespace

int main() {
    try {
        const Conversion conversion = convertList(STDIN_FILENO);
        if (!conversion.problem.empty()) {
            return fail(conversion.problem.c_str());
        }
        blockSignals();
        if (!writeList(STDOUT_FILENO, conversion.segments)) {
            return fail(std::strerror(errno));
        }
    } catch (const std::exception& exception) {
        return fail(exception.what());
    }
    return 0;
}
