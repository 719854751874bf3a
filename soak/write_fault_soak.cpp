// SPDX-License-Identifier: GPL-3.0-or-later
// Lets each call fail once that opens, writes, flushes, renames or closes a file of the cabinet, and checks
// that the front end goes on and ends normally, that every file holds a former or a later text, and that the
// next run removes what was left over. The front end runs on virtual time. Usage: `write_fault_soak
// [STRIDE]`: only every STRIDE-th call fails, 1 by default.
#include "catalogue/game_catalogue.h"
#include "failing_calls.h"
#include "support/front_end.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <optional>
#include <set>
#include <sstream>
#include <string>

namespace {

constexpr int gameTotal = 40;
constexpr const char* markedBefore = "g030";
// The first ones are those of the files that each run writes.
constexpr int savedFiles = 2;
constexpr const char* temporaryFiles[] = {"kestravox.ini.new~", "favourites.dat.new~", "listinfo.dat.new~",
                                          "listinfo.xml.new~",  "listinfo.new.new~",   "listinfo.stamp.new~"};

// What a child process reports about its run, in memory that both share.
struct Report {
    const char* failedCall; // of the same program, so the address is valid in both
    bool marksDiffer;       // between the file and the records
};

Report* report = nullptr;

std::string wholeList; // as xml2info writes it

struct Scenario {
    const char* name;
    bool hasLeftovers; // temporary files of an earlier run
    bool hasList;
    bool refreshesList;
};

constexpr Scenario scenarios[] = {
    {"settings and favourites", false, true, false},
    {"the same beside leftovers", true, true, false},
    {"a first list", false, false, false},
    {"a list made anew", false, true, true},
};

// Returns the names in the file; nothing when a line is cut off or the comment is missing.
std::optional<std::set<std::string>> marksOnDisk(const FrontEnd& frontEnd) {
    const std::string text = frontEnd.folder().read("favourites.dat");
    std::istringstream lines(text);
    std::string line;
    if (!text.ends_with('\n') || !std::getline(lines, line) || line != "; kept") {
        return std::nullopt;
    }
    std::set<std::string> marks;
    while (std::getline(lines, line)) {
        marks.insert(line);
    }
    return marks;
}

void compareMarks(const FrontEnd& frontEnd) {
    std::set<std::string> shown;
    for (std::int32_t game = 0; game < gameCount; ++game) {
        if (allGames[game]->isFavourite) {
            shown.insert(allGames[game]->name);
        }
    }
    report->marksDiffer = marksOnDisk(frontEnd) != shown;
}

// What the emulator writes.
std::string listXml() {
    std::string xml = "<mame>\n";
    for (int game = 0; game < gameTotal; ++game) {
        const std::string name = "g" + std::to_string(1000 + game).substr(1);
        xml += "<machine name=\"" + name + "\"><description>Title of " + name +
               "</description><year>1985</year><manufacturer>Maker</manufacturer></machine>\n";
    }
    return xml + "</mame>\n";
}

void prepare(FrontEnd& frontEnd, const Scenario& scenario) {
    frontEnd.folder().write("emulator", "#!/bin/sh\ncat \"${0%/*}/games.xml\"\n");
    std::filesystem::permissions("emulator", std::filesystem::perms::owner_all);
    frontEnd.folder().write("games.xml", listXml());
    if (scenario.hasList) {
        frontEnd.folder().write("listinfo.dat", wholeList);
    }
    frontEnd.folder().write("favourites.dat", std::string("; kept\n") + markedBefore + "\n");
    frontEnd.set("Settings", "Mame.exe", "emulator");
    frontEnd.set("Settings", "Fontsize", "17");
    frontEnd.set("System", "SelectedGame", "g010");
    frontEnd.set("Extras", "FavouriteKey", "77");
    frontEnd.set("Extras", "SaveOnChange", "1");
    frontEnd.set("Extras", "RefreshList", scenario.refreshesList ? "1" : "0");
    if (scenario.hasLeftovers) {
        for (const char* name : temporaryFiles) {
            frontEnd.folder().write(name, "half");
        }
    }
}

// Marks a game, moves to the next one, marks that, and ends. Returns the status of the process.
int runOnce(FrontEnd& frontEnd, const CallFailure& failure) {
    *report = {};
    const pid_t child = fork();
    if (child == 0) {
        if (!freopen("/dev/null", "w", stderr)) {
            _exit(3);
        }
        frontEnd.restart();
        failCall(failure);
        // Not earlier than the message about a list that could not be made.
        frontEnd.tap(10150, SDL_SCANCODE_M);
        frontEnd.tap(10350, SDL_SCANCODE_DOWN);
        frontEnd.tap(12550, SDL_SCANCODE_M);
        frontEnd.at(12900, [&] {
            const CallFailure none = {};
            report->failedCall = failedCall();
            failCall(none);
            compareMarks(frontEnd);
            failCall(failure);
        });
        const int code = frontEnd.run(13150);
        report->failedCall = report->failedCall ? report->failedCall : failedCall();
        _exit(code);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

std::string withoutSelection(std::string ini) {
    const std::size_t begin = ini.find("SelectedGame=");
    return begin == std::string::npos ? "" : ini.erase(begin, ini.find('\n', begin) - begin);
}

// Returns what is wrong; null for nothing.
const char* faultIn(const FrontEnd& frontEnd, const std::string& ini, bool mayBeWithoutList) {
    const auto marks = marksOnDisk(frontEnd);
    if (!marks || !marks->contains(markedBefore)) {
        return "favourites.dat is damaged";
    }
    for (const std::string& mark : *marks) {
        if (mark != markedBefore && mark != "g010" && mark != "g011") {
            return "favourites.dat has a foreign line";
        }
    }
    if (withoutSelection(frontEnd.folder().read("kestravox.ini")) != ini) {
        return "kestravox.ini is damaged";
    }
    const std::string selected = frontEnd.get("System", "SelectedGame");
    if (selected != "g010" && selected != "g011" && selected != "g012") {
        return "the selection is lost";
    }
    const std::string list = frontEnd.folder().read("listinfo.dat");
    if (list != wholeList && !(mayBeWithoutList && list.empty())) {
        return "listinfo.dat is damaged";
    }
    return report->marksDiffer ? "favourites.dat differs from what is shown" : nullptr;
}

// Whether there is a temporary file that the next save removes.
bool hasLeftovers(const FrontEnd& frontEnd) {
    return std::any_of(temporaryFiles, temporaryFiles + savedFiles,
                       [&](const char* name) { return frontEnd.folder().has(name); });
}

// Files that no save would remove.
bool hasUnknownFiles() {
    std::set<std::string> known = {"kestravox.ini",  "favourites.dat", "listinfo.dat", "listinfo.xml",
                                   "listinfo.stamp", "listinfo.new",   "games.xml",    "emulator"};
    known.insert(std::begin(temporaryFiles), std::end(temporaryFiles));
    return std::ranges::any_of(std::filesystem::directory_iterator("."),
                               [&](const auto& entry) { return !known.contains(entry.path().filename()); });
}

struct Totals {
    int failures = 0;
    int leftovers = 0;
    int withoutList = 0;
    std::map<std::string, int> calls;
    bool reachedEnd = false;
};

// Returns what is wrong after a run with this failure and the next one without any.
const char* tryFailure(const Scenario& scenario, const CallFailure& failure, const std::string& ini,
                       Totals& totals) {
    FrontEnd frontEnd;
    prepare(frontEnd, scenario);
    frontEnd.folder().write("kestravox.ini", ini);
    const int status = runOnce(frontEnd, failure);
    totals.reachedEnd = !report->failedCall;
    if (totals.reachedEnd) {
        return nullptr;
    }
    ++totals.failures;
    ++totals.calls[report->failedCall];
    // The start fails when the list cannot be opened and no other is made.
    const bool mayFail = !scenario.hasList || scenario.refreshesList;
    if (!WIFEXITED(status) || WEXITSTATUS(status) > (mayFail ? 1 : 0)) {
        return "the front end did not end normally";
    }
    const bool started = WEXITSTATUS(status) == 0;
    totals.withoutList += started ? 0 : 1;
    if (const char* fault = faultIn(frontEnd, withoutSelection(ini), !started)) {
        return fault;
    }
    totals.leftovers += hasLeftovers(frontEnd) ? 1 : 0;
    if (hasUnknownFiles()) {
        return "there are files left over";
    }
    if (!started) {
        // An empty list is kept until somebody deletes it.
        std::filesystem::remove("listinfo.dat");
    }
    frontEnd.set("System", "SelectedGame", "g010");
    if (runOnce(frontEnd, {0, 0}) != 0) {
        return "the next start fails";
    }
    return hasLeftovers(frontEnd) ? "the next run removed no leftover" : nullptr;
}

// The settings as the front end writes them, with all keys.
std::string savedSettings(const Scenario& scenario) {
    FrontEnd frontEnd;
    prepare(frontEnd, scenario);
    runOnce(frontEnd, {0, 0});
    frontEnd.set("System", "SelectedGame", "g010");
    return frontEnd.folder().read("kestravox.ini");
}

std::string firstList() {
    FrontEnd frontEnd;
    prepare(frontEnd, {"", false, false, false});
    runOnce(frontEnd, {0, 0});
    return frontEnd.folder().read("listinfo.dat");
}

bool runScenario(const Scenario& scenario, int stride) {
    const std::string ini = savedSettings(scenario);
    Totals totals;
    bool good = true;
    for (const int error : {ENOSPC, EIO}) {
        totals.reachedEnd = false;
        for (int number = 1; !totals.reachedEnd; number += stride) {
            if (const char* fault = tryFailure(scenario, {number, error}, ini, totals)) {
                std::printf("%s, call %d (%s, error %d): %s\n", scenario.name, number, report->failedCall,
                            error, fault);
                good = false;
            }
        }
    }
    std::printf("%s: %d failures (", scenario.name, totals.failures);
    for (const auto& [name, count] : totals.calls) {
        std::printf(" %s %d", name.c_str(), count);
    }
    std::printf(" ), %d left a temporary file, %d failed starts\n", totals.leftovers, totals.withoutList);
    return good && totals.failures > 0;
}

} // namespace

int main(int argc, char** argv) {
    const int stride = argc > 1 ? std::atoi(argv[1]) : 1;
    if (stride < 1) {
        std::fputs("usage: write_fault_soak [STRIDE]\n", stderr);
        return 2;
    }
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    report =
        new (mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Report;
    wholeList = firstList();
    bool good = !wholeList.empty();
    for (const Scenario& scenario : scenarios) {
        good = runScenario(scenario, stride) && good;
    }
    return good ? 0 : 1;
}
