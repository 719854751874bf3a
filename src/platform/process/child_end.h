// Ends a child and all of its process group once the program is asked to end from outside. Inside the
// platform only: polled by the wait for a process. An emulator may ignore the polite request, and a script in
// its place may leave the emulator running, so stronger signals follow, and after the last of them nobody
// waits any longer.
#pragma once

#include <chrono>
#include <cstddef>
#include <sys/types.h>

class ChildEnd {
public:
    explicit ChildEnd(pid_t processGroup) : group_(processGroup) {}

    // Sends the signals that have become due, and reaps what the child has left once it has ended and been
    // reaped. Nothing while the program is not asked to end.
    void poll(bool childHasEnded);

    // True when there is nothing left to wait for: no process of the group is left, or the last signal has
    // been sent and had its time.
    bool isOver() const;

private:
    using Clock = std::chrono::steady_clock;

    void start(bool displayLost);
    void send(int signal) const;

    pid_t group_;
    bool started_ = false;
    bool displayLost_ = false;
    std::size_t sent_ = 0; // signals of the plan
    Clock::time_point start_;
};
