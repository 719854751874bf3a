// Keeps errors of the X11 connection from ending the process. Inside the platform only: called by the display
// once it has its window, and by whoever opens a connection of its own for a moment.
#pragma once

#include <memory>

struct SDL_Window;
union SDL_Event;
struct _XDisplay; // Xlib's Display

// Calls `lost`, on the thread that uses the connection and at most once, when the server has gone, has
// dropped the connection, or when someone else has destroyed the window. After that no call to SDL's video
// may be made: those that are under way return. Nothing on a window that is not X11's.
void watchConnection(SDL_Window* window, void (*lost)());

// Passes on an event of SDL's; `lost` is called when it says that the window has been destroyed.
void checkForDestruction(const SDL_Event& event);

struct CloseX11Connection {
    void operator()(_XDisplay* connection) const;
};
using X11Connection = std::unique_ptr<_XDisplay, CloseX11Connection>;

// A connection for one question; nothing of it must be inherited by a child or time out. When it breaks, the
// calls that use it fail. Null when there is no server.
X11Connection openX11Connection();
