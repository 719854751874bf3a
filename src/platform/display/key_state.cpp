// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/display/key_state.h"

#include "platform/key_codes.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

struct KeyRecord {
    bool down = false;
    std::uint32_t press = 0; // number of the press that has not been taken; 0: none
};

std::array<KeyRecord, 255> keyRecords;

std::uint32_t pressCount = 0;

bool isKeyCode(int code) {
    return code > 0 && code < static_cast<int>(keyRecords.size());
}

KeyRecord& recordOf(int code) {
    return keyRecords[static_cast<std::size_t>(code)];
}

// The left and right codes of VK_SHIFT, VK_CONTROL and VK_MENU form consecutive pairs from VK_LSHIFT on.
int leftKeyOf(int commonCode) {
    return VK_LSHIFT + 2 * (commonCode - VK_SHIFT);
}

} // namespace

int commonKeyCode(int code) {
    return code >= VK_LSHIFT && code <= VK_RMENU ? VK_SHIFT + (code - VK_LSHIFT) / 2 : code;
}

void keyChanged(int code, bool down) {
    if (!isKeyCode(code)) {
        return;
    }
    recordOf(code).down = down;
    const int common = commonKeyCode(code);
    if (common != code) {
        const int left = leftKeyOf(common);
        recordOf(common).down = recordOf(left).down || recordOf(left + 1).down;
    }
    if (down) {
        ++pressCount;
        recordOf(code).press = pressCount;
        recordOf(common).press = pressCount;
    }
}

void allKeysUp() {
    for (KeyRecord& record : keyRecords) {
        record.down = false;
    }
}

bool keyIsDown(int code) {
    return isKeyCode(code) && recordOf(code).down;
}

bool anyKeyIsDown() {
    return std::ranges::any_of(keyRecords, &KeyRecord::down);
}

bool takeKeyPress(int code) {
    if (untakenPress(code) == 0) {
        return false;
    }
    recordOf(code).press = 0;
    return true;
}

std::uint32_t untakenPress(int code) {
    return isKeyCode(code) ? recordOf(code).press : 0;
}
