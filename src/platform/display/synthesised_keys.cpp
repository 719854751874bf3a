// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/display/synthesised_keys.h"

#include "platform/display/x11_connection.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

void sendKeyToFocus(std::uint32_t keySymbol, bool down) {
    Display* connection = watchedConnection();
    int unused = 0;
    if (!connection || !XTestQueryExtension(connection, &unused, &unused, &unused, &unused)) {
        return;
    }
    const KeyCode key = XKeysymToKeycode(connection, keySymbol);
    if (key != 0) {
        XTestFakeKeyEvent(connection, key, down ? True : False, CurrentTime);
        XSync(connection, False);
    }
}
