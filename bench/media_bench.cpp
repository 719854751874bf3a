// SPDX-License-Identifier: GPL-3.0-or-later
// Measures movies: how long opening one blocks the caller, memory, threads and files after many of them, and
// the processor time of a playing movie at each rotation. Usage: `media_bench [STEPS [MOVIE]]`. Without
// MOVIE, the processor time is that of a generated movie of 640x480 at 60 pictures per second.
#include "generated_movie.h"
#include "platform/clock.h"
#include "platform/media.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/test_access.h"
#include "platform/window.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int tickMilliseconds = 100;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

HWND openMainWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.lpszClassName = "Frame";
    RegisterClassA(&windowClass);
    const HWND window =
        CreateWindowExA(0, "Frame", nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(window, SW_MAXIMIZE);
    UpdateWindow(window);
    return window;
}

void sendCommand(HWND movie, const char* command) {
    SendMessageA(movie, MCIWNDM_SENDSTRINGA, 0, reinterpret_cast<LPARAM>(command));
}

void startMovie(HWND movie, LONG width, LONG height) {
    SetWindowPos(movie, nullptr, 10, 10, width, height, 0);
    SendMessageA(movie, MCI_PLAY, 0, 0);
    sendCommand(movie, "play repeat");
}

// Opens and plays a movie in the way the front end does.
HWND playMovie(HWND parent, const std::string& file) {
    const HWND movie = MCIWndCreateA(parent, nullptr, 0, file.c_str());
    RECT size{};
    SendMessageA(movie, MCIWNDM_GET_DEST, 0, reinterpret_cast<LPARAM>(&size));
    startMovie(movie, std::min(size.right, 640), std::min(size.bottom, 480));
    return movie;
}

long countOf(const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

long residentKilobytes() {
    long pages = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * 4;
}

void printState(int step) {
    std::printf("  after %5d steps: %6ld KiB resident, %ld threads, %ld files\n", step, residentKilobytes(),
                countOf("/proc/self/task"), countOf("/proc/self/fd"));
    std::fflush(stdout);
}

// Simulates a held key: each tick closes the movie of the previous step and opens the next.
void soak(HWND parent, const std::vector<std::string>& files, int steps) {
    std::vector<double> delays;
    HWND movie = nullptr;
    for (int step = 0; step < steps; ++step) {
        if (step % std::max(steps / 10, 1) == 0) {
            printState(step);
        }
        const auto start = Clock::now();
        SendMessageA(movie, WM_CLOSE, 0, 0);
        movie = playMovie(parent, files[static_cast<std::size_t>(step) % files.size()]);
        const double delay = millisecondsSince(start);
        delays.push_back(delay);
        Sleep(static_cast<DWORD>(std::max(1.0, tickMilliseconds - delay)));
    }
    printState(steps);
    SendMessageA(movie, WM_CLOSE, 0, 0);
    Sleep(500);
    std::printf("  first movie, including loading the library: %.1f ms\n", delays[0]);
    std::sort(delays.begin(), delays.end());
    const auto share = [&](double part) {
        return delays[static_cast<std::size_t>(part * (delays.size() - 1))];
    };
    std::printf("  delay per tick: median %.1f ms, 99th percentile %.1f ms, maximum %.1f ms\n", share(0.5),
                share(0.99), delays.back());
}

// Hash of a grid of pixels of the movie, which differs between pictures.
std::uint64_t hashMoviePicture() {
    const ScreenPixels screen = screenPixels();
    std::uint64_t sum = 0;
    for (int y = 20; y < 480; y += 8) {
        for (int x = 20; x < 480; x += 8) {
            sum = sum * 31 + screen.pixels[y * screen.stride + x];
        }
    }
    return sum;
}

// Sleeps like the idle main loop.
void playAlone(HWND parent, const std::string& file, int rotation) {
    constexpr int seconds = 10;
    const HWND movie = MCIWndCreateA(parent, nullptr, 0, file.c_str());
    sendCommand(movie, ("setvideo rotation to " + std::to_string(rotation)).c_str());
    const bool quarter = rotation == 90 || rotation == -90;
    startMovie(movie, quarter ? 480 : 640, quarter ? 640 : 480);
    Sleep(2000);
    const std::clock_t start = std::clock();
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    std::uint64_t last = hashMoviePicture();
    int pictures = 0;
    while (Clock::now() < end) {
        Sleep(1);
        const std::uint64_t now = hashMoviePicture();
        pictures += now != last ? 1 : 0;
        last = now;
    }
    std::printf("  playing %s at %d: %d pictures in %d seconds, %.1f%% of a processor\n", file.c_str(),
                rotation, pictures, seconds,
                100.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / seconds);
    SendMessageA(movie, WM_CLOSE, 0, 0);
}

} // namespace

int main(int argc, char** argv) {
    const int steps = argc > 1 ? std::atoi(argv[1]) : 200;
    char folder[] = "/tmp/media_bench.XXXXXX";
    if (!mkdtemp(folder)) {
        return 1;
    }
    const std::string path = folder;
    std::vector<std::string> files;
    for (int number = 0; number < 4; ++number) {
        files.push_back(path + "/" + std::to_string(number) + ".avi");
        std::ofstream(files.back(), std::ios::binary) << generatedMovie(320 + 16 * number, 240, 20, 2);
    }
    files.push_back(path + "/damaged.avi");
    std::ofstream(files.back(), std::ios::binary) << std::string(20000, '\x5A');
    const std::string large = path + "/large.avi";
    std::ofstream(large, std::ios::binary) << generatedMovie(640, 480, 60, 4);
    const HWND parent = openMainWindow();
    if (!screenPixels().pixels) {
        std::fprintf(stderr, "media_bench needs a display.\n");
        return 1;
    }
    soak(parent, files, steps);
    for (const int rotation : {0, 90, -90, 180}) {
        playAlone(parent, argc > 2 ? argv[2] : large, rotation);
    }
    std::filesystem::remove_all(path);
}
