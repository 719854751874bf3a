// SPDX-License-Identifier: GPL-3.0-or-later
// The display: a window that fills the primary monitor, its pixels, its events and its keyboard focus. The
// only user of SDL's video. Called inside the platform and by its tests only. The windows of the layer above
// draw into the pixels and present them; key events update the key states and are passed to the listener.
// displaySize, displayPixels and displayIsReal start the display if it is not running. The other functions do
// not start it; displayTakeBack only reopens what displayGiveUp has closed.
#pragma once

#include "platform/clock/waiting.h"

#include <cstdint>

struct DisplayPixels {
    std::uint32_t* pixels; // 0x00RRGGBB
    int width;
    int height;
    int stride; // pixels from one row to the next
};

// Callbacks of the windows. A null function is not called.
struct DisplayListener {
    void (*keyChanged)(int code, bool down, bool repeat); // a virtual-key code, separate for left and right
    void (*joystickChanged)();                            // any change of an open joystick
    void (*focusChanged)(bool focused);
    void (*pictureLost)();  // the display has to be redrawn and presented
    void (*endRequested)(); // at every event poll once an end has been requested
    bool (*hasMessage)();   // whether a message is queued
    bool (*refresh)();      // shows changes; returns true while pictures move
};

void displaySetListener(const DisplayListener& listener);

// Returns the size of the screen in pixels, also after it has been lost. Returns false, and sizes of 0, when
// no display is available.
bool displaySize(int& width, int& height);

// Returns the pixels of the next picture, valid until the next call of any function here; null pixels without
// a display.
DisplayPixels displayPixels();

// Shows the pixels. The first call also shows the window.
void displayPresent();

// Shows a part of the pixels, or all of them if the window has not been shown before.
void displayPresentPart(int left, int top, int width, int height);

// True when a user can see and answer this display; false on SDL's drivers without a screen, and without a
// display.
bool displayIsReal();

// Handles pending events and has the listener show changes. Cheap enough to call often: the event queue is
// polled at most once every few milliseconds. Returns when it is to be called again. On X11 without a window
// manager it also takes the keyboard focus within half a second after the window that had the focus has gone,
// except while the display is given up.
Pace displayKeepAlive();

// Waits until a key is pressed, the joystick changes, a message is queued or the time is over, handling all
// events meanwhile. Returns false when the time is over.
bool displayWaitForInput(std::int64_t nanoseconds);

// Number of key presses, without repeats, and of changes of an open joystick since the start.
std::uint32_t displayInputCount();

// Give up the display for a child that draws by itself, and take it back. On a console without a window
// system, which has a single owner at a time, the display is closed meanwhile. It is taken back in front,
// with the keyboard focus and the last picture.
void displayGiveUp();
void displayTakeBack();

// True once the display was running and has gone for good: its server ended, or another program closed the
// connection or destroyed the window. The loss counts as a request to end. From then on nothing is shown, and
// no other function here has an effect.
bool displayIsLost();

// True when a mouse button was pressed since the last call.
bool displayMousePressed();

// Presses or releases a key of the window system for the window that has the focus, which may be another
// program's. No effect for a symbol of 0 or on a display other than X11.
void displaySendKey(std::uint32_t keySymbol, bool down);

void displayShowCursor(bool shown);

void displayAllowScreenSaver(bool allowed);

void displaySetTitle(const char* title);

// Sets the size of the screen, in pixels, on drivers that have no screen (dummy, offscreen), before the
// display starts or while it runs. For tests.
void displaySetSize(int width, int height);

// Closes the display. Called at the exit of the process.
void displayQuit();
