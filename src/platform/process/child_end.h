// SPDX-License-Identifier: GPL-3.0-or-later
// Ends a child and its whole process group once the program is asked to end from outside. Polled by the wait
// for a process. An emulator may ignore SIGTERM, and a script that started it may exit without it, so
// stronger signals follow; the wait is given up after the last one.
#pragma once

#include <chrono>
#include <cstddef>
#include <sys/types.h>

class ChildEnd {
public:
    explicit ChildEnd(pid_t processGroup) : group_(processGroup) {}

    // Sends the signals that are due. Once the child itself has been reaped, also reaps orphans of its group.
    // Does nothing until the program is asked to end.
    void poll(bool childHasEnded);

    // True when there is nothing left to wait for: the group has no process left, or the last signal has had
    // its time.
    bool isOver() const;

private:
    using Clock = std::chrono::steady_clock;

    void start(bool displayLost);
    void send(int signal) const;

    pid_t group_;
    bool started_ = false;
    bool displayLost_ = false;
    std::size_t sent_ = 0; // number of signals of the plan sent so far
    Clock::time_point start_;
};
