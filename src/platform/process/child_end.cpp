// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/process/child_end.h"

#include "platform/base/end_request.h"
#include "platform/display/display.h"

#include <sys/prctl.h>
#include <sys/wait.h>

#include <csignal>
#include <span>

namespace {

using namespace std::chrono_literals;

struct Step {
    std::chrono::milliseconds after;
    int signal;
};

constexpr Step closePlan[] = {{0ms, SIGTERM}, {2000ms, SIGHUP}, {4000ms, SIGKILL}};

// A child that draws has lost the display too and may end by itself in the first 500 ms.
constexpr Step displayLostPlan[] = {{500ms, SIGHUP}, {1500ms, SIGKILL}};

// How long the kernel may take to end a killed process.
constexpr auto killTimeout = 300ms;

std::span<const Step> planFor(bool displayLost) {
    return displayLost ? std::span<const Step>(displayLostPlan) : std::span<const Step>(closePlan);
}

} // namespace

void ChildEnd::start(bool displayLost) {
    started_ = true;
    // Orphans of the child become children of this process, which can then reap them.
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    displayLost_ = displayLost;
    sent_ = 0;
    start_ = Clock::now();
}

void ChildEnd::send(int signal) const {
    kill(-group_, signal);
    kill(-group_, SIGCONT); // a stopped process would not handle the signal
}

void ChildEnd::poll(bool childHasEnded) {
    if (!endRequested()) {
        return;
    }
    if (!started_ || (displayIsLost() && !displayLost_)) {
        start(displayIsLost());
    }
    const std::span<const Step> plan = planFor(displayLost_);
    while (sent_ < plan.size() && Clock::now() - start_ >= plan[sent_].after) {
        send(plan[sent_++].signal);
    }
    while (childHasEnded && waitpid(-group_, nullptr, WNOHANG) > 0) {
    }
}

bool ChildEnd::isOver() const {
    if (kill(-group_, 0) != 0) {
        return true;
    }
    const std::span<const Step> plan = planFor(displayLost_);
    return started_ && sent_ == plan.size() && Clock::now() - start_ >= plan.back().after + killTimeout;
}
