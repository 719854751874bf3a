// SPDX-License-Identifier: GPL-3.0-or-later
// The tasks of the set-up that need no display: writing an ini file without questions, checking one, making
// the list anew. Each prints to the terminal and returns the exit code of the program. Called by main.cpp.
#pragma once

#include "setup/command_line.h"

// 0 when the file and its game list have been written, 1 after a failure.
int writeOnTerminal(const SetupOptions& options);

// 0 when nothing is wrong, 1 when something is.
int checkOnTerminal(const SetupOptions& options);

// Makes the list beside the ini file of the options. 0, or 1 after a failure.
int rebuildOnTerminal(const SetupOptions& options);
