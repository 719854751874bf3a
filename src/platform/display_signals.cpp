#include "platform/display_signals.h"

#include <csignal>
#include <initializer_list>

namespace {

volatile std::sig_atomic_t requested = 0;

void handleSignal(int) {
    requested = 1;
}

} // namespace

void installCloseSignals() {
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction former {};
        sigaction(number, nullptr, &former);
        if (former.sa_handler == SIG_IGN) {
            continue;
        }
        struct sigaction action {};
        action.sa_handler = handleSignal;
        action.sa_flags = SA_RESTART;
        sigemptyset(&action.sa_mask);
        sigaction(number, &action, nullptr);
    }
}

void noteCloseRequest() {
    requested = 1;
}

bool takeCloseRequest() {
    const bool result = requested != 0;
    requested = 0;
    return result;
}
