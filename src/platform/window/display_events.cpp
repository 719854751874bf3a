#include "platform/window/display_events.h"

#include "platform/display/display.h"
#include "platform/messages.h"
#include "platform/window/compositor.h"
#include "platform/window/focus.h"
#include "platform/window/message_queue.h"
#include "platform/window/window_record.h"

namespace {

// WM_ENDSESSION at once, since what holds the program up may outlast the patience of whoever asked.
void announceEnd() {
    static HWND announced = nullptr;
    const HWND main = mainWindowOfProgram();
    if (main && main != announced) {
        announced = main;
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
    displaySetListener(
        {queueKey, queueJoystick, setDisplayFocus, noteScreenChange, announceEnd, refreshScreen});
    if (!displayIsReal()) {
        setDisplayFocus(true); // a display without a screen never tells
    }
}
