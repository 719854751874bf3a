// xml2info: reads the emulator's game list as XML on standard input and writes the list file of the front end
// on standard output. Either the whole list is written, or nothing and the exit code is 1.

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

// The front end sends both streams to the list file, in which words would be taken for a list.
bool errorsGoIntoTheList() {
    struct stat output = {};
    struct stat error = {};
    return fstat(STDOUT_FILENO, &output) == 0 && fstat(STDERR_FILENO, &error) == 0 &&
           output.st_dev == error.st_dev && output.st_ino == error.st_ino && isatty(STDERR_FILENO) == 0;
}

int fail(const char* problem) {
    if (!errorsGoIntoTheList()) {
        std::fprintf(stderr, "xml2info: %s; no list was written\n", problem);
    }
    return 1;
}

// A full disk, a closed pipe or a request to end must not leave half a list: writes report the first two as
// errors, and the third waits for the few milliseconds that the writing takes.
void holdSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    sigset_t held;
    sigemptyset(&held);
    for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
        sigaddset(&held, number);
    }
    sigprocmask(SIG_BLOCK, &held, nullptr);
}

} // namespace

int main() {
    try {
        const Conversion conversion = convertList(STDIN_FILENO);
        if (!conversion.problem.empty()) {
            return fail(conversion.problem.c_str());
        }
        holdSignals();
        if (!writeList(STDOUT_FILENO, conversion.segments)) {
            return fail(std::strerror(errno));
        }
    } catch (const std::exception& exception) {
        return fail(exception.what());
    }
    return 0;
}
