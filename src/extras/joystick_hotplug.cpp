#include "extras/joystick_hotplug.h"

#include "config/settings.h"
#include "input/controls.h"
#include "platform/clock.h"

namespace {

// A second holds two searches.
constexpr int searchesPerSecond = 2;

// In counts of the performance counter.
std::int64_t lastSearch = 0;

// A lost joystick is forgotten at once, so that its error is reported only once.
void searchJoystick(bool lost) {
    LARGE_INTEGER now{};
    LARGE_INTEGER second{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&second);
    if (lost || now.QuadPart - lastSearch >= second.QuadPart / searchesPerSecond) {
        lastSearch = now.QuadPart;
        initJoystick();
    }
}

} // namespace

void startJoystickHotplug() {
    joystickMissing = settings.joystickHotplug != 0 ? searchJoystick : nullptr;
}
