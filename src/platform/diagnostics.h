// Lines for somebody who watches the program's standard streams. Called by the message box and by whatever
// reports without a box. A front end on a cabinet often has nobody at the other end: such a line is dropped,
// and never holds the program up or ends it.
#pragma once

#include <string_view>

constexpr int standardOutput = 1;
constexpr int standardError = 2;

// Writes the text and a line end to one of the two streams, cut to what goes through a pipe at once. Nothing
// when the stream takes nothing at the moment.
void writeDiagnostic(int stream, std::string_view text, std::string_view lineEnd = "\n");

// Gives stdio other streams for the two, with the same rule and without a buffer: what a library prints must
// not hold the program up either, nor wait for its end. Called once, by the entry.
void replaceStandardStreams();
