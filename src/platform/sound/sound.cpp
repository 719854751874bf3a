// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound.h"

#include "platform/base/end_request.h"
#include "platform/clock/clock_source.h"
#include "platform/clock/waiting.h"
#include "platform/files/paths.h"
#include "platform/sound/sound_device.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace {

using namespace std::chrono_literals;

// How long the caller waits for a device that does not respond.
constexpr auto startTimeout = 2000ms;
constexpr auto releaseTimeout = 1000ms; // closing plays out the buffer, which takes up to a third of a second

constexpr std::int64_t waitStep = 5 * nanosecondsPerMillisecond;

enum class Order { play, stop, release, quit };

struct Request {
    Order order = Order::stop;
    std::string path;
    std::uint64_t number = 0;
};

// State shared by the caller and the device thread. Never destroyed, because with a hanging sound server the
// thread may still run while static objects are destroyed.
struct SoundService {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Request> pending;
    std::uint64_t lastNumber = 0;
    std::uint64_t served = 0;     // number of the newest completed request
    std::int64_t soundLength = 0; // of that request's sound, in nanoseconds; 0 if nothing plays
    bool running = false;
};

SoundService& service() {
    static auto* const instance = new SoundService;
    return *instance;
}

std::int64_t carryOut(SoundDevice& device, const Request& request) {
    switch (request.order) {
    case Order::play:
        return device.play(request.path);
    case Order::release:
        device.closeWhenSilent();
        return 0;
    default:
        device.stop();
        return 0;
    }
}

void serveRequests() {
    SoundService& shared = service();
    SoundDevice device;
    std::unique_lock lock(shared.mutex);
    for (;;) {
        shared.changed.wait_for(lock, device.timeToNextCheck(), [&] { return !shared.pending.empty(); });
        std::optional<Request> request;
        if (!shared.pending.empty()) {
            request = shared.pending.front();
            shared.pending.pop_front();
        }
        if (request && request->order == Order::quit) {
            return;
        }
        lock.unlock();
        const std::int64_t length = request ? carryOut(device, *request) : 0;
        device.check();
        lock.lock();
        if (request) {
            shared.served = request->number;
            shared.soundLength = length;
            shared.changed.notify_all();
        }
    }
}

void runDevice() {
    serveRequests();
    SoundService& shared = service();
    const std::lock_guard lock(shared.mutex);
    shared.running = false;
    shared.changed.notify_all();
}

std::uint64_t post(Order order, const std::string& path) {
    SoundService& shared = service();
    const std::lock_guard lock(shared.mutex);
    if (order != Order::release) {
        shared.pending.clear(); // superseded before the thread has read them
    }
    shared.pending.push_back({order, path, ++shared.lastNumber});
    shared.changed.notify_all();
    return shared.lastNumber;
}

// Closes the device before the display shuts SDL down. Does not wait longer for a server that hangs.
void endService() {
    SoundService& shared = service();
    post(Order::quit, "");
    std::unique_lock lock(shared.mutex);
    shared.changed.wait_for(lock, releaseTimeout, [&] { return !shared.running; });
}

bool isRunning() {
    const std::lock_guard lock(service().mutex);
    return service().running;
}

void startService() {
    if (isRunning()) {
        return;
    }
    service().running = true;
    std::thread(runDevice).detach();
    static const int registered = std::atexit(endService);
    static_cast<void>(registered);
}

// Waits until the sound plays and returns its length in nanoseconds; 0 if it cannot be played. The time limit
// uses the real clock, because a virtual clock does not advance while the device thread works.
std::int64_t waitForStart(std::uint64_t number) {
    SoundService& shared = service();
    const auto limit = std::chrono::steady_clock::now() + startTimeout;
    std::unique_lock lock(shared.mutex);
    while (shared.served != number && std::chrono::steady_clock::now() < limit && !endRequested()) {
        if (!shared.changed.wait_for(lock, 5ms, [&] { return shared.served == number; })) {
            lock.unlock();
            keepAlive();
            lock.lock();
        }
    }
    return shared.served == number ? shared.soundLength : 0;
}

} // namespace

BOOL PlaySoundA(LPCSTR path, HMODULE, DWORD flags) {
    if (!path) {
        if (isRunning()) {
            post(Order::stop, "");
        }
        return TRUE;
    }
    startService();
    const std::uint64_t number = post(Order::play, nativePath(path));
    if ((flags & SND_ASYNC) != 0) {
        return TRUE;
    }
    const std::int64_t length = waitForStart(number);
    const std::int64_t end = clockNow() + length;
    while (clockNow() < end && !endRequested()) {
        waitAndKeepAlive(waitStep < end - clockNow() ? waitStep : end - clockNow());
    }
    if (endRequested()) {
        post(Order::stop, "");
    }
    return length > 0 ? TRUE : FALSE;
}

void soundGiveUp() {
    if (!isRunning()) {
        return;
    }
    const std::uint64_t number = post(Order::release, "");
    SoundService& shared = service();
    std::unique_lock lock(shared.mutex);
    shared.changed.wait_for(lock, releaseTimeout, [&] { return shared.served >= number; });
}
