// SPDX-License-Identifier: GPL-3.0-or-later
// Wave file playback, one sound at a time. Called by the front end's sounds and by the process entry. A
// separate thread opens the device on the first PlaySoundA, so that a sound server that hangs delays the
// caller by at most 2 seconds; without a device nothing is audible and no error is printed. Music and movies
// are in media.h.
#pragma once

#include "platform/types.h"

constexpr DWORD SND_SYNC = 0x00000;
constexpr DWORD SND_ASYNC = 0x00001;
constexpr DWORD SND_NODEFAULT = 0x00002;
constexpr DWORD SND_FILENAME = 0x20000;

// Stops the current sound and plays a file; a null path only stops. The file must be a regular file that
// contains RIFF WAVE in PCM, floating point, A-law, mu-law or ADPCM, whatever its name, and must need at most
// 64 MiB once converted to the device's format (nearly six minutes).
//
// With SND_ASYNC the call returns immediately. With SND_SYNC it returns after the sound has ended, or
// immediately if the file is missing or damaged or there is no device; meanwhile the screen is refreshed but
// no message is dispatched, and an external request to terminate the program stops the sound.
//
// SND_FILENAME and SND_NODEFAULT are always implied; `module` is ignored. Returns FALSE only for a
// synchronous sound that could not be played.
BOOL PlaySoundA(LPCSTR path, HMODULE module, DWORD flags);

// For the platform only: releases the sound device so that a child process can use it, immediately or after
// the current sound has ended. The next sound reopens it.
void soundGiveUp();
