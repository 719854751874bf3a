// SPDX-License-Identifier: GPL-3.0-or-later
// The ini file: loading any file, saving the settings and loading them again gives the same settings.
#include "config/settings.h"
#include "config/settings_file.h"
#include "support/fuzz_input.h"
#include "support/scratch_folder.h"

#include <ctime>
#include <sys/syscall.h>

namespace {

void load() {
    freeSettings();
    loadSettings();
    settings.baseOrientation = settings.orientation;
}

} // namespace

// Replaces the C library's. An hour ahead of the machine, so that every file counts as unchanged for long and
// is read once, not again for each of its keys.
extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    const long result = syscall(SYS_clock_gettime, clock, time);
    if (result == 0 && clock == CLOCK_REALTIME) {
        time->tv_sec += 3600;
    }
    return static_cast<int>(result);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    // A file of the same size, name and time would count as the same.
    static std::uint64_t executions = 0;
    const std::string path = std::to_string(++executions) + ".ini";
    iniPath = path.c_str();
    writeScratchFile(iniPath, input.rest());
    load();
    const std::string selected = settings.selectedGame;
    const std::uint64_t state = savedStateHash(selected.c_str());
    saveSettings(selected.c_str());
    load();
    require(savedStateHash(settings.selectedGame) == state);
    const std::string saved = scratchFolder().read(iniPath);
    saveSettings(selected.c_str());
    require(scratchFolder().read(iniPath) == saved);
    unlink(iniPath);
    return 0;
}
