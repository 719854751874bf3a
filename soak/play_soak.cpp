// SPDX-License-Identifier: GPL-3.0-or-later
// Plays at random and checks that every key has a reaction, outside the program's own delays, and that
// nothing grows. Usage: `play_soak [SECONDS] [SEED]` on virtual time, 30 days by default; `play_soak real
// [SECONDS] [SEED]` with the real program, movies and sound on a virtual screen, half an hour by default. In
// the build with the sanitizers that also checks for their reports.
#include "process_usage.h"
#include "random_play.h"
#include "real_front_end.h"
#include "support/front_end.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>
#include <random>
#include <string>

namespace {

constexpr int reactionLimit = 1000;         // milliseconds
constexpr int delaysAfterGame = 1000 + 300; // milliseconds
constexpr int delayAfterFailure = 3000;     // milliseconds
constexpr std::size_t failureInterval = 5;  // every fifth game fails

// The largest usage in each half of the run.
class UsagePeaks {
public:
    void add(const ProcessUsage& usage, bool inSecondHalf) {
        ProcessUsage& peak = peaks_[inSecondHalf ? 1 : 0];
        peak = peakOf(peak, usage);
    }

    // Prints both and returns whether the second is larger.
    bool report() const {
        printUsage("peak, first half", peaks_[0]);
        printUsage("peak, second half", peaks_[1]);
        return hasGrown(peaks_[0], peaks_[1], peaks_[0].residentKiB / 10 + (4 << 10));
    }

private:
    std::array<ProcessUsage, 2> peaks_;
};

// Plays on virtual time by scheduling one action after another.
class VirtualPlay {
public:
    VirtualPlay(std::int64_t seconds, unsigned seed) : length_(seconds * 1000), random_(seed) {}

    int run() {
        prepare();
        frontEnd_.at(2000, [this] { scheduleAction(2000); });
        const int exitCode = FrontEnd::runToEnd();
        std::printf("%ld actions, %ld probes, %ld without a reaction\n", actions_, probes_, faults_);
        const bool grown = peaks_.report();
        if (!ended_) {
            std::puts("the front end ended early");
        }
        return exitCode == 0 && ended_ && faults_ == 0 && !grown ? 0 : 1;
    }

private:
    static constexpr int longestIdleSeconds = 600;

    void prepare() {
        constexpr int games = 200;
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        setenv("SDL_AUDIODRIVER", "dummy", 1);
        frontEnd_.writeGames(games);
        for (int game = 1000; game < 1000 + games; ++game) {
            frontEnd_.addRom("g" + std::to_string(game).substr(1));
        }
        frontEnd_.set("Settings", "Mame.exe", "/bin/true");
        frontEnd_.set("Settings", "InvertPlayer2Screen", "1");
        frontEnd_.set("Extras", "IdleSeconds", std::to_string(attractIdleSeconds));
    }

    void scheduleAction(std::int64_t time) {
        if (time > length_) {
            ended_ = true;
            frontEnd_.tap(time, SDL_SCANCODE_ESCAPE);
            return;
        }
        const PlayAction action = nextAction(random_, longestIdleSeconds);
        ++actions_;
        for (const Stroke& stroke : action.strokes) {
            frontEnd_.at(time, [code = stroke.code] { pressKey(code); });
            time += stroke.heldMilliseconds;
            frontEnd_.at(time, [code = stroke.code] { releaseKey(code); });
            time += stroke.pauseMilliseconds;
        }
        time += action.settleMilliseconds + (action.startsGame ? 1000 + delaysAfterGame : 0);
        frontEnd_.at(time, [this, time, name = action.name] { probe(time, name); });
    }

    // Moves by one game, and checks that the selection follows.
    void probe(std::int64_t time, const char* action) {
        ++probes_;
        const std::int32_t before = selectedIndex;
        const SDL_Scancode key = before < visibleCount - 1 ? SDL_SCANCODE_DOWN : SDL_SCANCODE_UP;
        frontEnd_.tap(time, key);
        frontEnd_.at(time + reactionLimit, [this, time, before, action] {
            if (selectedIndex == before && visibleCount > 1) {
                ++faults_;
                std::printf("%lld ms: no reaction after: %s\n", static_cast<long long>(time), action);
            }
            peaks_.add(usageOf(getpid()), time > length_ / 2);
            scheduleAction(time + reactionLimit);
        });
    }

    FrontEnd frontEnd_;
    std::int64_t length_;
    std::minstd_rand random_;
    UsagePeaks peaks_;
    long actions_ = 0;
    long probes_ = 0;
    long faults_ = 0;
    bool ended_ = false;
};

// Plays with real key events.
class RealPlay {
public:
    RealPlay(int seconds, unsigned seed)
        : seconds_(seconds), random_(seed),
          frontEnd_("starts=$(wc -c <launches)\n" DEMO_MAME_PATH " \"$@\" -seconds 1\n"
                    "exit $((starts % 5 == 0 ? 3 : 0))",
                    {{"InvertPlayer2Screen", "1"},
                     {"IdleSeconds", std::to_string(attractIdleSeconds), "Extras"}}) {}

    int run() {
        while (elapsed() < seconds_ && frontEnd_.running()) {
            const PlayAction action = nextAction(random_, longestIdleSeconds);
            ++actions_[action.name];
            carryOut(action);
            probe(action.name);
            peaks_.add(frontEnd_.usage(), elapsed() > seconds_ / 2);
        }
        for (const auto& [name, count] : actions_) {
            std::printf("%5ld x %s\n", count, name.c_str());
        }
        std::printf("slowest reaction: %d ms; %ld later than %d ms\n", slowest_, faults_, reactionLimit);
        const bool grown = peaks_.report();
        const std::optional<int> exitCode = frontEnd_.exit();
        const std::string output = frontEnd_.output();
        const bool sanitizer = output.find("Sanitizer") != std::string::npos ||
                               output.find("runtime error") != std::string::npos;
        if (exitCode != 0 || sanitizer) {
            std::printf("exit code %d, output:\n%s\n", exitCode.value_or(-1), output.c_str());
        }
        return exitCode == 0 && !sanitizer && faults_ == 0 && !grown ? 0 : 1;
    }

private:
    static constexpr int longestIdleSeconds = 40;
    static constexpr int longestReaction = 30000; // milliseconds

    double elapsed() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }

    void carryOut(const PlayAction& action) {
        const std::size_t launches = frontEnd_.launches();
        for (const Stroke& stroke : action.strokes) {
            frontEnd_.screen().tap(stroke.name, stroke.heldMilliseconds);
            pauseFor(stroke.pauseMilliseconds);
        }
        pauseFor(action.settleMilliseconds);
        if (action.startsGame) {
            waitForGame(launches);
        }
    }

    void waitForGame(std::size_t launchesBefore) {
        for (int waited = 0; frontEnd_.launches() == launchesBefore && waited < longestReaction;
             waited += 20) {
            pauseFor(20);
        }
        while (frontEnd_.usage().children > 0) {
            pauseFor(20);
        }
        pauseFor(delaysAfterGame);
        if (frontEnd_.launches() % failureInterval == 0) {
            pauseFor(delayAfterFailure);
        }
    }

    // Moves by one game: down, or up at the end of the list. A late move down must not be mistaken for that,
    // since the move up would undo it unseen.
    void probe(const std::string& action) {
        constexpr int patience = 5 * reactionLimit;
        std::optional<int> time = frontEnd_.reaction("Down", patience);
        if (!time) {
            time = frontEnd_.reaction("Up", patience);
        }
        slowest_ = std::max(slowest_, time.value_or(patience));
        if (time && *time <= reactionLimit) {
            return;
        }
        ++faults_;
        std::printf("%.1f s: reaction after %d ms, after: %s\n", elapsed(), time.value_or(-1),
                    action.c_str());
        if (!time) {
            frontEnd_.printStacks();
            const std::optional<int> late = frontEnd_.reaction("Up", longestReaction);
            std::printf("reaction after %d ms more\n", late.value_or(-1));
        }
        std::fflush(stdout);
    }

    double seconds_;
    std::minstd_rand random_;
    RealFrontEnd frontEnd_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    UsagePeaks peaks_;
    std::map<std::string, long> actions_;
    long faults_ = 0;
    int slowest_ = 0;
};

} // namespace

int main(int argc, char** argv) {
    constexpr std::int64_t thirtyDays = 30LL * 24 * 3600;
    const bool isReal = argc > 1 && std::strcmp(argv[1], "real") == 0;
    const int first = isReal ? 2 : 1;
    const std::int64_t seconds = argc > first ? std::atoll(argv[first]) : isReal ? 1800 : thirtyDays;
    const auto seed = static_cast<unsigned>(argc > first + 1 ? std::atoi(argv[first + 1]) : 1);
    constexpr int shortest = 300; // half of it plays movies, information and games
    if (seconds < shortest) {
        std::fputs("usage: play_soak [real] [SECONDS] [SEED], at least 300 seconds\n", stderr);
        return 2;
    }
    return isReal ? RealPlay(static_cast<int>(seconds), seed).run() : VirtualPlay(seconds, seed).run();
}
