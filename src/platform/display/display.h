// The one seam to SDL's video: a window that fills the primary monitor, its pixels, its events, its focus.
// Inside the platform only, and its tests. The windows above it draw into the pixels and present them; events
// become key states, and go to the listener. The functions that give a size or pixels start the display when
// it is not running yet; the others do nothing then.
#pragma once

#include <cstdint>

struct DisplayPixels {
    std::uint32_t* pixels; // 0x00RRGGBB
    int width;
    int height;
    int stride; // pixels from one row to the next
};

// What the windows are told. A null function is not called.
struct DisplayListener {
    void (*keyChanged)(int code, bool down, bool repeat); // a virtual-key code, left and right told apart
    void (*joystickChanged)();                            // anything about any joystick that is in use
    void (*focusChanged)(bool focused);
    void (*pictureLost)();  // the display has to be drawn and presented anew
    void (*endRequested)(); // at each look at the events from the first request to end on
    bool (*refresh)();      // the moment to show what has changed; true while pictures move
};

void displaySetListener(const DisplayListener& listener);

// Size of the screen in pixels, also after it has been lost. False, and 0, when no display can be had at all.
bool displaySize(int& width, int& height);

// The pixels of the next picture, valid until the next call of any function here; null pixels without a
// display.
DisplayPixels displayPixels();

// Shows the pixels. The window itself comes up with the first picture.
void displayPresent();

// Shows a part of the pixels in a window that has shown all of them before.
void displayPresentPart(int left, int top, int width, int height);

// True when a person can see and answer this display; false on SDL's drivers without a screen, and without a
// display.
bool displayIsReal();

// Handles waiting events and has the listener show what has changed. Costs next to nothing when called often:
// the event queue is looked at every few milliseconds at most. True while pictures move: it then has to be
// called every 10 ms, else every 20 to 50. On X11 without a window manager it also takes the keyboard focus
// within half a second after the window that had it has gone, except while the display is given up.
bool displayKeepAlive();

// Gives the display up for a child that draws by itself (a console without a window system has one owner
// only) and takes it back: in front, with the keyboard focus, with the last picture.
void displayGiveUp();
void displayTakeBack();

// The display was there and has gone for good: its server ended, or someone else ended the connection or the
// window. It counts as a request to end. Nothing is shown any more, and no other function here has an effect.
bool displayIsLost();

// A mouse button was pressed since this was last called.
bool displayMousePressed();

// Presses or releases a key of the window system for whatever window has the focus there; a symbol of 0 and a
// display other than X11 have no effect.
void displaySendKey(std::uint32_t keySymbol, bool down);

void displayShowCursor(bool shown);

void displayAllowScreenSaver(bool allowed);

// The title of the window.
void displaySetTitle(const char* title);

// Fixes the size of the screen on drivers that have none of their own (dummy, offscreen), before the display
// starts or while it runs. For tests.
void displaySetSize(int width, int height);

// Ends the display. At the end of the process.
void displayQuit();
