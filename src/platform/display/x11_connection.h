// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps errors of the X11 connection from ending the process. Called by the display once its window exists,
// and by queries that use its connection. Errors of single requests are ignored.
#pragma once

#include <cstdint>

struct SDL_Window;
union SDL_Event;
struct _XDisplay; // Xlib's Display

// Calls `lost`, on the thread that uses the connection and at most once, when the server has ended or dropped
// the connection or when another program has destroyed the window. Calls to SDL's video that are in progress
// then return, and no further one may be made. No effect for a window that is not an X11 window.
void watchConnection(SDL_Window* window, void (*lost)());

// Checks an SDL event; `lost` is called when it reports that the window has been destroyed.
void checkForDestruction(const SDL_Event& event);

// Waits for the next event of the watched connection, at most for the given nanoseconds.
void waitForConnection(std::int64_t nanoseconds);

// Returns the watched connection, for requests that SDL does not offer; null when there is none or it has
// been lost. Opening a separate connection instead would end the process if the server ended meanwhile.
_XDisplay* watchedConnection();
