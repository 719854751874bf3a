#include "input/mapped_controls.h"

#include "input/controls.h"

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
        controls.player1[index] = keyPressed(settings.*control.key) || joyPressed(settings.*control.joystick);
    }
    for (std::size_t index = 0; index < table.size(); ++index) {
        controls.player2[index] = keyPressed(settings.*table[index].player2Key) != 0;
    }
    return controls;
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
