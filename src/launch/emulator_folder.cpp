#include "launch/emulator_folder.h"

#include "config/settings.h"
#include "platform/module.h"

#include <string_view>

namespace {

std::string programPath() {
    std::string path(255, '\0');
    for (;;) {
        const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

} // namespace

std::string emulatorFolder() {
    constexpr std::string_view separators = "\\/";
    const std::string_view emulator = settings.mameExe;
    const bool hasDrive = emulator.size() > 1 && emulator[1] == ':';
    if (hasDrive && emulator.find_last_of(separators) != std::string_view::npos) {
        return std::string(emulator.substr(0, emulator.find_last_of(separators)));
    }
    const std::string program = programPath();
    return program.substr(0, program.find_last_of(separators));
}
