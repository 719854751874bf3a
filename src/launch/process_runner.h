// SPDX-License-Identifier: GPL-3.0-or-later
// Runs an external program and waits until it ends, without a time limit. Called by game_launch.cpp and
// core/catalogue_loader.cpp. No window message is dispatched during the wait.
//
// Every function returns 1 when the program was started, whatever its exit code, and 0, after a message box,
// when it was not. commandLine must be writable: splitting it into arguments may modify it. After each run
// and each failed start the key presses made meanwhile are discarded.
#pragma once

#include "platform/process.h"

// Starts the program in the given working directory and waits. With gameRun 1, a synthetic key press is sent
// one second after the start, and the exit code is stored in *exitCode unless exitCode is null. *exitCode is
// unchanged when the program could not be started.
int runProcess(char* commandLine, const char* workingDirectory, STARTUPINFOA* startupInfo,
               SECURITY_ATTRIBUTES* securityAttributes, DWORD* exitCode, int gameRun);

// Runs a program with standard output and standard error redirected to a file, which is created or truncated.
// Also fails when the file cannot be created.
int runToFile(char* commandLine, const char* workingDirectory, const char* outputPath);

// As runToFile, with standard input redirected from a file. The output file is created first, so it is left
// empty when the input file cannot be opened.
int runFilter(char* commandLine, const char* workingDirectory, const char* inputPath, const char* outputPath);

// Runs a program with the standard streams of the front end.
int runAttached(char* commandLine, const char* workingDirectory, DWORD* exitCode, int gameRun);
