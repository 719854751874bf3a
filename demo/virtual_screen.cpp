// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual_screen.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace std::chrono;

constexpr int serverStartMilliseconds = 10000;
constexpr milliseconds pollInterval{15};

Display* displayOf(void* connection) {
    return static_cast<Display*>(connection);
}

// A window may be destroyed while it is queried; Xlib's default handler would end the process for that.
int ignoreError(Display*, XErrorEvent*) {
    return 0;
}

// When the server is ready it writes the number of its display and a newline.
std::string readDisplayNumber(int descriptor) {
    std::string number;
    auto limit = steady_clock::now() + milliseconds(serverStartMilliseconds);
    while (steady_clock::now() < limit) {
        pollfd waiting{descriptor, POLLIN, 0};
        char letter = 0;
        if (poll(&waiting, 1, 100) <= 0) {
            continue;
        }
        if (read(descriptor, &letter, 1) != 1) {
            break;
        }
        if (letter == '\n') {
            return number;
        }
        number += letter;
    }
    return "";
}

} // namespace

std::unique_ptr<VirtualScreen> VirtualScreen::start(int width, int height, std::string& problem) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        problem = "no pipe can be made";
        return nullptr;
    }
    std::string size = std::to_string(width) + "x" + std::to_string(height) + "x24";
    ChildOptions options;
    options.words = {"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", size, "-nolisten",
                     "tcp",  "-noreset"};
    options.outputPath = "/dev/null";
    options.passedDescriptor = ends[1];
    std::unique_ptr<VirtualScreen> screen(new VirtualScreen);
    screen->server_ = std::make_unique<ChildProgram>(options);
    close(ends[1]);
    std::string number = readDisplayNumber(ends[0]);
    close(ends[0]);
    screen->name_ = ":" + number;
    if (!number.empty()) {
        screen->connection_ = XOpenDisplay(screen->name_.c_str());
    }
    if (!screen->connection_) {
        problem = "the virtual display (Xvfb) did not start";
        return nullptr;
    }
    XSetErrorHandler(ignoreError);
    return screen;
}

VirtualScreen::~VirtualScreen() {
    if (connection_) {
        XCloseDisplay(displayOf(connection_));
    }
}

bool VirtualScreen::sendKey(const char* key, bool down) {
    Display* display = displayOf(connection_);
    KeyCode code = XKeysymToKeycode(display, XStringToKeysym(key));
    if (code == 0) {
        return false;
    }
    XTestFakeKeyEvent(display, code, down ? True : False, CurrentTime);
    XSync(display, False);
    return true;
}

bool VirtualScreen::press(const char* key) {
    return sendKey(key, true);
}

bool VirtualScreen::release(const char* key) {
    return sendKey(key, false);
}

bool VirtualScreen::tap(const char* key, int heldMilliseconds) {
    bool pressed = press(key);
    std::this_thread::sleep_for(milliseconds(heldMilliseconds));
    return release(key) && pressed;
}

Screenshot VirtualScreen::capture() {
    Display* display = displayOf(connection_);
    int screen = DefaultScreen(display);
    return capture({0, 0, DisplayWidth(display, screen), DisplayHeight(display, screen)});
}

Screenshot VirtualScreen::capture(const PixelArea& area) {
    Display* display = displayOf(connection_);
    Screenshot shot;
    int width = area.right - area.left;
    int height = area.bottom - area.top;
    XImage* image =
        XGetImage(display, DefaultRootWindow(display), area.left, area.top, static_cast<unsigned>(width),
                  static_cast<unsigned>(height), AllPlanes, ZPixmap);
    if (!image) {
        return shot;
    }
    shot.width = width;
    shot.height = height;
    shot.pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        const auto* row = static_cast<const std::uint32_t*>(
            static_cast<const void*>(image->data + static_cast<std::ptrdiff_t>(y) * image->bytes_per_line));
        std::transform(row, row + width, shot.pixels.begin() + static_cast<std::ptrdiff_t>(y) * width,
                       [](std::uint32_t pixel) { return pixel & 0xFFFFFFu; });
    }
    XDestroyImage(image);
    return shot;
}

bool VirtualScreen::waitFor(const std::function<bool(const Screenshot&)>& condition, int limitMilliseconds) {
    auto limit = steady_clock::now() + milliseconds(limitMilliseconds);
    while (!condition(capture())) {
        if (steady_clock::now() >= limit) {
            return false;
        }
        std::this_thread::sleep_for(pollInterval);
    }
    return true;
}

Screenshot VirtualScreen::settled(int stillMilliseconds, int limitMilliseconds) {
    auto limit = steady_clock::now() + milliseconds(limitMilliseconds);
    Screenshot earlier = capture();
    while (true) {
        std::this_thread::sleep_for(milliseconds(stillMilliseconds));
        Screenshot later = capture();
        if (later == earlier || steady_clock::now() >= limit) {
            return later;
        }
        earlier = std::move(later);
    }
}

unsigned long VirtualScreen::focusedWindow() {
    Window focus = None;
    int revert = 0;
    XGetInputFocus(displayOf(connection_), &focus, &revert);
    return focus == PointerRoot ? static_cast<Window>(None) : focus;
}

std::string VirtualScreen::focusedTitle() {
    XTextProperty property{};
    Window window = focusedWindow();
    if (window == None || XGetWMName(displayOf(connection_), window, &property) == 0 || !property.value) {
        return "";
    }
    std::string title(static_cast<const char*>(static_cast<const void*>(property.value)), property.nitems);
    XFree(property.value);
    return title;
}

pid_t VirtualScreen::focusedProcess() {
    Display* display = displayOf(connection_);
    Atom type = None;
    int format = 0;
    unsigned long items = 0;
    unsigned long left = 0;
    unsigned char* value = nullptr;
    Window window = focusedWindow();
    if (window == None ||
        XGetWindowProperty(display, window, XInternAtom(display, "_NET_WM_PID", False), 0, 1, False,
                           AnyPropertyType, &type, &format, &items, &left, &value) != Success) {
        return 0;
    }
    // Xlib returns a 32-bit property as an array of long.
    pid_t process = value && items == 1 && format == 32
                        ? static_cast<pid_t>(*static_cast<const long*>(static_cast<const void*>(value)))
                        : 0;
    if (value) {
        XFree(value);
    }
    return process;
}

bool VirtualScreen::waitForFocus(const std::string& title, int limitMilliseconds) {
    auto limit = steady_clock::now() + milliseconds(limitMilliseconds);
    while (focusedTitle() != title) {
        if (steady_clock::now() >= limit) {
            return false;
        }
        std::this_thread::sleep_for(pollInterval);
    }
    return true;
}
