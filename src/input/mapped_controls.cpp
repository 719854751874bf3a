// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/mapped_controls.h"

#include "input/controls.h"
#include "input/press_tracker.h"

#include <algorithm>

namespace {

bool isAnySet(const std::array<bool, maxMappedControls>& flags) {
    return std::ranges::find(flags, true) != flags.end();
}

std::int32_t upsideDown(std::int32_t rotation) {
    switch (rotation) {
    case 90:
        return -90;
    case -90:
        return 90;
    case 180:
        return 0;
    default:
        return 180;
    }
}

} // namespace

PolledControls pollControls(std::span<const MappedControl> table) {
    PolledControls controls;
    for (std::size_t index = 0; index < table.size(); ++index) {
        const MappedControl& control = table[index];
        const KeyReading key = readKey(settings.*control.key);
        const bool joystick = !key.active && joyPressed(settings.*control.joystick) != 0;
        controls.player1[index] = filterReading({control.key, control.joystick, key, joystick});
    }
    for (std::size_t index = 0; index < table.size(); ++index) {
        const auto key = table[index].player2Key;
        controls.player2[index] = filterReading({key, nullptr, readKey(settings.*key), false});
    }
    return controls;
}

bool isPressed(const SharedControl& control) {
    const std::int32_t keyCode = settings.*control.key;
    const std::int32_t joystickCode = settings.*control.joystick;
    const KeyReading key = keyCode != 0 ? readKey(keyCode) : KeyReading{};
    const bool joystick = !key.active && joystickCode != 0 && joyPressed(joystickCode) != 0;
    return filterReading({control.key, control.joystick, key, joystick});
}

bool turnToPlayer(const PolledControls& controls) {
    if (!settings.invertPlayer2Screen) {
        return false;
    }
    std::int32_t wanted = settings.orientation;
    if (isAnySet(controls.player1)) {
        wanted = settings.baseOrientation;
    } else if (isAnySet(controls.player2)) {
        wanted = upsideDown(settings.baseOrientation);
    }
    const bool changed = wanted != settings.orientation;
    settings.orientation = wanted;
    return changed;
}
