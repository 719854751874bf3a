// SPDX-License-Identifier: GPL-3.0-or-later
// The sounds of the front end: wave files for events, and one ambience track in the background. Called by
// WinMain, the commands and the StartGame command. Sounds that cannot be played are skipped without a
// message.
#pragma once

#include "platform/types.h"

#include <cstdint>

// The media window of the ambience track; null when there is none. Written by startAmbience, and destroyed
// with the main window.
extern HWND ambienceWindow;

// Plays a wave file, stopping the one that is playing. Does nothing for a null path. flags: SND_ASYNC, or
// SND_SYNC to return when the sound has ended.
void playSoundFile(const char* path, std::uint32_t flags);

// Starts the ambience track in an endless loop. Returns 1, or 0 when the file is missing or cannot be played.
// Called once.
int startAmbience();
