// Wave files: one sound at a time, mixed by SDL2_mixer with whatever else the machine plays. Called by the
// sounds of the front end and by the process entry. The device is opened with the first sound, by a thread of
// its own, so that a slow, missing or silent sound server costs the caller nothing; without one, all is
// silence. Music and movies stand in media.h.
#pragma once

#include "platform/types.h"

constexpr DWORD SND_SYNC = 0x00000;
constexpr DWORD SND_ASYNC = 0x00001;
constexpr DWORD SND_NODEFAULT = 0x00002;
constexpr DWORD SND_FILENAME = 0x20000;

// Ends the sound that plays and plays a file: RIFF WAVE of any usual coding, whatever its name. SND_ASYNC
// returns at once; SND_SYNC returns at the end of the sound, and at once when there is nothing to hear: no
// file, a damaged one, no device. A request from outside to end the program ends the sound. The screen stays
// alive meanwhile, and no message is dispatched. Only plain files are played whose samples, as the device
// takes them, need at most 64 MiB: nearly six minutes. A null path only ends the sound. SND_FILENAME and
// SND_NODEFAULT are taken for given, and module must be null. FALSE for a synchronous sound that could not be
// played.
BOOL PlaySoundA(LPCSTR path, HMODULE module, DWORD flags);

// Inside the platform: gives the sound device up for a child, at once or at the end of the sound that plays.
// The next sound opens it again.
void soundGiveUp();
