#include "platform/clock/fruitless_polls.h"

#include "platform/clock.h"
#include "platform/clock/clock_source.h"

namespace {

constexpr int longestRun = 32;

// Nanoseconds between two polls beyond which the loop has done something that no service notes.
constexpr std::int64_t longestGap = nanosecondsPerMillisecond / 2;

int run = 0;
std::int64_t lastPoll = 0; // its end, in nanoseconds

} // namespace

void pauseAfterFruitlessPolls() {
    run = clockNow() - lastPoll <= longestGap ? run + 1 : 1;
    if (run >= longestRun) {
        run = longestRun; // a run goes on across pauses
        Sleep(1);
    }
    lastPoll = clockNow();
}

void noteWorkBetweenPolls() {
    run = 0;
}
