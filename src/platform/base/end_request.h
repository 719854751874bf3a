// The request to end the program that comes from outside: a signal, a close by the window system, or the loss
// of the display. Inside the platform only: the display reports, and every wait polls. The first request
// counts and stays, so that nothing on the way out waits for a person, a server or another program.
#pragma once

enum class EndRequest { none, close, displayLost };

// From here on SIGTERM, SIGINT and SIGHUP are requests to close. A signal that the program was started to
// ignore stays ignored.
void installCloseSignals();

// Records a request unless there is one already. Safe in a signal handler.
void requestEnd(EndRequest request);

EndRequest endRequest();

inline bool endRequested() {
    return endRequest() != EndRequest::none;
}

// A new run begins. For the first window of a program, since tests run the front end several times in one
// process.
void forgetEndRequest();
