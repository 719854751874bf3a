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

TickClock::TickClock(HWND boxOwner) {
    LARGE_INTEGER frequency{};
    if (!QueryPerformanceFrequency(&frequency)) {
        showError(boxOwner, "Hardware doesn't support QueryPerformanceFrequency()!");
        return;
    }
    period_ = frequency.QuadPart / ticksPerSecond;
    lastTick_ = counterNow();
}

bool TickClock::isDue() const {
    return counterNow() - lastTick_ >= period_;
}

void TickClock::restart() {
    lastTick_ = counterNow();
}
