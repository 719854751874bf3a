// SPDX-License-Identifier: GPL-3.0-or-later
// Measures opening the options menu with 2,000 fonts. The fonts are copies of an installed one under
// different names, made available by a private fontconfig file.
#include "app/window_state.h"
#include "config/settings_file.h"
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

// A font file contains its names with 16 and with 8 bits per letter.
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
        std::string name = std::to_string(1'000'000'000 + number);
        name[0] = 'T';
        replaceAll(font, wide("Liberation"), wide(name));
        replaceAll(font, "Liberation", name);
        folder.write("fonts/" + name + ".ttf", font);
    }
    const std::string config = "<fontconfig><dir>" + folder.pathOf("fonts") + "</dir><cachedir>" +
                               folder.pathOf("cache") + "</cachedir></fontconfig>";
    setenv("FONTCONFIG_FILE", folder.write("fonts.conf", config).c_str(), 1);
}

// The quit message closes the menu as soon as it is displayed.
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
