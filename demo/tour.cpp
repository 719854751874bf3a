// SPDX-License-Identifier: GPL-3.0-or-later
// demo-tour FRONTEND CABINET OUTPUT: demonstrates the front end on a machine without a display. It operates
// the cabinet on a virtual screen with key presses, at each rotation of the screen, and saves screenshots in
// the folder OUTPUT.

#include "cabinet.h"
#include "games.h"
#include "virtual_screen.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <span>
#include <string_view>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int screenWidth = 1280;
constexpr int screenHeight = 1024;
constexpr const char* frontEndTitle = "KESTRAVOX";
constexpr std::string_view playedGame = "ueberkff";

constexpr int startLimit = 15000; // milliseconds, including the creation of the game list
constexpr int stepLimit = 4000;
constexpr int idleLimit = 15000; // until attract play has begun
constexpr int gameLimit = 10000;
constexpr int exitLimit = 5000;

// A key to press, and the screenshot to save after it. Without a key, the picture changes by itself.
struct Stop {
    const char* key;
    int times;
    const char* picture; // file name of the screenshot, or null for none
    int pause = 0;       // milliseconds during which the front end then ignores keys
};

constexpr int popupPause = 700;

constexpr Stop listWalk[] = {
    {"Control_L", 1, "information"},
    {"Down", 4, "information-scrolled"},
    {"Control_L", 1, nullptr, popupPause},
    {"2", 1, "options"},
    {"Down", 2, "options-third-line"},
    {"Escape", 1, nullptr, popupPause},
    {"Down", 3, "three-down"},
    {"Up", 1, nullptr},
    {"Right", 1, "page-down"},
    {"Left", 1, nullptr},
    {"x", 1, "jump-to-the-last"},
    {"space", 1, "jump-back"},
    {"z", 1, "sorted-by-year"},
    {"z", 1, "sorted-by-manufacturer"},
    {"z", 1, "sorted-by-title"},
    {"Alt_L", 1, "random-pick"},
};

// The first picture cycle starts at a game that has all pictures. F is a key of player 2.
constexpr Stop browserWalk[] = {
    {"Shift_L", 1, "flyer"},   {"Shift_L", 1, "title"},   {"Shift_L", 1, "cabinet"}, {"Shift_L", 1, nullptr},
    {"Down", 3, "three-down"}, {"Right", 1, "page-down"}, {"f", 1, "player-2"},      {"Down", 1, "player-1"},
};

constexpr Stop turnedListWalk[] = {{"Control_L", 1, "information"},
                                   {"Control_L", 1, nullptr, popupPause},
                                   {"2", 1, "options"},
                                   {"Escape", 1, nullptr, popupPause},
                                   {"Shift_L", 1, "flyer"},
                                   {"Down", 2, "two-down"}};
constexpr Stop turnedBrowserWalk[] = {{"Down", 2, "two-down"}};

// The keys are those of extrasOn.
constexpr Stop extrasWalk[] = {
    {"Control_L", 1, nullptr},
    {"Down", 11, "history"},
    {"Control_L", 1, nullptr, popupPause},
    {"m", 1, "favourite"},
    {"n", 1, "next-letter"},
    {"m", 1, nullptr},
    {"b", 1, "previous-letter"},
    {"o", 1, "favourites-only"},
    {"2", 1, nullptr},
    {"Up", 1, "option-for-favourites"},
    {"Escape", 1, nullptr, popupPause},
    {"o", 1, nullptr},
    {nullptr, 1, "attract-play"},
};

// One run of the front end.
struct Run {
    const char* orientation; // value of the setting Orientation
    const char* view;
    const char* picture;
    std::span<const Stop> walk;
    bool withGame = false;
    std::span<const SettingChange> changes = {};
};

const std::vector<SettingChange> extrasOn = {
    {"FavouriteKey", "77", "Extras"},
    {"FavouritesOnlyKey", "79", "Extras"},
    {"NextLetterKey", "78", "Extras"},
    {"PreviousLetterKey", "66", "Extras"},
    {"History.xml", "history.xml", "Extras"},
    {"IdleSeconds", "8", "Extras"},
    {"IdleStep", "3", "Extras"},
};
const std::vector<SettingChange> fixedLayout = {{"Layout", "Fixed"}};
const std::vector<SettingChange> noRoms = {{"Roms.dir", "roms/empty"}};

const Run runs[] = {
    {"Normal", "ListView", "upright-list", listWalk, true},
    {"Normal", "ImageBrowser", "upright-browser", browserWalk},
    {"ROR", "ListView", "turned-right-list", turnedListWalk},
    {"ROR", "ImageBrowser", "turned-right-browser", turnedBrowserWalk},
    {"ROL", "ListView", "turned-left-list", turnedListWalk},
    {"ROL", "ImageBrowser", "turned-left-browser", turnedBrowserWalk},
    {"Inverted", "ListView", "upside-down-list", turnedListWalk},
    {"Inverted", "ImageBrowser", "upside-down-browser", turnedBrowserWalk},
    {"Normal", "ListView", "extras", extrasWalk, false, extrasOn},
    {"Normal", "ListView", "no-games", {}, false, noRoms},
    {"ROR", "ListView", "fixed-layout-list", {}, false, fixedLayout},
    {"ROR", "ImageBrowser", "fixed-layout-browser", {}, false, fixedLayout},
};

class Tour {
public:
    Tour(fs::path frontEndPath, fs::path cabinetPath, fs::path outputPath)
        : frontEnd_(std::move(frontEndPath)), cabinet_(std::move(cabinetPath)),
          output_(std::move(outputPath)) {}

    bool play() {
        std::string problem;
        screen_ = VirtualScreen::start(screenWidth, screenHeight, problem);
        if (!screen_) {
            return fail(problem);
        }
        for (const Run& run : runs) {
            if (!play(run)) {
                return false;
            }
        }
        return true;
    }

private:
    bool fail(const std::string& what) {
        std::fprintf(stderr, "demo-tour: %s\n", what.c_str());
        if (screen_) {
            std::string path = (output_ / "failed.png").string();
            screen_->capture().writePng(path);
            std::fprintf(stderr, "demo-tour: the screen at that moment: %s\n", path.c_str());
        }
        return false;
    }

    bool keep(const Screenshot& shot, const std::string& name) {
        std::string number = std::to_string(++pictures_);
        number.insert(0, number.size() < 2 ? 1 : 0, '0');
        std::string path = (output_ / (number + "-" + name + ".png")).string();
        if (!shot.writePng(path)) {
            return fail("cannot write " + path);
        }
        std::printf("%s\n", path.c_str());
        std::fflush(stdout);
        return true;
    }

    // With separate settings, so that those of the cabinet do not change. Without movies, which would keep
    // the screen from becoming still.
    bool play(const Run& run) {
        fs::path ini = cabinet_ / "tour.ini";
        std::string problem;
        std::vector<SettingChange> changes = {{"Orientation", run.orientation},
                                              {"MenuType", run.view},
                                              {"SelectedGame", std::string(playedGame)},
                                              {"InvertPlayer2Screen", "1"},
                                              {"Attract.dir", "none"},
                                              {"Startup", ""},
                                              {"Shutdown", ""}};
        changes.insert(changes.end(), run.changes.begin(), run.changes.end());
        if (!writeTextFile(ini.string(), cabinetSettings(changes), problem)) {
            return fail(problem);
        }
        ChildOptions options;
        options.words = {frontEnd_.string(), ini.filename().string()};
        options.folder = cabinet_.string();
        options.environment = {screen_->environment(), "SDL_VIDEODRIVER=x11", "SDL_AUDIODRIVER=dummy"};
        ChildProgram program(options);
        bool played = play(run, program);
        std::error_code error;
        fs::remove(ini, error);
        fs::remove(cabinet_ / "favourites.dat", error);
        return played;
    }

    bool play(const Run& run, ChildProgram& program) {
        const bool hasGames = run.changes.data() != noRoms.data();
        if (!(hasGames ? waitForView(program) : waitForKeyboard()) ||
            !keep(screen_->settled(), run.picture)) {
            return false;
        }
        if (run.withGame && !playGame(program)) {
            return false;
        }
        for (const Stop& stop : run.walk) {
            if (!take(stop, run)) {
                return false;
            }
        }
        if (!run.walk.empty() && !run.walk.back().key) {
            // The first key ends attract play, and does nothing else until it is released.
            screen_->tap("Escape");
            std::this_thread::sleep_for(std::chrono::milliseconds(popupPause));
        }
        screen_->tap("Escape");
        std::optional<int> code = program.waitForExit(exitLimit);
        if (!code) {
            return fail("the front end did not end on Escape");
        }
        return *code == 0 || fail("the front end ended with exit code " + std::to_string(*code));
    }

    // The view is complete when the highlight of the selected title, or the ring around its marquee, is on
    // the screen.
    bool waitForView(ChildProgram& program) {
        constexpr std::uint32_t bar = 0xBC1454;
        bool shown = screen_->waitFor(
            [&](const Screenshot& shot) {
                return !program.running() || shot.countColour(shot.whole(), bar) > screenWidth * 4;
            },
            startLimit);
        if (!program.running()) {
            return fail("the front end ended before it showed anything");
        }
        if (!shown) {
            return fail("the games did not appear");
        }
        return waitForKeyboard();
    }

    bool waitForKeyboard() {
        return screen_->waitForFocus(frontEndTitle, startLimit) ||
               fail("the front end has not got the keyboard");
    }

    bool take(const Stop& stop, const Run& run) {
        for (int i = 0; i < stop.times; ++i) {
            Screenshot before = screen_->capture();
            bool changed = false;
            // The random pick may return the game that is selected already.
            const int attempts = stop.key && std::string_view(stop.key) == "Alt_L" ? 3 : 1;
            for (int attempt = 0; attempt < attempts && !changed; ++attempt) {
                if (stop.key) {
                    screen_->tap(stop.key);
                }
                changed = screen_->waitFor([&](const Screenshot& shot) { return shot != before; },
                                           stop.key ? stepLimit : idleLimit);
            }
            if (!changed) {
                return fail(stop.key ? "the key " + std::string(stop.key) + " changed nothing"
                                     : std::string("the picture did not change by itself"));
            }
        }
        Screenshot shot = screen_->settled(150);
        std::this_thread::sleep_for(std::chrono::milliseconds(stop.pause));
        return !stop.picture || keep(shot, std::string(run.picture) + "-" + stop.picture);
    }

    bool playGame(ChildProgram& program) {
        std::string title(findDemoGame(playedGame)->description);
        screen_->tap("1");
        if (!screen_->waitForFocus(title, gameLimit)) {
            return fail("the game did not come up with the keyboard");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1800));
        if (!keep(screen_->capture(), "game-running")) {
            return false;
        }
        screen_->tap("Escape");
        if (!screen_->waitForFocus(frontEndTitle, gameLimit) || !program.running()) {
            return fail("the front end was not back after the game");
        }
        if (!keep(screen_->capture(), "back-from-the-game")) {
            return false;
        }
        // The front end ignores keys for a second after a game.
        std::this_thread::sleep_for(std::chrono::milliseconds(1500));
        return keep(screen_->settled(), "list-after-the-game");
    }

    fs::path frontEnd_;
    fs::path cabinet_;
    fs::path output_;
    std::unique_ptr<VirtualScreen> screen_;
    int pictures_ = 0;
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: demo-tour FRONTEND CABINET OUTPUT\n", stderr);
        return 2;
    }
    std::error_code error;
    fs::path output = fs::absolute(argv[3], error);
    fs::create_directories(output, error);
    if (error) {
        std::fprintf(stderr, "demo-tour: cannot make the folder %s\n", argv[3]);
        return 1;
    }
    fs::remove(output / "failed.png", error);
    Tour tour(fs::absolute(argv[1]), fs::absolute(argv[2]), output);
    return tour.play() ? 0 : 1;
}
