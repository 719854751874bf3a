// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/display/window_manager.h"

#include "platform/display/x11_connection.h"

#include <X11/Xlib.h>

#include <memory>

namespace {

struct CloseDisplay {
    void operator()(Display* connection) const { XCloseDisplay(connection); }
};

bool windowManagerRuns(Display* connection) {
    const Atom property = XInternAtom(connection, "_NET_SUPPORTING_WM_CHECK", True);
    if (property == None) {
        return false;
    }
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long bytesAfter = 0;
    unsigned char* value = nullptr;
    const int result = XGetWindowProperty(connection, DefaultRootWindow(connection), property, 0, 1, False,
                                          AnyPropertyType, &type, &format, &count, &bytesAfter, &value);
    if (value) {
        XFree(value);
    }
    return result == Success && count > 0;
}

bool isViewable(Display* connection, Window window) {
    XWindowAttributes attributes{};
    const Status known = XGetWindowAttributes(connection, window, &attributes);
    return known != 0 && attributes.map_state == IsViewable;
}

} // namespace

bool windowManagerRuns() {
    const std::unique_ptr<Display, CloseDisplay> connection(XOpenDisplay(nullptr));
    return connection && windowManagerRuns(connection.get());
}

bool keyboardFocusIsFree() {
    Display* connection = watchedConnection();
    if (!connection || windowManagerRuns(connection)) {
        return false;
    }
    Window focus = None;
    int unused = 0;
    XGetInputFocus(connection, &focus, &unused);
    return watchedConnection() && (focus == None || focus == PointerRoot ||
                                   focus == DefaultRootWindow(connection) || !isViewable(connection, focus));
}
