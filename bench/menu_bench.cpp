// What opening the options menu costs on a machine with 2,000 fonts: copies of an installed one, each with
// names of its own, behind a private configuration of the fonts.
#include "app/window_state.h"
#include "config/settings.h"
#include "overlays/menu_model.h"
#include "overlays/options_menu.h"
#include "platform/messages.h"
#include "platform/test_access.h"
#include "platform/window.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr int fontCount = 2000;
constexpr const char* sourceFont = "/usr/share/fonts/truetype/liberation/LiberationMono-Bold.ttf";

// Names stand in a font file in 16 and in 8 bits a letter.
void replaceAll(std::string& font, const std::string& from, const std::string& to) {
    for (std::size_t place = font.find(from); place != std::string::npos; place = font.find(from, place)) {
        font.replace(place, from.size(), to);
    }
}

std::string wide(const std::string& text) {
    std::string result;
    for (const char letter : text) {
        result += '\0';
        result += letter;
    }
    return result;
}

void makeFonts(const TemporaryFolder& folder) {
    std::filesystem::create_directory("fonts");
    const std::string source = folder.read(sourceFont);
    for (int number = 0; number < fontCount; ++number) {
        std::string font = source;
        std::string own = std::to_string(1'000'000'000 + number);
        own[0] = 'T';
        replaceAll(font, wide("Liberation"), wide(own));
        replaceAll(font, "Liberation", own);
        folder.write("fonts/" + own + ".ttf", font);
    }
    const std::string config = "<fontconfig><dir>" + folder.pathOf("fonts") + "</dir><cachedir>" +
                               folder.pathOf("cache") + "</cachedir></fontconfig>";
    setenv("FONTCONFIG_FILE", folder.write("fonts.conf", config).c_str(), 1);
}

// The waiting quit ends the menu as soon as it is on the screen.
void measureMenu(benchmark::State& state) {
    for ([[maybe_unused]] auto step : state) {
        PostQuitMessage(0);
        if (!showOptionsMenu()) {
            state.SkipWithError("no menu");
        }
    }
    enumerateFonts(nullptr);
    state.counters["fonts"] = fontNameCount;
    freeFontNames();
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    const TemporaryFolder folder;
    makeFonts(folder);
    setScreenSize(1280, 1024);
    iniPath = "missing.ini";
    loadSettings();
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.lpszClassName = "Main";
    RegisterClassA(&windowClass);
    mainWindow = CreateWindowExA(0, "Main", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(mainWindow, SW_MAXIMIZE);
    benchmark::RegisterBenchmark("openMenu", measureMenu)->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
