#include "platform/synthesised_keys.h"

#include "platform/x11_connection.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

#include <memory>

namespace {

struct CloseDisplay {
    void operator()(Display* connection) const { XCloseDisplay(connection); }
};

} // namespace

void sendKeyToFocus(std::uint32_t keySymbol, bool down) {
    // A connection for the moment: it is used twice a game, and nothing of it must be inherited or time out
    // meanwhile.
    const std::unique_ptr<Display, CloseDisplay> connection(XOpenDisplay(nullptr));
    if (!connection) {
        return;
    }
    surviveErrors(connection.get());
    int unused = 0;
    if (!XTestQueryExtension(connection.get(), &unused, &unused, &unused, &unused)) {
        return;
    }
    const KeyCode key = XKeysymToKeycode(connection.get(), keySymbol);
    if (key != 0) {
        XTestFakeKeyEvent(connection.get(), key, down ? True : False, CurrentTime);
        XSync(connection.get(), False);
    }
}
