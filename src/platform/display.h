// The one seam to SDL: a full-screen window, its pixels, its events, its focus. Inside the platform only, and its tests.
// The compositor draws into the pixels and presents them; events become key states, key messages and focus changes. Every
// function starts the display when it is not running yet.
#pragma once

#include <cstdint>

struct DisplayPixels {
    std::uint32_t* pixels; // 0x00RRGGBB
    int width;
    int height;
    int stride; // pixels from one row to the next
};

// Size of the screen in pixels. 640x480 when no display can be had at all.
void displaySize(int& width, int& height);

// The pixels of the next picture, valid until the next call of any function here; null pixels without a display.
DisplayPixels displayPixels();

// Shows the pixels. The window itself comes up with the first picture.
void displayPresent();

// True when a person can see and answer this display; false on SDL's drivers without a screen.
bool displayIsReal();

// Handles waiting events and shows what has changed. Costs next to nothing when called often: the event queue is looked
// at every few milliseconds at most. Nothing is dispatched to windows but focus changes, which are kept until the next
// message look-up.
void displayKeepAlive();

// Gives the display up for a child that draws by itself (a console without a window system has one owner only) and
// takes it back: in front, with the keyboard focus, with the last picture.
void displayGiveUp();
void displayTakeBack();

// The program was asked to end (window closed from outside, SIGTERM, SIGINT, SIGHUP) since it was last asked.
bool displayCloseRequested();

// Shown while the count of ShowCursor is not negative.
void displayShowCursor(bool shown);

void displayAllowScreenSaver(bool allowed);

// The title of the window.
void displaySetTitle(const char* title);

// Fixes the size of the screen on drivers that have none of their own (dummy, offscreen). For tests, before or after
// the display has started.
void displaySetSize(int width, int height);

// Ends the display and forgets everything. At the end of the process.
void displayQuit();
