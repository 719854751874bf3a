// demo-tour FRONTEND CABINET OUTPUT: shows the front end at work where there is no display. It walks through
// the cabinet on a virtual screen as a player would, at each rotation of the screen, and leaves pictures in
// the folder OUTPUT.

#include "cabinet.h"
#include "games.h"
#include "virtual_screen.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <span>
#include <thread>

namespace {

namespace fs = std::filesystem;

constexpr int ScreenWidth = 1280;
constexpr int ScreenHeight = 1024;
constexpr const char* FrontEndTitle = "KESTRAVOX";
constexpr std::string_view PlayedGame = "ueberkff";

constexpr int StartLimit = 15000; // milliseconds, the game list is made within them
constexpr int StepLimit = 4000;
constexpr int GameLimit = 10000;
constexpr int ExitLimit = 5000;

// One key of the walk, and the picture it leads to.
struct Stop {
    const char* key;
    int times;
    const char* picture; // file name, or null for a step on the way
    int pause = 0;       // milliseconds for which the front end then listens to no key
};

constexpr int PopupPause = 700;

constexpr Stop ListWalk[] = {
    {"Control_L", 1, "information"},
    {"Down", 4, "information-scrolled"},
    {"Control_L", 1, nullptr, PopupPause},
    {"2", 1, "options"},
    {"Down", 2, "options-third-line"},
    {"Escape", 1, nullptr, PopupPause},
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

// The picture cycle begins with the game that has all pictures. F is a key of player 2.
constexpr Stop BrowserWalk[] = {
    {"Shift_L", 1, "flyer"},   {"Shift_L", 1, "title"},   {"Shift_L", 1, "cabinet"}, {"Shift_L", 1, nullptr},
    {"Down", 3, "three-down"}, {"Right", 1, "page-down"}, {"f", 1, "player-2"},      {"Down", 1, "player-1"},
};

constexpr Stop TurnedListWalk[] = {{"Control_L", 1, "information"},
                                   {"Control_L", 1, nullptr, PopupPause},
                                   {"2", 1, "options"},
                                   {"Escape", 1, nullptr, PopupPause},
                                   {"Shift_L", 1, "flyer"},
                                   {"Down", 2, "two-down"}};
constexpr Stop TurnedBrowserWalk[] = {{"Down", 2, "two-down"}};

// One run of the front end.
struct Run {
    const char* orientation; // as the settings file has it
    const char* view;
    const char* picture;
    std::span<const Stop> walk;
    bool withGame = false;
};

constexpr Run Runs[] = {
    {"Normal", "ListView", "upright-list", ListWalk, true},
    {"Normal", "ImageBrowser", "upright-browser", BrowserWalk},
    {"ROR", "ListView", "turned-right-list", TurnedListWalk},
    {"ROR", "ImageBrowser", "turned-right-browser", TurnedBrowserWalk},
    {"ROL", "ListView", "turned-left-list", TurnedListWalk},
    {"ROL", "ImageBrowser", "turned-left-browser", TurnedBrowserWalk},
    {"Inverted", "ListView", "upside-down-list", TurnedListWalk},
    {"Inverted", "ImageBrowser", "upside-down-browser", TurnedBrowserWalk},
};

class Tour {
public:
    Tour(fs::path frontEndPath, fs::path cabinetPath, fs::path outputPath)
        : frontEnd(std::move(frontEndPath)), cabinet(std::move(cabinetPath)), output(std::move(outputPath)) {}

    bool play() {
        std::string problem;
        screen = VirtualScreen::start(ScreenWidth, ScreenHeight, problem);
        if (screen == nullptr)
            return fail(problem);
        for (const Run& run : Runs) {
            if (!play(run))
                return false;
        }
        return true;
    }

private:
    bool fail(const std::string& what) {
        std::fprintf(stderr, "demo-tour: %s\n", what.c_str());
        if (screen != nullptr) {
            std::string path = (output / "failed.png").string();
            screen->capture().writePng(path);
            std::fprintf(stderr, "demo-tour: the screen at that moment: %s\n", path.c_str());
        }
        return false;
    }

    bool keep(const Screenshot& shot, const std::string& name) {
        std::string number = std::to_string(++pictures);
        number.insert(0, number.size() < 2 ? 1 : 0, '0');
        std::string path = (output / (number + "-" + name + ".png")).string();
        if (!shot.writePng(path))
            return fail("cannot write " + path);
        std::printf("%s\n", path.c_str());
        std::fflush(stdout);
        return true;
    }

    // With settings of its own, so that those of the cabinet stay as they are. A movie would never stand
    // still for its picture.
    bool play(const Run& run) {
        fs::path ini = cabinet / "tour.ini";
        std::string problem;
        std::string settings = cabinetSettings({{"Orientation", run.orientation},
                                                {"MenuType", run.view},
                                                {"SelectedGame", std::string(PlayedGame)},
                                                {"InvertPlayer2Screen", "1"},
                                                {"Attract.dir", "none"},
                                                {"Startup", ""},
                                                {"Shutdown", ""}});
        if (!writeTextFile(ini.string(), settings, problem))
            return fail(problem);
        ChildOptions options;
        options.words = {frontEnd.string(), ini.filename().string()};
        options.folder = cabinet.string();
        options.environment = {screen->environment(), "SDL_VIDEODRIVER=x11", "SDL_AUDIODRIVER=dummy"};
        ChildProgram program(options);
        bool played = play(run, program);
        std::error_code error;
        fs::remove(ini, error);
        return played;
    }

    bool play(const Run& run, ChildProgram& program) {
        if (!waitForView(program) || !keep(screen->settled(), run.picture))
            return false;
        if (run.withGame && !playGame(program))
            return false;
        for (const Stop& stop : run.walk) {
            if (!take(stop, run))
                return false;
        }
        screen->tap("Escape");
        std::optional<int> code = program.waitForExit(ExitLimit);
        if (!code)
            return fail("the front end did not end on Escape");
        return *code == 0 || fail("the front end ended with exit code " + std::to_string(*code));
    }

    // The view stands when the bar behind the selected title, or the ring around its marquee, is on the
    // screen.
    bool waitForView(ChildProgram& program) {
        constexpr std::uint32_t Bar = 0xBC1454;
        bool shown = screen->waitFor(
            [&](const Screenshot& shot) {
                return !program.running() || shot.countColour(shot.whole(), Bar) > ScreenWidth * 4;
            },
            StartLimit);
        if (!program.running())
            return fail("the front end ended before it showed anything");
        if (!shown)
            return fail("the games did not appear");
        return screen->waitForFocus(FrontEndTitle, StepLimit) ||
               fail("the front end has not got the keyboard");
    }

    bool take(const Stop& stop, const Run& run) {
        for (int i = 0; i < stop.times; ++i) {
            Screenshot before = screen->capture();
            screen->tap(stop.key);
            if (!screen->waitFor([&](const Screenshot& shot) { return shot != before; }, StepLimit))
                return fail("the key " + std::string(stop.key) + " changed nothing");
        }
        Screenshot shot = screen->settled(150);
        std::this_thread::sleep_for(std::chrono::milliseconds(stop.pause));
        return stop.picture == nullptr || keep(shot, std::string(run.picture) + "-" + stop.picture);
    }

    bool playGame(ChildProgram& program) {
        std::string title(findDemoGame(PlayedGame)->description);
        screen->tap("1");
        if (!screen->waitForFocus(title, GameLimit))
            return fail("the game did not come up with the keyboard");
        std::this_thread::sleep_for(std::chrono::milliseconds(1800));
        if (!keep(screen->capture(), "game-running"))
            return false;
        screen->tap("Escape");
        if (!screen->waitForFocus(FrontEndTitle, GameLimit) || !program.running())
            return fail("the front end was not back after the game");
        if (!keep(screen->capture(), "back-from-the-game"))
            return false;
        // The front end lets a second pass before it listens again.
        std::this_thread::sleep_for(std::chrono::milliseconds(1500));
        return keep(screen->settled(), "list-after-the-game");
    }

    fs::path frontEnd;
    fs::path cabinet;
    fs::path output;
    std::unique_ptr<VirtualScreen> screen;
    int pictures = 0;
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
