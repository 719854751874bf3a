#include "platform/clock/waiting.h"

#include "platform/clock/clock_source.h"

namespace {

bool (*keepAliveFunction)() = nullptr;

} // namespace

void setKeepAlive(bool (*function)()) {
    keepAliveFunction = function;
}

bool keepAlive() {
    return keepAliveFunction && keepAliveFunction();
}

bool waitAndKeepAlive(std::int64_t nanoseconds) {
    clockWait(nanoseconds);
    return keepAlive();
}
