// Media windows as the application uses them: without controls, playing for ever. Called for the ambience and
// the attract movies.
#pragma once

#include "platform/types.h"

// A window without controls, menu and error boxes on the main window, with the file opened; null when there
// is no main window.
HWND openMediaWindow(const char* path);

// Starts endless playback. 1, or 0 when the file cannot be played.
int playRepeatedly(HWND window);
