// SPDX-License-Identifier: GPL-3.0-or-later
#include "soak_cabinet.h"

#include "avi_writer.h"
#include "games.h"
#include "sounds.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <thread>

namespace {

constexpr int timeout = 15000; // milliseconds; only a hang takes longer
constexpr int screenWidth = 640;
constexpr int screenHeight = 480;
constexpr std::uint32_t listBackground = 0x0E0C22;

// White, with a dark line that moves.
std::string movie() {
    constexpr int size = 64;
    constexpr int framesPerSecond = 25;
    constexpr int seconds = 4;
    AviWriter writer({size, size, framesPerSecond, soundRate});
    for (int frame = 0; frame < seconds * framesPerSecond; ++frame) {
        std::vector<std::uint32_t> picture(size * size, 0xFFFFFF);
        std::fill_n(picture.begin() + frame % size * size, size, 0x404040);
        writer.addPicture(picture);
        writer.addSound(Samples(soundRate / framesPerSecond));
    }
    return writer.content();
}

} // namespace

SoakCabinet::SoakCabinet() {
    std::string problem;
    layOutCabinet(path(""), problem);
    std::filesystem::create_directory("sounds");
    std::filesystem::create_directory("attracts");
    layOutSounds(path("sounds"), problem);
    const std::string content = movie();
    for (const DemoGame& game : demoGames()) {
        folder_.write("attracts/" + std::string(game.name) + ".avi", content);
    }
}

std::string SoakCabinet::setting(const std::string& key) const {
    std::istringstream lines(read("kestravox.ini"));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(key + "=")) {
            return line.substr(key.size() + 1);
        }
    }
    return "";
}

void SoakCabinet::writeSettings(const std::vector<SettingChange>& changes) const {
    folder_.write("kestravox.ini", cabinetSettings(changes));
}

void SoakCabinet::writeEmulator(const char* lines) const {
    std::filesystem::remove("emulator");
    std::filesystem::remove("running");
    if (lines) {
        folder_.write("emulator", std::string("#!/bin/sh\ncd \"${0%/*}\"\n") + lines + "\n");
        std::filesystem::permissions("emulator", std::filesystem::perms::owner_all);
    }
}

void SoakCabinet::writeList() const {
    const std::string line = "'" DEMO_MAME_PATH "' -listxml | '" XML2INFO_PATH "' > listinfo.dat";
    ChildProgram converter({.words = {"/bin/sh", "-c", line}});
    converter.waitForExit(timeout);
}

void SoakCabinet::removeList() const {
    std::filesystem::remove("listinfo.dat");
    std::filesystem::remove("listinfo.xml");
}

void SoakCabinet::startScreen() {
    std::string problem;
    for (int attempt = 0; attempt < 3 && !screen_; ++attempt) {
        screen_ = VirtualScreen::start(screenWidth, screenHeight, problem);
    }
    if (!screen_) {
        std::fprintf(stderr, "%s\n", problem.c_str());
        std::exit(2);
    }
}

void SoakCabinet::startFrontEnd(const char* library) {
    ChildOptions options;
    options.words = {KESTRAVOX_PATH};
    options.environment = {screen_->environment(), "SDL_VIDEODRIVER=x11", "SDL_AUDIODRIVER=dummy",
                           "SOAK_CABINET=" + path("")};
    if (library) {
        options.environment.push_back(std::string("LD_PRELOAD=") + library);
    }
    options.outputPath = path("output");
    frontEnd_ = std::make_unique<ChildProgram>(options);
}

void SoakCabinet::clear() {
    frontEnd_.reset();
    if (screen_) {
        screen_->release("Down");
    }
    for (const pid_t process : otherProcesses()) {
        kill(process, SIGKILL);
    }
    for (const char* name : {"output", "running", "kestravox.ini.new~", "favourites.dat.new~",
                             "favourites.dat", "listinfo.dat.new~", "listinfo.xml.new~"}) {
        std::filesystem::remove(name);
    }
}

bool SoakCabinet::waitForGames() {
    const auto isShown = [](const Screenshot& shot) {
        return shot.at(screenWidth - 1, 0) == listBackground || shot.at(0, 0) == listBackground;
    };
    return screen_->waitFor([&](const Screenshot& shot) { return isShown(shot) || !frontEnd_->running(); },
                            timeout) &&
           frontEnd_->running() && screen_->waitForFocus("KESTRAVOX", timeout);
}

bool SoakCabinet::waitForChange(const Screenshot& former) {
    return screen_->waitFor([&](const Screenshot& shot) { return shot != former; }, timeout);
}

bool SoakCabinet::waitForFile(const std::string& name) const {
    for (int waited = 0; waited < timeout && !folder_.has(name); waited += 10) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return folder_.has(name);
}

std::vector<pid_t> SoakCabinet::otherProcesses() const {
    std::vector<pid_t> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const pid_t process = std::atoi(entry.path().filename().c_str());
        if (process <= 0 || process == getpid() || (frontEnd_ && process == frontEnd_->id())) {
            continue;
        }
        std::ifstream file(entry.path() / "environ", std::ios::binary);
        const std::string environment{std::istreambuf_iterator<char>(file), {}};
        if (environment.find("SOAK_CABINET=" + path("")) != std::string::npos) {
            found.push_back(process);
        }
    }
    return found;
}

std::string SoakCabinet::leftover() const {
    for (const auto& entry : std::filesystem::directory_iterator(".")) {
        std::string name = entry.path().filename();
        if (name.ends_with("~") || name.starts_with("core") || name == "listinfo.new") {
            return name;
        }
    }
    return "";
}
