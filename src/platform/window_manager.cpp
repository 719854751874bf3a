#include "platform/window_manager.h"

#include "platform/x11_connection.h"

#include <X11/Xlib.h>

#include <memory>

namespace {

struct CloseDisplay {
    void operator()(Display* connection) const { XCloseDisplay(connection); }
};

} // namespace

bool windowManagerRuns() {
    const std::unique_ptr<Display, CloseDisplay> connection(XOpenDisplay(nullptr));
    if (!connection) {
        return false;
    }
    surviveErrors(connection.get());
    const Atom property = XInternAtom(connection.get(), "_NET_SUPPORTING_WM_CHECK", True);
    if (property == None) {
        return false;
    }
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* value = nullptr;
    const int result = XGetWindowProperty(connection.get(), DefaultRootWindow(connection.get()), property, 0,
                                          1, False, AnyPropertyType, &type, &format, &count, &rest, &value);
    if (value) {
        XFree(value);
    }
    return result == Success && count > 0;
}
