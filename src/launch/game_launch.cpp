// SPDX-License-Identifier: GPL-3.0-or-later
#include "launch/game_launch.h"

#include "config/settings.h"
#include "config/settings_file.h"
#include "launch/emulator_folder.h"
#include "launch/process_runner.h"
#include "platform/profile.h"
#include "platform/screen.h"

#include <string>

namespace {

std::string readOptions(const char* gameName) {
    char value[255];
    GetPrivateProfileStringA("Mameoptions", gameName, "", value, sizeof(value), iniPath);
    return value;
}

std::string optionsOf(const GameRecord& game) {
    std::string options = readOptions(game.name);
    if (options.empty() && game.cloneOf) {
        options = readOptions(game.cloneOf);
    }
    return options;
}

void allowScreenSaver(BOOL allowed) {
    SystemParametersInfoA(SPI_SETSCREENSAVEACTIVE, static_cast<UINT>(allowed), nullptr, 0);
}

} // namespace

int launchGame(const GameRecord* game, DWORD* exitCode) {
    const std::string folder = emulatorFolder();
    const std::string options = optionsOf(*game);
    std::string commandLine = std::string(settings.mameExe) + " " + game->name;
    if (!options.empty()) {
        commandLine += " " + options;
    }
    allowScreenSaver(FALSE);
    const int result = runAttached(commandLine.data(), folder.c_str(), exitCode, 1);
    allowScreenSaver(TRUE);
    return result;
}
