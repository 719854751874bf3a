// A virtual X display with a keyboard: starts the server, presses keys as a person would, looks at the
// picture and at the focus. Used by the tour and the end-to-end tests. It has no window manager, like a
// cabinet, and ends with this process, however that ends. It knows nothing of the programs that run on it.
#pragma once

#include "child_program.h"
#include "screenshot.h"

#include <functional>
#include <memory>
#include <string>

class VirtualScreen {
public:
    // Null, with a line in `problem`, when there is no server or it does not come up.
    static std::unique_ptr<VirtualScreen> start(int width, int height, std::string& problem);
    ~VirtualScreen();

    // "DISPLAY=..." for the programs that are to run on it.
    std::string environment() const { return "DISPLAY=" + name; }

    // Keys by their X names: "Down", "Escape", "1", "z", "Alt_L". False for a name that the keyboard lacks.
    bool press(const char* key);
    bool release(const char* key);
    // Pressed and up again after that time.
    bool tap(const char* key, int heldMilliseconds = 40);

    Screenshot capture();
    Screenshot capture(const PixelArea& area); // which must lie on the screen

    // Looks at the picture again and again until it satisfies the condition; false when the time is over.
    bool waitFor(const std::function<bool(const Screenshot&)>& condition, int limitMilliseconds);
    // Until two pictures that far apart are the same; gives the last one.
    Screenshot settled(int stillMilliseconds = 250, int limitMilliseconds = 3000);

    // Title and process of the window with the keyboard focus; empty and 0 for none.
    std::string focusedTitle();
    pid_t focusedProcess();
    bool waitForFocus(const std::string& title, int limitMilliseconds);

private:
    VirtualScreen() = default;
    bool sendKey(const char* key, bool down);
    unsigned long focusedWindow();

    std::unique_ptr<ChildProgram> server;
    std::string name;
    void* connection = nullptr; // an X Display
};
