// SPDX-License-Identifier: GPL-3.0-or-later
// A demonstration cabinet in a temporary folder with the real front end on a virtual screen, for fault_soak.
// Knows which processes and files belong to it. Nothing is reported here: failures are return values.
#pragma once

#include "cabinet.h"
#include "support/temporary_folder.h"
#include "virtual_screen.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

class SoakCabinet {
public:
    SoakCabinet();

    std::string path(const std::string& name) const { return folder_.pathOf(name); }
    std::string read(const std::string& name) const { return folder_.read(name); }
    // The value of a key in the ini file; empty when there is none.
    std::string setting(const std::string& key) const;
    void writeSettings(const std::vector<SettingChange>& changes) const;
    // The emulator of these settings: a script with these lines, or none.
    void writeEmulator(const char* lines) const;
    void writeList() const;
    void removeList() const;

    // Starts a new screen when the last one was ended.
    void startScreen();
    // With the library loaded into it, if any.
    void startFrontEnd(const char* library = nullptr);
    // Ends the front end and its children, releases a held key and removes temporary files.
    void clear();
    VirtualScreen& screen() { return *screen_; }
    ChildProgram& frontEnd() { return *frontEnd_; }
    void endScreen() { screen_.reset(); }

    // Waits until the list or the browser is shown and has the focus.
    bool waitForGames();
    // Waits until the picture differs from the former one.
    bool waitForChange(const Screenshot& former);
    bool waitForFile(const std::string& name) const;

    // The processes that have this folder in their environment, besides the front end and this program.
    std::vector<pid_t> otherProcesses() const;
    // The first file that a save has left over; empty for none.
    std::string leftover() const;

private:
    TemporaryFolder folder_;
    std::unique_ptr<VirtualScreen> screen_;
    std::unique_ptr<ChildProgram> frontEnd_;
};
