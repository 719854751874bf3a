// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/display_events.h"

#include "platform/display/display.h"
#include "platform/messages.h"
#include "platform/window/compositor.h"
#include "platform/window/focus.h"
#include "platform/window/message_queue.h"
#include "platform/window/window_record.h"

namespace {

// Sends WM_ENDSESSION immediately instead of queueing it: whatever blocks the program may take longer than
// the sender of the request waits before it kills the process.
void sendEndSession() {
    static HWND notified = nullptr;
    const HWND main = mainWindowOfProgram();
    if (main && main != notified) {
        notified = main;
        sendMessage(main, WM_ENDSESSION, TRUE, 0);
    }
}

} // namespace

void connectDisplay() {
    static bool connected = false;
    if (connected) {
        return;
    }
    connected = true;
    displaySetListener({queueKey, queueJoystick, setDisplayFocus, noteScreenChange, sendEndSession,
                        [] { return nextMessage(false).has_value(); }, refreshScreen});
    if (!displayIsReal()) {
        setDisplayFocus(true); // without a screen there are no focus events
    }
}
