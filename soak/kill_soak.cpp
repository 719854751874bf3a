// SPDX-License-Identifier: GPL-3.0-or-later
// Kills the front end again and again while it marks favourites and saves changes, and checks after each kill
// that both files are whole and that nothing is lost: every mark and selection whose time had come is in its
// file. The front end runs on virtual time, so that it writes as fast as the disk allows. Usage: `kill_soak
// [KILLS]`, 300 by default.
#include "support/front_end.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>
#include <random>
#include <set>
#include <sstream>

namespace {

constexpr int gameTotal = 300;
constexpr const char* foreignLine = "; kept"; // names no game

// What a run has done so far, in memory that outlives it. An entry is written before the key is pressed; the
// count grows when the file must hold the result.
struct Journal {
    std::atomic<int> started; // runs that have shown their first picture
    std::atomic<int> marksBegun;
    std::atomic<int> marksDone;
    std::array<std::atomic<int>, 10000> marks; // indices of the games whose mark is changed
    std::atomic<int> selected;                 // saved for certain
    std::atomic<int> nextSelected;             // perhaps saved already
};

Journal* journal = nullptr;

std::string nameOf(int game) {
    return "g" + std::to_string(1000 + game).substr(1);
}

// Changes a mark, moves to the next game and waits until that is saved, for ever.
void playFrom(const FrontEnd& frontEnd, std::int64_t time, bool downwards) {
    const SDL_Scancode move = downwards ? SDL_SCANCODE_DOWN : SDL_SCANCODE_UP;
    frontEnd.at(time, [] {
        journal->marks[static_cast<std::size_t>(journal->marksBegun)] = selectedIndex;
        ++journal->marksBegun;
        pressKey(SDL_SCANCODE_M);
    });
    frontEnd.at(time + 10, [] { releaseKey(SDL_SCANCODE_M); });
    frontEnd.at(time + 150, [=] {
        journal->marksDone = journal->marksBegun.load();
        const int next = selectedIndex + (downwards ? 1 : -1);
        journal->nextSelected = std::clamp(next, 0, gameTotal - 1);
        pressKey(move);
    });
    frontEnd.at(time + 160, [=] { releaseKey(move); });
    frontEnd.at(time + 1500, [&frontEnd, time, downwards] {
        journal->selected = journal->nextSelected.load();
        playFrom(frontEnd, time + 2000, downwards);
    });
}

// Returns the marked games; nothing when a line is cut off or the foreign line is missing.
std::optional<std::set<int>> marksOnDisk(const FrontEnd& frontEnd) {
    const std::string text = frontEnd.folder().read("favourites.dat");
    std::istringstream lines(text);
    std::set<int> marks;
    bool isComplete = text.ends_with('\n');
    std::string line;
    isComplete = std::getline(lines, line) && line == foreignLine && isComplete;
    while (std::getline(lines, line)) {
        const int game = std::atoi(line.substr(std::min<std::size_t>(line.size(), 1)).c_str());
        isComplete = isComplete && line == nameOf(game) && marks.insert(game).second;
    }
    return isComplete ? std::optional(marks) : std::nullopt;
}

void toggle(std::set<int>& marks, int game) {
    if (marks.erase(game) == 0) {
        marks.insert(game);
    }
}

// Removes the one line that may differ.
std::string withoutSelection(std::string ini) {
    const std::size_t begin = ini.find("SelectedGame=");
    return begin == std::string::npos ? "" : ini.erase(begin, ini.find('\n', begin) - begin);
}

// Files besides those of the start: at most one temporary file for each of the two.
bool hasOnlyKnownFiles() {
    const std::set<std::string> known = {"kestravox.ini", "kestravox.ini.new~", "favourites.dat",
                                         "favourites.dat.new~", "listinfo.dat"};
    for (const auto& entry : std::filesystem::directory_iterator(".")) {
        if (!known.contains(entry.path().filename())) {
            return false;
        }
    }
    return true;
}

// A whole run, so that the file has all keys.
void runAndExit(FrontEnd& frontEnd) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(frontEnd.run(150));
    }
    waitpid(child, nullptr, 0);
}

// Starts the front end and kills it some time after its first picture.
void runAndKill(FrontEnd& frontEnd, int run, unsigned microseconds) {
    const pid_t child = fork();
    if (child == 0) {
        frontEnd.restart();
        frontEnd.at(90, [] { ++journal->started; });
        playFrom(frontEnd, 150, run / 10 % 2 == 0);
        FrontEnd::runToEnd();
        _exit(1);
    }
    while (journal->started <= run) {
        usleep(1000);
    }
    usleep(microseconds);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

const char* faultAfterKill(const FrontEnd& frontEnd, std::set<int>& marks, const std::string& ini) {
    for (int done = 0; done < journal->marksDone; ++done) {
        toggle(marks, journal->marks[static_cast<std::size_t>(done)]);
    }
    const std::optional<std::set<int>> found = marksOnDisk(frontEnd);
    if (!found) {
        return "favourites.dat is damaged";
    }
    if (*found != marks && journal->marksBegun > journal->marksDone) {
        toggle(marks, journal->marks[static_cast<std::size_t>(journal->marksDone)]);
    }
    if (*found != marks) {
        return "a mark is lost";
    }
    if (withoutSelection(frontEnd.folder().read("kestravox.ini")) != ini) {
        return "kestravox.ini is damaged";
    }
    const std::string selected = frontEnd.get("System", "SelectedGame");
    if (selected != nameOf(journal->selected) && selected != nameOf(journal->nextSelected)) {
        return "the selection is lost";
    }
    journal->selected =
        selected == nameOf(journal->selected) ? journal->selected.load() : journal->nextSelected.load();
    journal->nextSelected = journal->selected.load();
    return hasOnlyKnownFiles() ? nullptr : "there are files left over";
}

} // namespace

int main(int argc, char** argv) {
    const int kills = argc > 1 ? std::atoi(argv[1]) : 300;
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    journal = new (mmap(nullptr, sizeof(Journal), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
        Journal;
    FrontEnd frontEnd;
    frontEnd.writeGames(gameTotal);
    frontEnd.folder().write("favourites.dat", std::string(foreignLine) + "\n");
    frontEnd.set("System", "SelectedGame", nameOf(0));
    frontEnd.set("Extras", "FavouriteKey", "77");
    frontEnd.set("Extras", "SaveOnChange", "1");
    std::set<int> marks;
    runAndExit(frontEnd);
    const std::string ini = withoutSelection(frontEnd.folder().read("kestravox.ini"));
    std::minstd_rand random(1);
    long changes = 0;
    int leftovers = 0;
    for (int run = 0; run < kills; ++run) {
        journal->marksBegun = 0;
        journal->marksDone = 0;
        runAndKill(frontEnd, run, static_cast<unsigned>(random() % 100000));
        changes += journal->marksDone;
        leftovers +=
            frontEnd.folder().has("favourites.dat.new~") || frontEnd.folder().has("kestravox.ini.new~");
        if (const char* fault = faultAfterKill(frontEnd, marks, ini)) {
            std::printf("kill %d: %s\n", run + 1, fault);
            return 1;
        }
    }
    std::printf("%d kills, %ld changed marks, %zu marks at the end, %d kills during a write: nothing lost\n",
                kills, changes, marks.size(), leftovers);
    return 0;
}
