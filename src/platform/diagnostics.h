// SPDX-License-Identifier: GPL-3.0-or-later
// Diagnostic lines on the program's standard streams. Called by the message box and by code that reports
// without a box. On a cabinet often nothing reads these streams: what cannot be written at once is dropped,
// so that a diagnostic never blocks or ends the program.
#pragma once

#include <string_view>

constexpr int standardOutput = 1;
constexpr int standardError = 2;

// Writes the text and a line end to one of the two streams, truncated to PIPE_BUF bytes, the most that a pipe
// accepts atomically. Writes nothing when the stream is not ready.
void writeDiagnostic(int stream, std::string_view text, std::string_view lineEnd = "\n");

// Replaces stdout and stderr of stdio with unbuffered streams that likewise drop what cannot be written at
// once, so that the output of a library can neither block the program nor be held back until it ends. Called
// once, by the entry.
void replaceStandardStreams();
