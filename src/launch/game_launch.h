// Starts the emulator for one game, with that game's options from
// the ini file, and waits for its end. Called by the StartGame
// command, which looks after the screen and the sounds around it.
#pragma once

#include "catalogue/game_record.h"
#include "platform/types.h"

// 1 when the emulator ran to its end, with its exit code in *exitCode; 0 when it did not start, after a
// message box and with *exitCode as it was. The screen saver is off during the run and on after it.
int launchGame(const GameRecord* game, DWORD* exitCode);
