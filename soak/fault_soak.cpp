// SPDX-License-Identifier: GPL-3.0-or-later
// Interrupts the real front end on a virtual screen: a signal or the loss of the display in every state that
// it can be in, and at random moments; kills it while favourites are marked; and lets emulators and the clock
// misbehave. Each time the front end must end within the limit, or go on, with the settings saved and no
// process or file left. Usage: `fault_soak [MOMENTS [SEED]]`: the number of random moments, 500 by default;
// below 100 each state gets one of the faults.
//
// In order: the states and how they are reached, the faults and what must be true afterwards, random moments,
// kills while marks are written, emulators, the clock.
#include "soak_cabinet.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <set>
#include <sstream>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int endLimit = 2000;   // milliseconds from a fault to the end
constexpr int childLimit = 6000; // with an emulator that ignores all requests
constexpr const char* firstGame = "barnacle";

std::minstd_rand randomNumbers(1);

int randomBelow(int limit) {
    return static_cast<int>(randomNumbers() % static_cast<unsigned>(limit));
}

void pauseFor(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

int millisecondsSince(Clock::time_point start) {
    return static_cast<int>(
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count());
}

// --- States ---

constexpr const char* obedientEmulator = "touch running; exec sleep 60";
constexpr const char* unresponsiveEmulator =
    "trap '' TERM INT HUP; touch running; while :; do sleep 0.05; done";
constexpr const char* stoppedEmulator = "touch running; kill -STOP $$; exec sleep 60";
constexpr const char* forkingEmulator = "trap '' HUP; (trap '' TERM HUP; sleep 60) & touch running; sleep 60";

struct State {
    const char* name;
    const char* emulator;        // null: cannot be started
    bool (*enter)(SoakCabinet&); // from the list, after a step to the second game
    std::vector<SettingChange> settings = {};
    int limit = endLimit;
    bool endsItself = false;       // the front end is about to end without the fault
    bool beforeFirstFrame = false; // nothing is saved, and the exit code is that of a failed start
};

bool pressAndWait(SoakCabinet& cabinet, const char* key) {
    const Screenshot before = cabinet.screen().settled(100);
    cabinet.screen().tap(key);
    return cabinet.waitForChange(before);
}

bool startGame(SoakCabinet& cabinet) {
    cabinet.screen().tap("1");
    return cabinet.waitForFile("running");
}

bool showsMovie(const Screenshot& shot) {
    return shot.countColour(shot.whole(), 0xFFFFFF) > 3000;
}

bool owedTicks(SoakCabinet& cabinet) {
    if (!startGame(cabinet)) {
        return false;
    }
    cabinet.screen().press("Down");
    pauseFor(2500);
    return cabinet.screen().waitForFocus("KESTRAVOX", 5000);
}

const std::vector<State>& states() {
    const std::string emulator = "emulator";
    static const std::vector<State> table = {
        {"list", nullptr, [](SoakCabinet&) { return true; }},
        {"image browser", nullptr, [](SoakCabinet&) { return true; }, {{"MenuType", "ImageBrowser"}}},
        {"options menu", nullptr, [](SoakCabinet& cabinet) { return pressAndWait(cabinet, "2"); }},
        {"game information", nullptr,
         [](SoakCabinet& cabinet) { return pressAndWait(cabinet, "Control_L"); }},
        {"message box", nullptr, [](SoakCabinet& cabinet) { return pressAndWait(cabinet, "1"); }},
        {"held key", nullptr, [](SoakCabinet& cabinet) { return cabinet.screen().press("Down"); }},
        {"attract play",
         nullptr,
         [](SoakCabinet& cabinet) { return cabinet.waitForChange(cabinet.screen().settled(100)); },
         {{"IdleSeconds", "1", "Extras"}, {"IdleStep", "1", "Extras"}}},
        {"movie",
         nullptr,
         [](SoakCabinet& cabinet) { return cabinet.screen().waitFor(showsMovie, 8000); },
         {{"Attract.dir", "attracts"}, {"AmbienceFile", "sounds/ambience.wav"}}},
        {"sound at the exit",
         nullptr,
         [](SoakCabinet& cabinet) { return cabinet.screen().tap("Escape"); },
         {},
         endLimit,
         true},
        {"emulator", obedientEmulator, startGame},
        {"emulator that ignores requests", unresponsiveEmulator, startGame, {}, childLimit},
        {"stopped emulator", stoppedEmulator, startGame, {}, childLimit},
        {"emulator with a child", forkingEmulator, startGame, {}, childLimit},
        {"owed ticks", "touch running; sleep 2", owedTicks},
        {"making the list",
         unresponsiveEmulator,
         [](SoakCabinet& cabinet) { return cabinet.waitForFile("running"); },
         {},
         childLimit,
         false,
         true},
    };
    return table;
}

// --- Faults ---

struct Fault {
    const char* name;
    void (*cause)(SoakCabinet&);
    int exitCode;
};

constexpr Fault faults[] = {
    {"SIGTERM", [](SoakCabinet& cabinet) { cabinet.frontEnd().signal(SIGTERM); }, 0},
    {"lost display", [](SoakCabinet& cabinet) { cabinet.endScreen(); }, 2},
    {"SIGHUP twice, then lost display",
     [](SoakCabinet& cabinet) {
         cabinet.frontEnd().signal(SIGHUP);
         cabinet.frontEnd().signal(SIGHUP);
         pauseFor(randomBelow(100));
         cabinet.endScreen();
     },
     0},
};

struct Outcome {
    int runs = 0;
    int failures = 0;
    int longest = 0; // milliseconds from a fault to the end

    void fail(const std::string& where, const std::string& what) {
        ++failures;
        std::printf("%s: %s\n", where.c_str(), what.c_str());
    }
};

// Waits for the end after a fault. Returns the exit code; nothing when the limit is over.
std::optional<int> measureEnd(SoakCabinet& cabinet, int limit, Outcome& outcome) {
    const auto start = Clock::now();
    const std::optional<int> code = cabinet.frontEnd().waitForExit(limit);
    outcome.longest = std::max(outcome.longest, millisecondsSince(start));
    return code;
}

// Returns what has stayed; empty for nothing. A killed process takes a moment to disappear.
std::string remains(SoakCabinet& cabinet) {
    for (int waited = 0; waited < 500 && !cabinet.otherProcesses().empty(); waited += 20) {
        pauseFor(20);
    }
    if (!cabinet.otherProcesses().empty()) {
        return "a process is left";
    }
    const std::string file = cabinet.leftover();
    return file.empty() ? "" : "left over: " + file;
}

// Moves to the second game, so that there is something to save.
bool showSecondGame(SoakCabinet& cabinet) {
    if (!cabinet.waitForGames()) {
        return false;
    }
    return pressAndWait(cabinet, "Down");
}

void tryState(SoakCabinet& cabinet, const State& state, const Fault& fault, Outcome& outcome) {
    const std::string where = std::string(state.name) + ", " + fault.name;
    cabinet.startScreen();
    std::vector<SettingChange> settings = {{"Mame.exe", cabinet.path("emulator")},
                                           {"SelectedGame", firstGame},
                                           {"AmbienceFile", ""},
                                           {"Attract.dir", ""}};
    settings.insert(settings.end(), state.settings.begin(), state.settings.end());
    cabinet.writeSettings(settings);
    cabinet.writeEmulator(state.emulator);
    if (state.beforeFirstFrame) {
        cabinet.removeList();
    }
    const std::string before = cabinet.read("kestravox.ini");
    cabinet.startFrontEnd();
    ++outcome.runs;
    if ((!state.beforeFirstFrame && !showSecondGame(cabinet)) || !state.enter(cabinet)) {
        outcome.fail(where, "the state is not reached");
    } else {
        pauseFor(randomBelow(300));
        fault.cause(cabinet);
        const auto code = measureEnd(cabinet, state.limit, outcome);
        const int expected = state.beforeFirstFrame ? 1 : fault.exitCode;
        const bool good = code && (*code == expected || (state.endsItself && *code == 0));
        if (!good) {
            outcome.fail(where, code ? "ends with code " + std::to_string(*code) : "does not end");
        } else if (state.beforeFirstFrame ? cabinet.read("kestravox.ini") != before
                                          : cabinet.setting("SelectedGame") == firstGame) {
            outcome.fail(where, "the settings are not saved as expected");
        } else if (const std::string what = remains(cabinet); !what.empty()) {
            outcome.fail(where, what);
        }
    }
    cabinet.clear();
    if (state.beforeFirstFrame) {
        cabinet.writeList();
    }
}

// Prints one line of figures. Returns whether nothing failed.
bool report(const char* what, const Outcome& outcome) {
    std::printf("%-32s %4d runs, %d failures, at most %4d ms to the end\n", what, outcome.runs,
                outcome.failures, outcome.longest);
    std::fflush(stdout);
    return outcome.failures == 0;
}

bool tryStates(SoakCabinet& cabinet, bool isShort) {
    bool good = true;
    std::size_t next = 0;
    for (const State& state : states()) {
        Outcome outcome;
        for (std::size_t fault = 0; fault < std::size(faults); ++fault) {
            if (!isShort || fault == next % std::size(faults)) {
                tryState(cabinet, state, faults[fault], outcome);
            }
        }
        ++next;
        good = report(state.name, outcome) && good;
    }
    return good;
}

// --- Random moments ---

// Presses keys from the start on and sends SIGTERM at any time.
void tryMoment(SoakCabinet& cabinet, int number, Outcome& outcome) {
    constexpr std::array<const char*, 8> keys = {"Down", "Up", "Right", "2", "Control_L", "1", "Return", "m"};
    cabinet.startScreen();
    cabinet.writeSettings({{"Mame.exe", cabinet.path("emulator")},
                           {"SelectedGame", firstGame},
                           {"AmbienceFile", "sounds/ambience.wav"},
                           {"Attract.dir", "attracts"},
                           {"MenuType", number % 2 == 0 ? "ListView" : "ImageBrowser"},
                           {"FavouriteKey", "77", "Extras"},
                           {"SaveOnChange", "1", "Extras"}});
    cabinet.writeEmulator(number % 4 == 0 ? unresponsiveEmulator : "sleep 0.3");
    const int settingLines = static_cast<int>(std::ranges::count(cabinet.read("kestravox.ini"), '\n'));
    cabinet.startFrontEnd();
    const auto start = Clock::now();
    const int moment = randomBelow(4000);
    while (millisecondsSince(start) + 60 < moment) {
        cabinet.screen().tap(keys[static_cast<std::size_t>(randomBelow(keys.size()))], 20 + randomBelow(20));
        pauseFor(std::min(randomBelow(200), std::max(moment - millisecondsSince(start), 0)));
    }
    cabinet.frontEnd().signal(SIGTERM);
    ++outcome.runs;
    const std::string where = "moment " + std::to_string(number) + ", " + std::to_string(moment) + " ms";
    const auto code = measureEnd(cabinet, childLimit, outcome);
    // At first the signal has its default action, and before the first frame the end is a failed start.
    const bool isEarly = code && (*code == 128 + SIGTERM || *code == 1) && moment < 1500;
    const std::string ini = cabinet.read("kestravox.ini");
    if (!code || (*code != 0 && !isEarly)) {
        outcome.fail(where, code ? "ends with code " + std::to_string(*code) : "does not end");
    } else if (!ini.ends_with('\n') || std::ranges::count(ini, '\n') < settingLines) {
        outcome.fail(where, "the settings are damaged");
    } else if (*code == 0 && ini.find("MaxCoins=") == std::string::npos) {
        outcome.fail(where, "the settings are not saved");
    } else if (const std::string what = remains(cabinet); !what.empty()) {
        outcome.fail(where, what);
    }
    cabinet.clear();
}

// --- Kills while marks are written ---

std::set<std::string> marksOnDisk(const SoakCabinet& cabinet, bool& isWhole) {
    const std::string text = cabinet.read("favourites.dat");
    isWhole = text.empty() || text.ends_with('\n');
    std::istringstream lines(text);
    std::set<std::string> marks;
    for (std::string line; std::getline(lines, line);) {
        isWhole = marks.insert(line).second && isWhole;
    }
    return marks;
}

std::size_t differences(const std::set<std::string>& one, const std::set<std::string>& other) {
    std::vector<std::string> names;
    std::ranges::set_symmetric_difference(one, other, std::back_inserter(names));
    return names.size();
}

// Marks games and moves on until the time is over. Returns the marks that were seen in the file; one more key
// may have been pressed.
std::set<std::string> markUntil(SoakCabinet& cabinet, Clock::time_point end, const std::string& where,
                                long& changes, Outcome& outcome) {
    bool isWhole = true;
    std::set<std::string> seen = marksOnDisk(cabinet, isWhole);
    while (Clock::now() < end) {
        cabinet.screen().tap("m", 30);
        const auto pressed = Clock::now();
        std::set<std::string> found = seen;
        while (Clock::now() < end && found == seen) {
            found = marksOnDisk(cabinet, isWhole);
            if (millisecondsSince(pressed) > 5000) {
                outcome.fail(where, "a press of the key has no effect");
                return seen;
            }
        }
        if (!isWhole || differences(found, seen) > 1) {
            outcome.fail(where, "favourites.dat is damaged while it is written");
        }
        if (found == seen) {
            break;
        }
        ++changes;
        seen = found;
        if (Clock::now() < end) {
            cabinet.screen().tap(randomBelow(2) == 0 ? "Down" : "Up", 30);
        }
    }
    return seen;
}

void killWhileMarking(SoakCabinet& cabinet, int number, long& changes, Outcome& outcome) {
    const std::string where = "kill " + std::to_string(number);
    cabinet.startScreen();
    cabinet.startFrontEnd();
    ++outcome.runs;
    if (!cabinet.waitForGames()) {
        outcome.fail(where, "the list is not shown");
        return;
    }
    const auto end = Clock::now() + std::chrono::milliseconds(randomBelow(1500));
    const std::set<std::string> seen = markUntil(cabinet, end, where, changes, outcome);
    cabinet.frontEnd().signal(SIGKILL);
    cabinet.frontEnd().waitForExit(endLimit);
    bool isWhole = true;
    const std::set<std::string> found = marksOnDisk(cabinet, isWhole);
    if (!isWhole || differences(found, seen) > 1) {
        outcome.fail(where, "a mark is lost");
    }
    if (cabinet.setting("SelectedGame").empty()) {
        outcome.fail(where, "the settings are damaged");
    }
}

long killRepeatedly(SoakCabinet& cabinet, int kills, Outcome& outcome) {
    long changes = 0;
    cabinet.writeSettings({{"AmbienceFile", ""},
                           {"Attract.dir", ""},
                           {"SelectedGame", firstGame},
                           {"FavouriteKey", "77", "Extras"},
                           {"SaveOnChange", "1", "Extras"}});
    for (int number = 1; number <= kills; ++number) {
        killWhileMarking(cabinet, number, changes, outcome);
    }
    cabinet.clear();
    return changes;
}

// --- Emulators ---

struct Misbehaviour {
    const char* name;
    const char* script;
};

// After each the list must be back as it was, with the focus.
constexpr Misbehaviour misbehaviours[] = {
    {"ignores SIGTERM", "trap '' TERM INT HUP; touch running; sleep 1.5"},
    {"leaves a child that draws and has the focus",
     "'" DEMO_MAME_PATH "' outorder -seconds 4 & touch running; sleep 2"},
    {"leaves a child in its own session", "setsid sleep 3 & touch running; sleep 1.2"},
    {"closes its standard streams", "exec 0<&- 1>&- 2>&-; touch running; sleep 1.2"},
    {"kills its process group", "touch running; sleep 1.2; kill -KILL 0"},
    {"changes the video mode", "xrandr --output screen --off --fb 320x240; touch running; sleep 1.5; "
                               "xrandr --fb 640x480 --output screen --mode 640x480"},
    {"leaves another video mode", "xrandr --output screen --off --fb 320x240; touch running; sleep 1.2"},
    {"changes the keyboard", "xset r off; setxkbmap fr; touch running; sleep 1.2; setxkbmap us"},
};

void tryMisbehaviour(SoakCabinet& cabinet, const Misbehaviour& emulator, Outcome& outcome) {
    cabinet.startScreen();
    cabinet.writeSettings({{"Mame.exe", cabinet.path("emulator")},
                           {"SelectedGame", firstGame},
                           {"AmbienceFile", ""},
                           {"Attract.dir", ""}});
    cabinet.writeEmulator(emulator.script);
    cabinet.startFrontEnd();
    ++outcome.runs;
    const std::string where = std::string("emulator that ") + emulator.name;
    const bool shown = cabinet.waitForGames();
    const Screenshot list = cabinet.screen().settled();
    const auto isList = [&](const Screenshot& shot) { return shot == list; };
    if (!shown || !startGame(cabinet)) {
        outcome.fail(where, "the game is not started");
    } else if (!cabinet.screen().waitForFocus("KESTRAVOX", 8000)) {
        outcome.fail(where, "the focus is not back");
    } else if (!cabinet.screen().waitFor(isList, 8000)) {
        outcome.fail(where, "the list is not back");
    } else if (!pressAndWait(cabinet, "Down")) {
        outcome.fail(where, "the keys have no effect");
    }
    cabinet.frontEnd().signal(SIGTERM);
    if (measureEnd(cabinet, endLimit, outcome) != 0) {
        outcome.fail(where, "does not end");
    }
    cabinet.clear();
    cabinet.endScreen();
}

// --- The clock ---

void startWithSteppingClock(SoakCabinet& cabinet, const std::vector<SettingChange>& more, Outcome& outcome) {
    cabinet.startScreen();
    std::vector<SettingChange> settings = {{"Mame.exe", cabinet.path("emulator")},
                                           {"SelectedGame", firstGame},
                                           {"AmbienceFile", "sounds/ambience.wav"}};
    settings.insert(settings.end(), more.begin(), more.end());
    cabinet.writeSettings(settings);
    cabinet.writeEmulator("touch running; sleep 1");
    cabinet.startFrontEnd(STEPPING_CLOCK_PATH);
    ++outcome.runs;
}

void endWithSteppingClock(SoakCabinet& cabinet, const char* where, Outcome& outcome) {
    cabinet.frontEnd().signal(SIGTERM);
    if (measureEnd(cabinet, endLimit, outcome) != 0) {
        outcome.fail(where, "does not end");
    }
    cabinet.clear();
    cabinet.endScreen();
}

bool stepsAreShownSoon(SoakCabinet& cabinet) {
    constexpr int steps = 20;
    constexpr int limit = 1000; // milliseconds
    for (int step = 0; step < steps; ++step) {
        const auto start = Clock::now();
        if (!pressAndWait(cabinet, step % 4 == 3 ? "Up" : "Down") || millisecondsSince(start) > limit) {
            return false;
        }
    }
    return true;
}

// The list, saving, a game, and attract play after some seconds without a key.
void tryKeysWithSteppingClock(SoakCabinet& cabinet, Outcome& outcome) {
    constexpr const char* where = "keys";
    constexpr int idleTime = 4000;
    startWithSteppingClock(cabinet,
                           {{"Attract.dir", ""},
                            {"SaveOnChange", "1", "Extras"},
                            {"IdleSeconds", std::to_string(idleTime / 1000), "Extras"}},
                           outcome);
    if (!cabinet.waitForGames() || !stepsAreShownSoon(cabinet)) {
        outcome.fail(where, "no effect");
    }
    pauseFor(2000);
    if (cabinet.setting("SelectedGame") == firstGame) {
        outcome.fail(where, "the settings are not saved");
    }
    if (!startGame(cabinet) || !cabinet.screen().waitForFocus("KESTRAVOX", 8000)) {
        outcome.fail(where, "the game is not started, or the focus is not back");
    }
    pauseFor(1500);
    const Screenshot list = cabinet.screen().settled();
    const auto start = Clock::now();
    if (!cabinet.waitForChange(list) || millisecondsSince(start) > idleTime) {
        outcome.fail(where, "attract play does not start in time");
    }
    endWithSteppingClock(cabinet, where, outcome);
}

// A movie goes on through all the steps.
void tryMovieWithSteppingClock(SoakCabinet& cabinet, Outcome& outcome) {
    constexpr const char* where = "movie";
    startWithSteppingClock(cabinet, {{"Attract.dir", "attracts"}}, outcome);
    if (!cabinet.waitForGames() || !cabinet.screen().waitFor(showsMovie, 8000)) {
        outcome.fail(where, "it is not shown");
    }
    const auto start = Clock::now();
    bool moves = true;
    while (moves && millisecondsSince(start) < 8000) {
        const Screenshot former = cabinet.screen().capture();
        moves = cabinet.screen().waitFor([&](const Screenshot& shot) { return shot != former; }, 1000);
    }
    if (!moves) {
        outcome.fail(where, "it stands still");
    }
    endWithSteppingClock(cabinet, where, outcome);
}

} // namespace

int main(int argc, char** argv) {
    const int moments = argc > 1 ? std::atoi(argv[1]) : 500;
    std::signal(SIGHUP, SIG_DFL); // a program started with nohup would pass on that it is ignored
    randomNumbers.seed(argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1);
    SoakCabinet cabinet;
    cabinet.writeList();
    bool good = tryStates(cabinet, moments < 100);
    Outcome atMoments;
    for (int number = 1; number <= moments; ++number) {
        tryMoment(cabinet, number, atMoments);
    }
    good = report("random moments", atMoments) && good;
    Outcome atKills;
    const long changes = killRepeatedly(cabinet, std::max(moments / 5, 1), atKills);
    good = report("kills", atKills) && changes > 0 && good;
    std::printf("%ld marks changed\n", changes);
    Outcome withEmulators;
    for (const Misbehaviour& emulator : misbehaviours) {
        tryMisbehaviour(cabinet, emulator, withEmulators);
    }
    good = report("misbehaving emulators", withEmulators) && good;
    Outcome withClock;
    tryKeysWithSteppingClock(cabinet, withClock);
    tryMovieWithSteppingClock(cabinet, withClock);
    return report("stepping clock", withClock) && good ? 0 : 1;
}
