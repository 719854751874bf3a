// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/virtual_clock.h"

#include "platform/clock/clock_source.h"

#include <map>
#include <utility>

namespace {

std::int64_t currentTime = 0;
std::multimap<std::int64_t, std::function<void()>> actions;

} // namespace

std::int64_t clockNow() {
    return currentTime;
}

void clockWait(std::int64_t nanoseconds) {
    const std::int64_t end = currentTime + (nanoseconds > 0 ? nanoseconds : 0);
    while (!actions.empty() && actions.begin()->first <= end) {
        auto node = actions.extract(actions.begin());
        currentTime = node.key() > currentTime ? node.key() : currentTime;
        node.mapped()();
    }
    currentTime = end > currentTime ? end : currentTime;
}

void virtualClockAt(std::int64_t milliseconds, std::function<void()> action) {
    actions.emplace(milliseconds * nanosecondsPerMillisecond, std::move(action));
}

std::int64_t virtualClockMilliseconds() {
    return currentTime / nanosecondsPerMillisecond;
}

void virtualClockAdvance(std::int64_t milliseconds) {
    currentTime += milliseconds * nanosecondsPerMillisecond;
}
