// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/joystick_hotplug.h"

#include "app/stopwatch.h"
#include "config/settings.h"
#include "input/controls.h"

namespace {

// A second holds two searches.
constexpr std::int64_t searchPeriod = millisecondsPerSecond / 2;

Stopwatch sinceSearch;

// A lost joystick is forgotten at once, so that its error is reported only once.
void searchJoystick(bool lost) {
    if (lost || sinceSearch.milliseconds() >= searchPeriod) {
        sinceSearch.restart();
        initJoystick();
    }
}

} // namespace

void startJoystickHotplug() {
    joystickMissing = settings.joystickHotplug != 0 ? searchJoystick : nullptr;
}
