// SPDX-License-Identifier: GPL-3.0-or-later
// The real program in the demonstration cabinet, with movies and sound, on a virtual screen and a sound
// server of its own. Used by the soak programs in real time. The emulator is a script that notes each start
// in a file before it runs the stand-in.
#pragma once

#include "cabinet.h"
#include "process_usage.h"
#include "support/temporary_folder.h"
#include "virtual_screen.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

class RealFrontEnd {
public:
    // Creates the cabinet and starts the program. On an error writes it to standard error and ends this
    // process. The script runs `emulator`, one line of the shell.
    RealFrontEnd(const std::string& emulator, const std::vector<SettingChange>& changes);

    VirtualScreen& screen() { return *screen_; }
    bool running() { return program_->running(); }
    ProcessUsage usage() const { return usageOf(program_->id()); }
    std::string output() const { return folder_.read("output.txt"); }

    // Starts of the emulator so far.
    std::size_t launches() const { return folder_.read("launches").size(); }

    // Presses the key and waits until the status bar changes. Returns the milliseconds until then; nothing
    // after the limit.
    std::optional<int> reaction(const char* key, int limitMilliseconds);

    // Prints what the threads of the program do, when a debugger is installed.
    void printStacks() const;

    // Ends the program with the Exit key. Returns its exit code; nothing when it does not end.
    std::optional<int> exit();

private:
    void startSoundServer();
    std::size_t statusBar();

    TemporaryFolder folder_;
    std::unique_ptr<VirtualScreen> screen_;
    std::unique_ptr<ChildProgram> soundServer_;
    std::unique_ptr<ChildProgram> program_;
};

void pauseFor(int milliseconds);
