// SPDX-License-Identifier: GPL-3.0-or-later
// Media windows: child windows that open a track or a movie and play it on top of their parent's picture and
// below the popups. Called by the ambience and the attract movies. A media window is controlled with
// SendMessageA and the messages below; WM_CLOSE or the destruction of its parent destroys it. New pictures
// are drawn whenever the thread waits in a platform call. Other sounds are in sound.h.
#pragma once

#include "platform/types.h"

constexpr DWORD MCIWNDF_NOPLAYBAR = 0x0002;
constexpr DWORD MCIWNDF_NOMENU = 0x0008;
constexpr DWORD MCIWNDF_NOOPEN = 0x8000;
constexpr DWORD MCIWNDF_NOERRORDLG = 0x4000;

// Start, pause and resume playback. A paused window holds no sound device.
constexpr UINT MCI_PLAY = 0x0806;
constexpr UINT MCI_PAUSE = 0x0809;
constexpr UINT MCI_RESUME = 0x0855;

// lParam is a command string. Returns 0 unless the command is another one or the file is already known to be
// unplayable.
//
// "play repeat": endless playback.
//
// "setvideo rotation to N" (0, 90, -90 or 180 degrees): turns the movie clockwise, and fits its window into
// the rectangle where it is placed next, centred, with the proportions of the turned movie and as large as
// possible. For a window that has not been placed yet.
constexpr UINT MCIWNDM_SENDSTRINGA = 0x0465;

// lParam points to a RECT that receives the movie's display size at (0, 0), all 0 for a file without a
// picture. Waits up to 25 ms for the file to open, up to 1 s at the first call. A movie whose size is still
// unknown then reports a 4:3 size larger than any area; when the size becomes known, the window shrinks to
// the movie's shape inside the rectangle where it was placed.
constexpr UINT MCIWNDM_GET_DEST = 0x048E;

// Starts to load the playback library on a separate thread. To be called when there may be media windows,
// before or after they are created; a request for a movie's size does it too. For about 80 ms, whatever else
// loads libraries is delayed.
void mediaPrepare();

// Whether loading the library has ended, successfully or not. A movie opened before would make the thread
// wait for it.
bool mediaReady();

// Creates a media window on `parent` for the file, which must be a plain file. It is opened as soon as the
// playback library is loaded. The window appears with its first picture. It never has controls, a menu or
// error boxes; `style` is ignored. Null when `parent` is not a window.
HWND MCIWndCreateA(HWND parent, HINSTANCE instance, DWORD style, LPCSTR file);
