// SPDX-License-Identifier: GPL-3.0-or-later
// In order: start of SDL's video and of the window, loss of the display, events and the unassigned keyboard
// focus, then the functions of the header: size and pixels, presenting, keeping alive, giving up and taking
// back, settings, exit.
#include "platform/display/display.h"

#include "platform/base/end_request.h"
#include "platform/clock/clock_source.h"
#include "platform/clock/waiting.h"
#include "platform/display/key_map.h"
#include "platform/display/key_state.h"
#include "platform/display/synthesised_keys.h"
#include "platform/display/temporary_variable.h"
#include "platform/display/video_mode.h"
#include "platform/display/window_manager.h"
#include "platform/display/x11_connection.h"

#include <SDL.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

// How often the event queue is polled. The controls are polled ten times a second, so the delay is not
// noticeable, and an idle front end stays far below 1% of a processor.
constexpr std::int64_t pumpInterval = 4 * nanosecondsPerMillisecond;

// How often a wait for input looks at devices that cannot wake it.
constexpr std::int64_t inputInterval = 5 * nanosecondsPerMillisecond;

// How long no key has been used when the program rests.
constexpr std::int64_t timeUntilRest = 1000 * nanosecondsPerMillisecond;

// How often the display checks whether the keyboard focus is unassigned.
constexpr std::int64_t focusInterval = 500 * nanosecondsPerMillisecond;

struct Display {
    bool failed = false; // no display is available; not tried again
    bool real = false;   // SDL's driver has a screen
    bool ownsConsole = false;
    bool shown = false;
    bool givenUp = false; // for a child, which has the focus or is about to take it
    bool mousePressed = false;
    bool lost = false; // for good: `window` is null, and SDL's video must not be called
    bool cursorShown = true;
    std::uint32_t inputCount = 0;
    SDL_Window* window = nullptr;
    int width = 0;
    int height = 0;
    int fixedWidth = 0;
    int fixedHeight = 0;
    std::int64_t lastPump = -pumpInterval;
    std::int64_t lastKeyEvent = 0;
    std::int64_t lastFocusCheck = 0;
    std::string title;
    std::vector<std::uint32_t> converted; // picture for a screen with another pixel format
    DisplayListener listener{};
};

Display display;

bool driverHasNoScreen(std::string_view driver) {
    constexpr std::array<std::string_view, 3> names = {"dummy", "offscreen", "evdev"};
    return std::find(names.begin(), names.end(), driver) != names.end();
}

bool isX11() {
    return std::string_view(SDL_GetCurrentVideoDriver()) == "x11";
}

void setHints() {
    // The window must not be minimised while a running game is in front of it.
    SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
}

bool initVideo() {
    setHints();
    // Without a session bus SDL's start would launch one, which takes longer than the rest of it and outlives
    // the program.
    std::optional<TemporaryVariable> noBusLaunch;
    if (!std::getenv("XDG_RUNTIME_DIR")) {
        noBusLaunch.emplace("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    }
    // X11's table of composed characters takes a tenth of the start to read, and no text is typed here.
    const TemporaryVariable noComposedCharacters("XCOMPOSEFILE", "/dev/null");
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        return false;
    }
    const std::string_view driver = SDL_GetCurrentVideoDriver();
    if (driverHasNoScreen(driver) && !std::getenv("SDL_VIDEODRIVER")) {
        SDL_QuitSubSystem(SDL_INIT_VIDEO); // SDL fell back to a driver without a screen
        return false;
    }
    display.real = !driverHasNoScreen(driver);
    display.ownsConsole = driver == "kmsdrm";
    if (isX11()) {
        // Shared memory is faster on X11 and needs far less memory.
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    }
    return true;
}

// Called inside a call to SDL, which continues afterwards. Before the first picture that is the call that
// shows the window, which would wait forever for the server's answer, so the process ends here. Later, every
// function checks the window.
void loseDisplay() {
    constexpr int failedStartCode = 1;
    if (!display.shown) {
        std::_Exit(failedStartCode);
    }
    display.lost = true;
    display.window = nullptr;
    requestEnd(EndRequest::displayLost);
}

bool openWindow() {
    SDL_DisplayMode mode{};
    SDL_Rect monitor{}; // display 0 is the primary one
    if (SDL_GetDesktopDisplayMode(0, &mode) != 0 || mode.w <= 0 || mode.h <= 0 ||
        SDL_GetDisplayBounds(0, &monitor) != 0) {
        return false;
    }
    const bool fixed = !display.real && display.fixedWidth > 0;
    display.width = fixed ? display.fixedWidth : mode.w;
    display.height = fixed ? display.fixedHeight : mode.h;
    const bool asksForFullScreen = display.real && (!isX11() || windowManagerRuns());
    const Uint32 fullScreen = asksForFullScreen ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0;
    display.window = SDL_CreateWindow(display.title.c_str(), monitor.x, monitor.y, display.width,
                                      display.height, SDL_WINDOW_HIDDEN | SDL_WINDOW_BORDERLESS | fullScreen);
    display.shown = false;
    if (!display.window) {
        return false;
    }
    watchConnection(display.window, loseDisplay);
    SDL_ShowCursor(display.cursorShown ? SDL_ENABLE : SDL_DISABLE);
    return display.window != nullptr;
}

bool startDisplay() {
    if (display.window) {
        return true;
    }
    setKeepAlive(displayKeepAlive);
    setInputWait(displayWaitForInput);
    if (display.failed || display.lost) {
        return false;
    }
    if (!initVideo()) {
        display.failed = true;
        return false;
    }
    if (!openWindow()) {
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
        display.failed = true;
        return false;
    }
    installCloseSignals();
    static const int registered = std::atexit(displayQuit);
    static_cast<void>(registered);
    return true;
}

bool hasOwnFormat(const SDL_Surface& surface) {
    return surface.format->format == SDL_PIXELFORMAT_RGB888 ||
           surface.format->format == SDL_PIXELFORMAT_ARGB8888;
}

void handleWindowEvent(const SDL_WindowEvent& event) {
    switch (event.event) {
    case SDL_WINDOWEVENT_FOCUS_GAINED:
    case SDL_WINDOWEVENT_FOCUS_LOST: {
        const bool focused = event.event == SDL_WINDOWEVENT_FOCUS_GAINED;
        if (!focused) {
            allKeysUp();
        }
        if (display.listener.focusChanged) {
            display.listener.focusChanged(focused);
        }
        break;
    }
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SIZE_CHANGED:
        if (display.listener.pictureLost) {
            display.listener.pictureLost();
        }
        break;
    case SDL_WINDOWEVENT_CLOSE:
        requestEnd(EndRequest::close);
        break;
    default:
        break;
    }
}

void handleKeyEvent(const SDL_KeyboardEvent& event) {
    const int code = virtualKeyOf(event.keysym);
    const bool down = event.type == SDL_KEYDOWN;
    display.lastKeyEvent = clockNow();
    if (code == 0) {
        return;
    }
    if (event.repeat == 0) {
        keyChanged(code, down);
        display.inputCount += down ? 1 : 0;
    }
    if (display.listener.keyChanged) {
        display.listener.keyChanged(code, down, event.repeat != 0);
    }
}

void handleEvent(const SDL_Event& event) {
    switch (event.type) {
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        handleKeyEvent(event.key);
        break;
    case SDL_WINDOWEVENT:
        handleWindowEvent(event.window);
        break;
    case SDL_JOYAXISMOTION:
    case SDL_JOYHATMOTION:
    case SDL_JOYBUTTONDOWN:
    case SDL_JOYBUTTONUP:
        ++display.inputCount;
        if (display.listener.joystickChanged) {
            display.listener.joystickChanged();
        }
        break;
    case SDL_MOUSEBUTTONDOWN:
        display.mousePressed = true;
        break;
    case SDL_QUIT:
        requestEnd(EndRequest::close);
        break;
    case SDL_SYSWMEVENT:
        checkForDestruction(event);
        break;
    default:
        break;
    }
}

void pumpEvents() {
    SDL_Event event{};
    while (display.window && SDL_PollEvent(&event) != 0) {
        handleEvent(event);
    }
    if (endRequested() && display.listener.endRequested) {
        display.listener.endRequested();
    }
}

// Returns at the first event of the X11 connection. Other displays and joysticks, which cannot be waited for,
// are looked at in short intervals.
void waitForEvents(std::int64_t nanoseconds) {
    const bool isPolled = !watchedConnection() || SDL_NumJoysticks() > 0;
    const std::int64_t wait = isPolled ? std::min(nanoseconds, inputInterval) : nanoseconds;
    if (watchedConnection()) {
        waitForConnection(wait);
    } else {
        clockWait(wait);
    }
}

// Without a window manager the focus is not reassigned when the window that had it is destroyed. A window
// that still exists keeps it.
void takeFreeFocus(std::int64_t now) {
    const bool hasFocus =
        !display.window || (SDL_GetWindowFlags(display.window) & SDL_WINDOW_INPUT_FOCUS) != 0;
    if (hasFocus || !display.shown || display.givenUp || now - display.lastFocusCheck < focusInterval ||
        !isX11()) {
        return;
    }
    display.lastFocusCheck = now;
    if (keyboardFocusIsFree()) {
        SDL_SetWindowInputFocus(display.window);
    }
}

bool isAtRest(std::int64_t now) {
    return watchedConnection() && SDL_NumJoysticks() == 0 && now - display.lastKeyEvent >= timeUntilRest &&
           !anyKeyIsDown();
}

void serveDisplay(std::int64_t now) {
    display.lastPump = now;
    pumpEvents();
    takeFreeFocus(now);
}

} // namespace

void displaySetListener(const DisplayListener& listener) {
    display.listener = listener;
}

bool displaySize(int& width, int& height) {
    const bool known = startDisplay() || display.lost;
    width = known ? display.width : 0;
    height = known ? display.height : 0;
    return known;
}

DisplayPixels displayPixels() {
    SDL_Surface* surface = startDisplay() ? SDL_GetWindowSurface(display.window) : nullptr;
    if (!surface) {
        return {};
    }
    if (hasOwnFormat(*surface)) {
        return {static_cast<std::uint32_t*>(surface->pixels), surface->w, surface->h, surface->pitch / 4};
    }
    display.converted.resize(static_cast<std::size_t>(surface->w) * static_cast<std::size_t>(surface->h));
    return {display.converted.data(), surface->w, surface->h, surface->w};
}

void displayPresent() {
    SDL_Surface* surface = display.window ? SDL_GetWindowSurface(display.window) : nullptr;
    if (!surface) {
        return;
    }
    if (!hasOwnFormat(*surface) && !display.converted.empty()) {
        SDL_ConvertPixels(surface->w, surface->h, SDL_PIXELFORMAT_RGB888, display.converted.data(),
                          surface->w * 4, surface->format->format, surface->pixels, surface->pitch);
    }
    if (!display.shown) {
        SDL_ShowWindow(display.window);
        SDL_RaiseWindow(display.window);
        display.shown = true;
    }
    SDL_UpdateWindowSurface(display.window);
}

void displayPresentPart(int left, int top, int width, int height) {
    SDL_Surface* surface = display.window ? SDL_GetWindowSurface(display.window) : nullptr;
    if (!surface || !display.shown || !hasOwnFormat(*surface)) {
        displayPresent();
        return;
    }
    const SDL_Rect part = {left, top, width, height};
    SDL_UpdateWindowSurfaceRects(display.window, &part, 1);
}

bool displayIsReal() {
    return startDisplay() && display.real;
}

Pace displayKeepAlive() {
    // Events are handled without a window too: a signal must reach a child that owns the console.
    const std::int64_t now = clockNow();
    if (now - display.lastPump >= pumpInterval) {
        serveDisplay(now);
    }
    const bool moving = display.window && display.listener.refresh && display.listener.refresh();
    return moving ? Pace::moving : isAtRest(now) ? Pace::resting : Pace::waiting;
}

bool displayWaitForInput(std::int64_t nanoseconds) {
    const std::int64_t end = clockNow() + nanoseconds;
    const std::uint32_t before = display.inputCount;
    const auto isOver = [before] {
        return display.inputCount != before || (display.listener.hasMessage && display.listener.hasMessage());
    };
    while (!isOver()) {
        if (clockNow() >= end || endRequested()) {
            return false;
        }
        waitForEvents(end - clockNow());
        serveDisplay(clockNow());
    }
    return true;
}

std::uint32_t displayInputCount() {
    return display.inputCount;
}

void displayGiveUp() {
    display.givenUp = true;
    noteVideoMode();
    if (display.window && display.ownsConsole) {
        SDL_DestroyWindow(display.window);
        display.window = nullptr;
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
    }
}

void displayTakeBack() {
    display.givenUp = false;
    if (display.ownsConsole && !display.window && !startDisplay()) {
        return;
    }
    if (!display.window) {
        return;
    }
    pumpEvents();
    restoreVideoMode();
    SDL_RaiseWindow(display.window);
    SDL_SetWindowInputFocus(display.window);
    if (display.listener.pictureLost) {
        display.listener.pictureLost();
    }
    if (display.listener.refresh) {
        display.listener.refresh();
    }
}

bool displayIsLost() {
    return display.lost;
}

bool displayMousePressed() {
    return std::exchange(display.mousePressed, false);
}

void displaySendKey(std::uint32_t keySymbol, bool down) {
    if (display.window && keySymbol != 0 && isX11()) {
        sendKeyToFocus(keySymbol, down);
    }
}

void displayShowCursor(bool shown) {
    display.cursorShown = shown;
    if (display.window) {
        SDL_ShowCursor(shown ? SDL_ENABLE : SDL_DISABLE);
    }
}

void displayAllowScreenSaver(bool allowed) {
    if (!display.window) {
        return;
    }
    if (allowed) {
        SDL_EnableScreenSaver();
    } else {
        SDL_DisableScreenSaver();
    }
}

void displaySetTitle(const char* title) {
    display.title = title;
    if (display.window) {
        SDL_SetWindowTitle(display.window, title);
    }
}

void displaySetSize(int width, int height) {
    display.fixedWidth = width;
    display.fixedHeight = height;
    if (display.window && !display.real) {
        display.width = width;
        display.height = height;
        SDL_SetWindowSize(display.window, width, height);
    }
}

void displayQuit() {
    // An X11 server destroys the window when the connection ends. SDL would wait for its answer, forever if
    // the server ends at that moment.
    if (display.lost || (display.window && isX11())) {
        return;
    }
    if (display.window) {
        SDL_DestroyWindow(display.window);
        display.window = nullptr;
    }
    // The thread of the sound may still be closing its device on a slow server; two threads that close the
    // same device deadlock.
    if (SDL_WasInit(SDL_INIT_AUDIO) == 0) {
        SDL_Quit();
    } else {
        SDL_QuitSubSystem(SDL_INIT_VIDEO | SDL_INIT_JOYSTICK);
    }
}
