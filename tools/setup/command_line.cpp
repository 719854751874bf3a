// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/command_line.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

struct Option {
    const char* name;
    SetupTask task;
    std::string SetupOptions::*value; // null: without a value
    const char* valueName;
    const char* meaning;
};

constexpr Option optionTable[] = {
    {"--emulator", SetupTask::write, &SetupOptions::emulator, "PROGRAM",
     "the emulator, instead of the one that is found"},
    {"--roms", SetupTask::write, &SetupOptions::roms, "FOLDER", "the folder with the ROM zip files"},
    {"--art", SetupTask::write, &SetupOptions::art, "FOLDER",
     "look here first for folders of pictures and movies"},
    {"--orientation", SetupTask::write, &SetupOptions::orientation, "WORD",
     "Normal, ROL for a monitor turned clockwise, ROR for one turned the other way, or Inverted"},
    {"--write", SetupTask::write, &SetupOptions::ini, "FILE", "write this ini file, without questions"},
    {"--check", SetupTask::check, &SetupOptions::ini, "FILE",
     "say what is wrong with an ini file, line by line; without a name, with the usual one"},
    {"--keys", SetupTask::keys, nullptr, "",
     "show the code of each key and joystick control that is pressed"},
    {"--rebuild", SetupTask::rebuild, nullptr, "", "make the game list anew"},
    {"--help", SetupTask::help, nullptr, "", "show this text"},
    {"--version", SetupTask::version, nullptr, "", "show the version"},
};

} // namespace

std::string parseOptions(std::span<char* const> arguments, SetupOptions& options) {
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string_view argument = arguments[index];
        const std::size_t equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        const auto* option = std::ranges::find(optionTable, name,
                                               [](const Option& row) { return std::string_view(row.name); });
        if (option == std::end(optionTable)) {
            return "There is no option " + std::string(argument) + ".";
        }
        if (options.task != SetupTask::pages && options.task != option->task) {
            return std::string(name) + " does not go with the options before it.";
        }
        options.task = option->task;
        if (!option->value) {
            continue;
        }
        if (equals != argument.npos) {
            options.*option->value = argument.substr(equals + 1);
        } else if (index + 1 < arguments.size()) {
            options.*option->value = arguments[++index];
        }
        const bool hasUsualValue = option->task == SetupTask::check;
        if ((options.*option->value).empty() && !hasUsualValue) {
            return std::string(name) + " needs a value.";
        }
    }
    return "";
}

std::string helpText() {
    std::string text =
        "Usage: kestravox-setup [OPTION]...\n"
        "Sets up Kestravox for a real emulator: on a display page by page; with any of the first five\n"
        "options, or without a display, on the terminal and without questions.\n\n";
    for (const Option& option : optionTable) {
        std::string line = std::string("  ") + option.name + " " + option.valueName;
        line.resize(std::max<std::size_t>(line.size() + 1, 25), ' ');
        text += line + option.meaning + "\n";
    }
    return text;
}
