#include "core/main_loop.h"

#include "core/commands.h"
#include "platform/clock.h"
#include "platform/window.h"
#include "state/shared_state.h"

#include <cstdint>

namespace {

constexpr std::int64_t ticksPerSecond = 10;

} // namespace

int runMainLoop() {
    LARGE_INTEGER frequency{};
    if (!QueryPerformanceFrequency(&frequency)) {
        MessageBoxA(mainWindow, "Hardware doesn't support QueryPerformanceFrequency()!", "Error", MB_OK);
        return -1;
    }
    const std::int64_t tickPeriod = frequency.QuadPart / ticksPerSecond;
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    std::int64_t lastTick = now.QuadPart;
    for (;;) {
        MSG message{};
        if (PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            if (!GetMessageA(&message, nullptr, 0, 0)) {
                return static_cast<int>(message.wParam);
            }
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        QueryPerformanceCounter(&now);
        if (now.QuadPart - lastTick >= tickPeriod) {
            handleTick(mainWindow);
            lastTick += tickPeriod;
        } else {
            Sleep(1);
        }
    }
}
