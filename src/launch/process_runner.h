// Runs an outside program and waits for its end, however long it takes. Called by the game launch and the
// regeneration of the game list. No message is served meanwhile. A program's own exit code is never a failure
// here.
#pragma once

#include "platform/process.h"

// Starts the program in the given working directory and waits. With gameRun 1 the emulator gets a synthesised
// key a second after its start, and exitCode, unless null, its exit code. 1 when it ran; 0, after a message
// box, when it could not be started, with exitCode as it was. commandLine must be writable.
int runProcess(char* commandLine, const char* workingDirectory, STARTUPINFOA* startupInfo,
               SECURITY_ATTRIBUTES* securityAttributes, DWORD* exitCode, int gameRun);

// Runs a program with its output and errors going to a file, which is made anew. 0, after a message box, when
// the file cannot be made or the program cannot be started.
int runToFile(char* commandLine, const char* workingDirectory, const char* outputPath);

// The same, with the program's input coming from a file. The output file is made first, and stays behind
// empty when the input cannot be opened.
int runFilter(char* commandLine, const char* workingDirectory, const char* inputPath, const char* outputPath);

// Runs a program on the streams of the front end.
int runAttached(char* commandLine, const char* workingDirectory, DWORD* exitCode, int gameRun);
