// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/end_request.h"

#include <atomic>
#include <csignal>
#include <initializer_list>

namespace {

std::atomic<EndRequest> firstRequest = EndRequest::none;
static_assert(std::atomic<EndRequest>::is_always_lock_free, "written by a signal handler");

void handleSignal(int) {
    requestEnd(EndRequest::close);
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

void requestEnd(EndRequest request) {
    EndRequest none = EndRequest::none;
    firstRequest.compare_exchange_strong(none, request);
}

EndRequest endRequest() {
    return firstRequest;
}

void forgetEndRequest() {
    firstRequest = EndRequest::none;
}
