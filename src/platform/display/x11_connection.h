// Keeps errors of the X11 connection from ending the process. Inside the platform only: called by the display
// once it has its window. Errors of requests are ignored.
#pragma once

struct SDL_Window;
union SDL_Event;
struct _XDisplay; // Xlib's Display

// Calls `lost`, on the thread that uses the connection and at most once, when the server has gone, has
// dropped the connection, or when someone else has destroyed the window. After that no call to SDL's video
// may be made: those that are under way return. Nothing on a window that is not X11's.
void watchConnection(SDL_Window* window, void (*lost)());

// Passes on an event of SDL's; `lost` is called when it says that the window has been destroyed.
void checkForDestruction(const SDL_Event& event);

// The connection that is watched, for questions beside SDL; null when there is none or it has been lost. A
// separate one for a moment would end the process when the server goes while Xlib opens it.
_XDisplay* watchedConnection();
