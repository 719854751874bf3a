// SPDX-License-Identifier: GPL-3.0-or-later
// Waits for any key or joystick control and says which one it was. Called by the page of the controls and the
// display of codes. Assigns nothing.
#pragma once

#include <cstdint>
#include <functional>

struct CapturedControl {
    int code = 0; // as in the ini file; 0: none was pressed
    bool isJoystick = false;
};

// Waits at most `limit` milliseconds, while the page that is shown stays. For the Shift, Ctrl and Alt keys
// the code is that of the left or the right key. A control that was held before counts after its release.
// `everyPoll` is called with the milliseconds left; it may be null.
CapturedControl captureControl(bool withJoystick, std::int64_t limit,
                               const std::function<void(std::int64_t)>& everyPoll = nullptr);
