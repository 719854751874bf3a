// The sounds around the list of games: wave files for events and one track
// behind everything. Called by the start-up, the commands and the start of
// a game. Whatever cannot be played is silence, and nobody is told.
#pragma once

#include "platform/types.h"

#include <cstdint>

// The window of the ambience track, null when there is none. Written by startAmbience; it lives as long as
// the main window.
extern HWND ambienceWindow;

// Plays a wave file, which cuts off the one that plays. A null path is no sound. flags: SND_ASYNC, or
// SND_SYNC to return at its end.
void playSoundFile(const char* path, std::uint32_t flags);

// Starts the track in an endless loop. 1 when it was started, 0 when the file is absent or refused. Called
// once.
int startAmbience();
