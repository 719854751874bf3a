// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/instant_response.h"

#include "app/tick_clock.h"
#include "config/settings.h"
#include "input/press_tracker.h"
#include "platform/clock.h"

#include <algorithm>
#include <vector>

namespace {

struct HeldControl {
    std::int32_t Settings::*key;
    std::int64_t nextAction; // when it may act in an early tick; in counts of the performance counter
};

// Of all controls that have acted.
std::vector<HeldControl> heldControls;

HeldControl& recordOf(std::int32_t Settings::*key) {
    const auto found = std::ranges::find(heldControls, key, &HeldControl::key);
    return found != heldControls.end() ? *found : heldControls.emplace_back(HeldControl{key, 0});
}

// In an early tick, which another control may have caused, a held control acts only if it has waited for a
// period. Otherwise many early ticks, each of which puts off the next regular one, would stop it.
bool mayAct(const ActiveControl& control) {
    HeldControl& held = recordOf(control.key);
    if (control.isNew) {
        held.nextAction = currentTick.time + currentTick.period;
        return true;
    }
    if (currentTick.isEarly && currentTick.time < held.nextAction) {
        return false;
    }
    held.nextAction = std::max(held.nextAction + currentTick.period, currentTick.time);
    return true;
}

} // namespace

void startInstantResponse() {
    const bool isOn = settings.instantResponse != 0;
    useControlFilter(mayAct, isOn);
    earlyTickWanted = isOn ? findUnreadPress : nullptr;
    setSleepWakesOnInput(isOn);
}
