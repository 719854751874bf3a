// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/press_tracker.h"

#include "app/stopwatch.h"
#include "app/window_state.h"
#include "platform/keys.h"

#include <algorithm>
#include <vector>

namespace {

struct TrackedControl {
    std::int32_t Settings::*key;
    std::int32_t Settings::*joystick; // null: none
    bool active = false;              // when last polled; false again after a release
    bool byKey = false;               // which of the two was active
    bool pushed = false;              // the joystick code at the latest look
    Stopwatch sincePoll{};
};

// In the order of their first poll.
std::vector<TrackedControl> tracked;

std::vector<ControlFilter> filters;

std::uint32_t lastInput = 0; // inputCount at the latest look
std::uint32_t lastPress = 0; // number of the last key press that a look has found

TrackedControl& recordOf(std::int32_t Settings::*key, std::int32_t Settings::*joystick) {
    const auto found =
        std::ranges::find_if(tracked, [key](const TrackedControl& control) { return control.key == key; });
    return found != tracked.end() ? *found : tracked.emplace_back(TrackedControl{key, joystick});
}

// The press of a flushed key is over, or a later one whose record was discarded has begun.
void endPressesOf(int code) {
    for (TrackedControl& control : tracked) {
        if (control.byKey && settings.*control.key == code) {
            control.active = false;
        }
    }
}

bool findUnreadKeyPress() {
    std::uint32_t newest = lastPress;
    for (const TrackedControl& control : tracked) {
        newest = std::max(newest, unreadKeyPress(settings.*control.key));
    }
    const bool found = newest != lastPress;
    lastPress = newest;
    return found;
}

// Also notices releases: a joystick has no record of presses between two polls.
bool findJoystickPress() {
    const std::optional<JOYINFO> info = readJoystick();
    bool found = false;
    for (TrackedControl& control : tracked) {
        const bool pushed =
            info && control.joystick && isJoystickCodeActive(settings.*control.joystick, *info);
        found = found || (pushed && !control.pushed && !control.active);
        control.pushed = pushed;
        if (!pushed && !control.byKey) {
            control.active = false;
        }
    }
    return found;
}

} // namespace

void useControlFilter(ControlFilter filter, bool used) {
    std::erase(filters, filter);
    if (used) {
        filters.push_back(filter);
    }
    tracked.clear();
    keyFlushed = filters.empty() ? nullptr : endPressesOf;
}

bool filterReading(const ControlReading& reading) {
    const bool active = reading.keyReading.active || reading.joystickActive;
    if (filters.empty()) {
        return active;
    }
    TrackedControl& control = recordOf(reading.key, reading.joystick);
    const bool wasHeld = control.active && control.sincePoll.milliseconds() < millisecondsPerSecond;
    control.active = active;
    control.byKey = reading.keyReading.active;
    control.sincePoll.restart();
    if (!active) {
        return false;
    }
    const ActiveControl found = {reading.key, reading.keyReading.pressed || !wasHeld};
    bool acts = true;
    for (const ControlFilter filter : filters) {
        acts = filter(found) && acts; // each filter sees every control
    }
    return acts;
}

bool findUnreadPress() {
    const std::uint32_t input = inputCount();
    if (input == lastInput) {
        return false;
    }
    lastInput = input;
    const bool key = appActive && findUnreadKeyPress();
    return findJoystickPress() || key;
}
