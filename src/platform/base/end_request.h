// SPDX-License-Identifier: GPL-3.0-or-later
// The request from outside to end the program: a signal, a close request of the window system, or the loss of
// the display. Inside the platform only: the display reports requests, and every wait polls for them. The
// first request stays in effect, so that nothing on the way to the exit waits for a person, a server or
// another program.
#pragma once

enum class EndRequest { none, close, displayLost };

// Makes SIGTERM, SIGINT and SIGHUP requests to close. A signal that the program was started to ignore stays
// ignored.
void installCloseSignals();

// Records a request unless one is already recorded. Async-signal-safe.
void requestEnd(EndRequest request);

EndRequest endRequest();

inline bool endRequested() {
    return endRequest() != EndRequest::none;
}

// Clears the request. Called for the first window of a program, which has no owner, since tests run the front
// end several times in one process.
void forgetEndRequest();
