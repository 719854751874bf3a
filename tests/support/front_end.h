// SPDX-License-Identifier: GPL-3.0-or-later
// The whole front end on virtual time, in a temporary folder with a game list and an ini file. A test
// schedules key presses and checks at points of virtual time, then runs the front end. Ticks occur at 100,
// 200, 300 ... milliseconds after the start.
#pragma once

#include "app/window_state.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings_file.h"
#include "overlays/message_window.h"
#include "platform/clock.h"
#include "platform/entry.h"
#include "platform/messages.h"
#include "platform/module.h"
#include "platform/profile.h"
#include "platform/test_access.h"
#include "platform/virtual_clock.h"
#include "platform/window.h"
#include "support/sdl_events.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <functional>
#include <string>
#include <utility>

class FrontEnd {
public:
    FrontEnd() {
        setScreenSize(640, 480);
        set("Settings", "Roms.dir", "roms");
        set("RomOptions", "DisplayMissingRoms", "1");
    }

    const TemporaryFolder& folder() const { return folder_; }

    void set(const char* section, const char* key, const std::string& value) {
        WritePrivateProfileStringA(section, key, value.c_str(), "kestravox.ini");
    }

    std::string get(const char* section, const char* key) const {
        char value[300];
        GetPrivateProfileStringA(section, key, "(none)", value, sizeof(value), "kestravox.ini");
        return value;
    }

    static std::string listEntry(const std::string& name, const std::string& more = "") {
        return "game (\n\tname " + name + "\n\tdescription \"Title of " + name + "\"\n\tyear 1985\n" +
               "\tmanufacturer \"Maker\"\n" + more +
               "\tvideo ( screen raster orientation horizontal x 320 y 240 )\n"
               "\tinput ( players 2 buttons 2 coins 1 control joy8way )\n)\n";
    }

    // Writes a list of games named g000, g001 and so on, in sort order.
    void writeGames(int count) const {
        std::string list;
        for (int index = 0; index < count; ++index) {
            const std::string digits = std::to_string(1000 + index).substr(1);
            list += listEntry("g" + digits);
        }
        folder_.write("listinfo.dat", list);
    }

    void addRom(const std::string& name) const {
        std::filesystem::create_directory("roms");
        folder_.write("roms/" + name + ".zip", "");
    }

    // Schedules an action at a time of the run, in milliseconds.
    void at(std::int64_t milliseconds, std::function<void()> action) const {
        virtualClockAt(start_ + milliseconds, std::move(action));
    }

    // Presses a key and releases it 10 ms later.
    void tap(std::int64_t milliseconds, SDL_Scancode key) const {
        at(milliseconds, [key] { pressKey(key); });
        at(milliseconds + 10, [key] { releaseKey(key); });
    }

    // Sets the start of the next run to now.
    void restart() { start_ = virtualClockMilliseconds(); }

    // Milliseconds since the start of the run.
    std::int64_t elapsed() const { return virtualClockMilliseconds() - start_; }

    // Runs the front end until the Exit key, pressed at the given time, ends it. Returns its exit code.
    int run(std::int64_t exitAt) {
        tap(exitAt, SDL_SCANCODE_ESCAPE);
        return runToEnd();
    }

    static int runToEnd() {
        static char tail[] = "kestravox.ini";
        resetProcessState();
        return WinMain(GetModuleHandleA(nullptr), nullptr, tail, 0);
    }

    static std::string selectedName() { return visibleGames[selectedIndex]->name; }

    static std::uint32_t pixel(int x, int y) {
        const ScreenPixels pixels = screenPixels();
        return pixels.pixels[y * pixels.stride + x];
    }

private:
    // Clears the state that the end of a process would have cleared.
    static void resetProcessState() {
        hideMessage();
        freeSettings();
        DestroyWindow(mainWindow);
        UnregisterClassA("MainWndClass", nullptr);
        MSG message{};
        while (PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            GetMessageA(&message, nullptr, 0, 0);
        }
        pushWindowEvent(SDL_WINDOWEVENT_FOCUS_GAINED);
    }

    TemporaryFolder folder_;
    std::int64_t start_ = virtualClockMilliseconds();
};
