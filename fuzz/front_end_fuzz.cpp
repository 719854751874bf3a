// SPDX-License-Identifier: GPL-3.0-or-later
// The whole front end for six seconds of virtual time, with random settings, files and keys. It runs in the
// process of the fuzzer, which is a hundred times faster than a process for each execution; the state of the
// process is reset as between the runs of a scenario. Nothing is checked but what the sanitizers check, and
// that the front end ends.
//
// The input: the game list, the game information, the history and the favourites with fileSeparator in
// between, then bytes that choose settings and keys. The pictures of the games a and b are always there.
#include "config/setting_table.h"
#include "platform/base/end_request.h"
#include "platform/display/key_state.h"
#include "scenario/recorded_media.h"
#include "support/front_end.h"
#include "support/fuzz_input.h"
#include "support/no_programs.h"
#include "support/png_files.h"
#include "support/scratch_folder.h"

#include <array>
#include <map>

namespace {

constexpr char fileSeparator = '\x1D';
constexpr std::int64_t lastMoment = 6000; // milliseconds

constexpr std::array<SDL_Scancode, 20> keys = {
    SDL_SCANCODE_UP, SDL_SCANCODE_DOWN,  SDL_SCANCODE_LEFT, SDL_SCANCODE_RIGHT, SDL_SCANCODE_1,
    SDL_SCANCODE_2,  SDL_SCANCODE_LCTRL, SDL_SCANCODE_R,    SDL_SCANCODE_F,     SDL_SCANCODE_D,
    SDL_SCANCODE_G,  SDL_SCANCODE_A,     SDL_SCANCODE_S,    SDL_SCANCODE_Q,     SDL_SCANCODE_W,
    SDL_SCANCODE_X,  SDL_SCANCODE_Y,     SDL_SCANCODE_Z,    SDL_SCANCODE_B,     SDL_SCANCODE_ESCAPE};
constexpr std::array<const char*, 8> keyCodes = {"88", "89", "90", "66", "38", "40", "0", "255"};
constexpr std::array<const char*, 20> numbers = {
    "0",   "1",   "2",    "3",     "5",     "8",          "12",          "20",  "50",   "99",
    "100", "300", "1000", "32767", "65536", "2147483647", "-2147483648", "-20", "x1y2", "0xFFFFFF"};
constexpr std::array<const char*, 12> texts = {
    "",  ".",     "roms", "a",        "b.png",          "history.xml",
    "x", "Arial", "/",    "info.dat", ".\\mame.exe -x", "a path that does not exist"};

template <std::size_t count>
std::string chosen(const std::array<const char*, count>& values, FuzzInput& input) {
    return values.at(static_cast<std::size_t>(input.number(0, count - 1)));
}

std::string valueFor(const SettingRow& row, FuzzInput& input) {
    switch (row.kind) {
    case SettingKind::choice:
        return row.words[static_cast<std::size_t>(input.number(0, static_cast<int>(row.words.size()) - 1))]
            .word;
    case SettingKind::text:
    case SettingKind::optionalText:
        return chosen(texts, input);
    case SettingKind::keyCode:
        return chosen(keyCodes, input);
    default:
        return chosen(numbers, input);
    }
}

// The text of an ini file with some random settings, and others that let the front end find the pictures and
// files. The first of several values of one key counts.
std::string iniText(FuzzInput& input) {
    std::map<std::string, std::string> sections;
    for (int count = input.number(0, 15); count > 0; --count) {
        const int row = input.number(0, static_cast<int>(std::size(settingTable)) - 1);
        const SettingRow& setting = settingTable[static_cast<std::size_t>(row)];
        sections[setting.section] += std::string(setting.key) + "=" + valueFor(setting, input) + "\n";
    }
    sections["RomOptions"] += "DisplayMissingRoms=1\n";
    sections["Settings"] += "Snapshot.dir=.\nMarquee.dir=.\nRoms.dir=.\nMameinfo.dat=info.dat\n";
    std::string text;
    for (const auto& [section, lines] : sections) {
        text += "[" + section + "]\n" + lines;
    }
    return text;
}

// Schedules the keys of the input, and the request to end. What an earlier execution has left in the schedule
// does nothing.
void scheduleKeys(FuzzInput& input) {
    static std::uint64_t lastExecution = 0;
    const std::uint64_t execution = ++lastExecution;
    const auto at = [execution](std::int64_t milliseconds, std::function<void()> action) {
        virtualClockAt(virtualClockMilliseconds() + milliseconds, [execution, action = std::move(action)] {
            if (execution == lastExecution) {
                action();
            }
        });
    };
    std::int64_t moment = 50;
    for (int count = input.number(0, 30); count > 0; --count) {
        const SDL_Scancode key = keys.at(static_cast<std::size_t>(input.number(0, keys.size() - 1)));
        const int held = input.number(0, 7);
        at(moment, [key] { pressKey(key); });
        at(moment + (held == 0 ? 700 : 10), [key] { releaseKey(key); });
        if (held == 1) {
            at(moment + 20, [] { pushWindowEvent(SDL_WINDOWEVENT_FOCUS_LOST); });
            at(moment + 90, [] { pushWindowEvent(SDL_WINDOWEVENT_FOCUS_GAINED); });
        }
        moment += 100 * input.number(1, 3);
    }
    at(std::min(moment + 600, lastMoment), [] { requestEnd(EndRequest::close); });
}

void start() {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    setScreenSize(240, 180);
    writeScratchFile("a.png", pngBytes({}));
    writeScratchFile("b.png", pngBytes({}));
}

// The files are left by the execution before.
void writeFiles(FuzzInput& input) {
    for (const char* name : {"favourites.dat", "history.xml", "info.dat"}) {
        writeScratchFile(name, input.word(2000, fileSeparator));
    }
    writeScratchFile("listinfo.dat", input.rest());
}

} // namespace

// Replaces the C library's, so that an input always does the same.
static std::uint32_t randomState = 1;
extern "C" int rand() noexcept {
    randomState = randomState * 1103515245 + 12345;
    return static_cast<int>(randomState >> 16 & 0x7FFF);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool once = (start(), true);
    static_cast<void>(once);
    FuzzInput input(data, size);
    randomState = 1;
    mediaRequests.clear();
    allKeysUp();
    for (int code = 1; code < 255; ++code) {
        takeKeyPress(code);
    }
    programsStart = input.flag();
    writeScratchFile("kestravox.ini", iniText(input));
    scheduleKeys(input);
    writeFiles(input);
    FrontEnd::runToEnd();
    return 0;
}
