// SPDX-License-Identifier: GPL-3.0-or-later
// A virtual X display with a keyboard: starts the server (Xvfb), sends key events, captures the screen and
// reads the focus. Used by the tour, the end-to-end tests and front_end_bench. Like a cabinet, it has no
// window manager. The server ends with this process, even when this process is killed.
#pragma once

#include "child_program.h"
#include "screenshot.h"

#include <functional>
#include <memory>
#include <string>

class VirtualScreen {
public:
    // Null, with a message in `problem`, if the server is not installed or does not start.
    static std::unique_ptr<VirtualScreen> start(int width, int height, std::string& problem);
    ~VirtualScreen();

    // "DISPLAY=..." for the environment of programs that run on it.
    std::string environment() const { return "DISPLAY=" + name_; }

    // Keys by their X keysym names: "Down", "Escape", "1", "z", "Alt_L". False for a name that the keyboard
    // lacks.
    bool press(const char* key);
    bool release(const char* key);
    // Presses the key and releases it after that time.
    bool tap(const char* key, int heldMilliseconds = 40);

    Screenshot capture();
    Screenshot capture(const PixelArea& area); // must be within the screen

    // Captures the screen repeatedly until the condition holds; false on timeout.
    bool waitFor(const std::function<bool(const Screenshot&)>& condition, int limitMilliseconds);
    // Waits until two captures with `stillMilliseconds` between them are equal, or for the timeout; returns
    // the last one.
    Screenshot settled(int stillMilliseconds = 250, int limitMilliseconds = 3000);

    // Title and process id of the window with the keyboard focus; empty and 0 for none.
    std::string focusedTitle();
    pid_t focusedProcess();
    bool waitForFocus(const std::string& title, int limitMilliseconds);

private:
    VirtualScreen() = default;
    bool sendKey(const char* key, bool down);
    unsigned long focusedWindow();

    std::unique_ptr<ChildProgram> server_;
    std::string name_;
    void* connection_ = nullptr; // an X Display
};
