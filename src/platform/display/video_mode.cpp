// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/display/video_mode.h"

#include "platform/display/x11_connection.h"

#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace {

struct FreeResources {
    void operator()(XRRScreenResources* resources) const { XRRFreeScreenResources(resources); }
};
using Resources = std::unique_ptr<XRRScreenResources, FreeResources>;

// What one controller of the graphics card shows.
struct ShownMode {
    RRCrtc controller = None;
    int x = 0;
    int y = 0;
    RRMode mode = None; // None: off
    Rotation rotation = RR_Rotate_0;
    std::vector<RROutput> outputs;
    bool operator==(const ShownMode&) const = default;
};

struct ScreenState {
    unsigned width = 0; // pixels
    unsigned height = 0;
    std::vector<ShownMode> modes;
    bool operator==(const ScreenState&) const = default;
};

std::optional<ScreenState> noted;

Resources resourcesOf(Display* connection) {
    int unused = 0;
    const bool present = connection && XRRQueryExtension(connection, &unused, &unused) != False;
    return Resources(present ? XRRGetScreenResourcesCurrent(connection, DefaultRootWindow(connection))
                             : nullptr);
}

// Returns nothing when the server does not answer.
std::optional<ScreenState> readScreen(Display* connection, const Resources& resources) {
    ScreenState screen;
    // Asks the server: Xlib's own values are those of the start.
    Window root = None;
    int place = 0;
    unsigned unused = 0;
    if (!resources || XGetGeometry(connection, DefaultRootWindow(connection), &root, &place, &place,
                                   &screen.width, &screen.height, &unused, &unused) == 0) {
        return std::nullopt;
    }
    for (int i = 0; i < resources->ncrtc; ++i) {
        const RRCrtc controller = resources->crtcs[i];
        XRRCrtcInfo* const info = XRRGetCrtcInfo(connection, resources.get(), controller);
        if (!info) {
            return std::nullopt;
        }
        screen.modes.push_back({controller, info->x, info->y, info->mode, info->rotation,
                                std::vector(info->outputs, info->outputs + info->noutput)});
        XRRFreeCrtcInfo(info);
    }
    return screen;
}

void show(Display* connection, const Resources& resources, ShownMode mode) {
    XRRSetCrtcConfig(connection, resources.get(), mode.controller, CurrentTime, mode.x, mode.y, mode.mode,
                     mode.rotation, mode.outputs.data(), static_cast<int>(mode.outputs.size()));
}

} // namespace

void noteVideoMode() {
    noted = readScreen(watchedConnection(), resourcesOf(watchedConnection()));
}

void restoreVideoMode() {
    Display* const connection = watchedConnection();
    const Resources resources = noted ? resourcesOf(connection) : nullptr;
    const std::optional<ScreenState> found = readScreen(connection, resources);
    if (!found || found == noted) {
        return;
    }
    // The size of the screen must cover what is shown, so that what differs is off meanwhile.
    XGrabServer(connection);
    for (const ShownMode& mode : found->modes) {
        if (std::ranges::find(noted->modes, mode) == noted->modes.end() && mode.mode != None) {
            show(connection, resources, {mode.controller, 0, 0, None, RR_Rotate_0, {}});
        }
    }
    const int number = DefaultScreen(connection);
    XRRSetScreenSize(connection, RootWindow(connection, number), static_cast<int>(noted->width),
                     static_cast<int>(noted->height), DisplayWidthMM(connection, number),
                     DisplayHeightMM(connection, number));
    for (const ShownMode& mode : noted->modes) {
        if (std::ranges::find(found->modes, mode) == found->modes.end() && mode.mode != None) {
            show(connection, resources, mode);
        }
    }
    XUngrabServer(connection);
    XSync(connection, False);
}
