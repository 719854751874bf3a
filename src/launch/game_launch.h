// SPDX-License-Identifier: GPL-3.0-or-later
// Starts the emulator for one game, with that game's options from the ini file, and waits until it ends.
// Called by the StartGame command, which handles the messages and sounds.
#pragma once

#include "catalogue/game_record.h"
#include "platform/types.h"

// Returns 1 when the emulator has run, with its exit code in *exitCode. Returns 0 when it could not be
// started, after a message box and with *exitCode unchanged. The screen saver is disabled during the run and
// enabled after it.
int launchGame(const GameRecord* game, DWORD* exitCode);
