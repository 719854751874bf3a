// SPDX-License-Identifier: GPL-3.0-or-later
// The setting ExitCommand: a program that is started after the Exit control has ended the front end, such as
// one that switches the machine off. Called by WinMain as its last act. Does not wait for the program.
#pragma once

#include <string>

// Starts the program, which outlives this one; its command line is split like the emulator's. Does nothing
// when the command is empty or the end was requested from outside (a signal, a closed window, a lost
// display); every other end is that of the Exit control. A failure is reported on standard error.
void runExitCommand(std::string command);
