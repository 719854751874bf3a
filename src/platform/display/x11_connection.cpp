// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/display/x11_connection.h"

#include <SDL.h>
#include <SDL_syswm.h>
#include <X11/Xlib.h>

#include <poll.h>

#include <ctime>
#include <utility>

namespace {

Display* watched = nullptr;
Window watchedWindow = None;
void (*reportLoss)() = nullptr;

void loseWindow() {
    watched = nullptr;
    watchedWindow = None;
    if (auto* const report = std::exchange(reportLoss, nullptr)) {
        report();
    }
}

// Replaces the handler of Xlib, which prints a line and would block on a full pipe.
int ignoreBrokenConnection(Display*) {
    return 0;
}

// Ignores request errors, such as those about a window that has just gone, which would end the process.
int handleRequestError(Display*, XErrorEvent* error) {
    const bool windowIsGone = error->error_code == BadWindow || error->error_code == BadDrawable;
    if (windowIsGone && watchedWindow != None && error->resourceid == watchedWindow) {
        loseWindow();
    }
    return 0;
}

} // namespace

void watchConnection(SDL_Window* window, void (*lost)()) {
    SDL_SysWMinfo info{};
    SDL_VERSION(&info.version);
    if (SDL_GetWindowWMInfo(window, &info) == SDL_FALSE || info.subsystem != SDL_SYSWM_X11) {
        return;
    }
    watched = info.info.x11.display;
    watchedWindow = info.info.x11.window;
    reportLoss = lost;
    XSetIOErrorHandler(ignoreBrokenConnection);
    XSetErrorHandler(handleRequestError);
    // Xlib's default handler calls exit, whose handlers then wait for a lock that the interrupted call holds.
    XSetIOErrorExitHandler(
        watched, [](Display*, void*) { loseWindow(); }, nullptr);
    SDL_EventState(SDL_SYSWMEVENT, SDL_ENABLE);
}

void checkForDestruction(const SDL_Event& event) {
    if (event.type != SDL_SYSWMEVENT || event.syswm.msg->subsystem != SDL_SYSWM_X11) {
        return;
    }
    const XEvent& message = event.syswm.msg->msg.x11.event;
    if (message.type == DestroyNotify && watchedWindow != None &&
        message.xdestroywindow.window == watchedWindow) {
        loseWindow();
    }
}

void waitForConnection(std::int64_t nanoseconds) {
    if (nanoseconds <= 0 || !watched || XEventsQueued(watched, QueuedAlready) > 0) {
        return;
    }
    constexpr std::int64_t perSecond = 1'000'000'000;
    const timespec limit = {static_cast<time_t>(nanoseconds / perSecond),
                            static_cast<long>(nanoseconds % perSecond)};
    pollfd connection = {ConnectionNumber(watched), POLLIN, 0};
    ppoll(&connection, 1, &limit, nullptr);
}

_XDisplay* watchedConnection() {
    return watched;
}
