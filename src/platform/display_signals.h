// Requests to end the program, from the window
// system and as signals. Inside the platform only:
// the display asks for them with its other events.
#pragma once

// SIGTERM, SIGINT and SIGHUP become requests from here on. A signal that the program was started to ignore
// stays ignored.
void installCloseSignals();

// Safe in a signal handler.
void noteCloseRequest();

// Whether a request came since the last call.
bool takeCloseRequest();
