// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/clock/waiting.h"

#include "platform/base/heap.h"
#include "platform/clock/clock_source.h"

namespace {

Pace (*keepAliveFunction)() = nullptr;
bool (*inputWaitFunction)(std::int64_t) = nullptr;

} // namespace

void setKeepAlive(Pace (*function)()) {
    keepAliveFunction = function;
}

void setInputWait(bool (*function)(std::int64_t nanoseconds)) {
    inputWaitFunction = function;
}

bool waitForInput(std::int64_t nanoseconds) {
    if (inputWaitFunction) {
        return inputWaitFunction(nanoseconds);
    }
    clockWait(nanoseconds);
    return false;
}

Pace keepAlive() {
    returnFreeMemoryAtRest(clockNow());
    return keepAliveFunction ? keepAliveFunction() : Pace::waiting;
}

Pace waitAndKeepAlive(std::int64_t nanoseconds) {
    clockWait(nanoseconds);
    return keepAlive();
}
