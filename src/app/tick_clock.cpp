// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tick_clock.h"

#include "app/error_box.h"
#include "platform/clock.h"

namespace {

constexpr std::int64_t ticksPerSecond = 10;

std::int64_t counterNow() {
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

} // namespace

CurrentTick currentTick;

bool (*earlyTickWanted)() = nullptr;
void (*workBetweenTicks)() = nullptr;

TickClock::TickClock(HWND boxOwner) {
    LARGE_INTEGER frequency{};
    if (!QueryPerformanceFrequency(&frequency)) {
        showError(boxOwner, "Hardware doesn't support QueryPerformanceFrequency()!");
        return;
    }
    period_ = frequency.QuadPart / ticksPerSecond;
    lastTick_ = counterNow();
}

bool TickClock::isDue() {
    const std::int64_t now = counterNow();
    const std::int64_t due = lastTick_ + period_;
    if (now >= due) {
        currentTick = {due, period_, false};
        return true;
    }
    if (!earlyTickWanted || !earlyTickWanted()) {
        if (workBetweenTicks) {
            workBetweenTicks();
        }
        return false;
    }
    lastTick_ = now - period_;
    currentTick = {now, period_, true};
    return true;
}

void TickClock::restart() {
    lastTick_ = counterNow();
}
