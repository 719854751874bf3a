// Media windows: a window that opens a track or a movie by itself and plays it over its parent's picture,
// below the popups. Called by the ambience and the attract movies. Driven by SendMessageA with the messages
// below; WM_CLOSE ends it, and so does the end of its parent. Its pictures come while the thread waits
// anywhere in this layer.
#pragma once

#include "platform/types.h"

constexpr DWORD MCIWNDF_NOPLAYBAR = 0x0002;
constexpr DWORD MCIWNDF_NOMENU = 0x0008;
constexpr DWORD MCIWNDF_NOOPEN = 0x8000;
constexpr DWORD MCIWNDF_NOERRORDLG = 0x4000;

// Starts playback, pauses it, and goes on where it was paused. A paused window holds no sound device.
constexpr UINT MCI_PLAY = 0x0806;
constexpr UINT MCI_PAUSE = 0x0809;
constexpr UINT MCI_RESUME = 0x0855;

// lParam is a command; "play repeat", endless playback, is the one that is served. 0 unless the file is known
// to be unplayable.
constexpr UINT MCIWNDM_SENDSTRINGA = 0x0465;

// lParam is a RECT that becomes the movie's display size at (0, 0), all 0 for a file without a picture. Waits
// for the file for 25 ms at most, and for a second when it is the first that is asked for. A movie that is
// not known by then counts as one of 4:3 that no area holds; once it is known, its window shrinks to what it
// needs inside the place it was given.
constexpr UINT MCIWNDM_GET_DEST = 0x048E;

// Begins to load what plays tracks and movies, on a thread of its own, so that the first window need not wait
// for it. To be called when a window is likely to be made; otherwise the first one begins.
void mediaPrepare();

// Makes a media window on a parent and starts to open the file in it; it shows with its first picture. Only a
// plain file is opened. The style names what the window has not: controls, menu, error boxes, a way to open
// something else; it has none of them whatever the style says. Null when the parent is no window.
HWND MCIWndCreateA(HWND parent, HINSTANCE instance, DWORD style, LPCSTR file);
