// demo-tour FRONTEND CABINET OUTPUT: shows the front end at work where there is no display. It walks through
// the cabinet on a virtual screen as a player would, at each rotation of the screen, and leaves pictures in
// the folder OUTPUT.

#include "cabinet.h"
#include "games.h"
#include "virtual_screen.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
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
};

constexpr Stop Walk[] = {
    {"Down", 3, "three-down"},    {"Up", 1, nullptr},
    {"Right", 1, "page-down"},    {"Left", 1, nullptr},
    {"x", 1, "jump-to-the-last"}, {"space", 1, "jump-back"},
    {"z", 1, "sorted-by-year"},   {"z", 1, "sorted-by-manufacturer"},
    {"z", 1, "sorted-by-title"},  {"Alt_L", 1, "random-pick"},
};

constexpr Stop TurnedWalk[] = {{"Down", 2, nullptr}, {"Right", 1, "page-down"}};

struct Position {
    const char* setting; // value of Orientation
    const char* picture;
    bool upright; // the long walk with a game
};

constexpr Position Positions[] = {
    {"Normal", "upright", true},
    {"ROR", "turned-right", false},
    {"ROL", "turned-left", false},
    {"Inverted", "upside-down", false},
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
        for (const Position& position : Positions) {
            if (!playPosition(position))
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

    // One run of the front end, with settings of its own, so that those of the cabinet stay as they are.
    bool playPosition(const Position& position) {
        fs::path ini = cabinet / "tour.ini";
        std::string problem;
        std::string settings =
            cabinetSettings({{"Orientation", position.setting}, {"SelectedGame", std::string(PlayedGame)}});
        if (!writeTextFile(ini.string(), settings, problem))
            return fail(problem);
        ChildOptions options;
        options.words = {frontEnd.string(), ini.filename().string()};
        options.folder = cabinet.string();
        options.environment = {screen->environment(), "SDL_VIDEODRIVER=x11"};
        ChildProgram program(options);
        bool played = playRun(program, position);
        std::error_code error;
        fs::remove(ini, error);
        return played;
    }

    bool playRun(ChildProgram& program, const Position& position) {
        if (!waitForList(program))
            return false;
        if (!keep(screen->settled(), std::string(position.picture) + "-list"))
            return false;
        if (position.upright && !playGame(program))
            return false;
        if (position.upright) {
            for (const Stop& stop : Walk) {
                if (!take(stop, position))
                    return false;
            }
        } else {
            for (const Stop& stop : TurnedWalk) {
                if (!take(stop, position))
                    return false;
            }
        }
        screen->tap("Escape");
        std::optional<int> code = program.waitForExit(ExitLimit);
        if (!code)
            return fail("the front end did not end on Escape");
        return *code == 0 || fail("the front end ended with exit code " + std::to_string(*code));
    }

    // The list stands when the bar behind the selected game is on the screen.
    bool waitForList(ChildProgram& program) {
        constexpr std::uint32_t Bar = 0xBC1454;
        bool shown = screen->waitFor(
            [&](const Screenshot& shot) {
                return !program.running() || shot.countColour(shot.whole(), Bar) > ScreenWidth * 4;
            },
            StartLimit);
        if (!program.running())
            return fail("the front end ended before it showed anything");
        if (!shown)
            return fail("the list of games did not appear");
        return screen->waitForFocus(FrontEndTitle, StepLimit) ||
               fail("the front end has not got the keyboard");
    }

    bool take(const Stop& stop, const Position& position) {
        for (int i = 0; i < stop.times; ++i) {
            Screenshot before = screen->capture();
            screen->tap(stop.key);
            if (!screen->waitFor([&](const Screenshot& shot) { return shot != before; }, StepLimit))
                return fail("the key " + std::string(stop.key) + " changed nothing");
            screen->settled(150);
        }
        if (stop.picture == nullptr)
            return true;
        return keep(screen->settled(), std::string(position.picture) + "-" + stop.picture);
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
