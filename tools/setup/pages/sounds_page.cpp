// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/sounds_page.h"

#include "platform/sound.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

struct SoundKind {
    const char* key; // in the section Sounds
    const char* title;
    std::array<const char*, 3> usualNames; // lower case, without .wav
};

constexpr std::array<SoundKind, 5> soundKinds = {{
    {"Startup", "When the program starts", {"start", "startup", "welcome"}},
    {"Shutdown", "When it ends", {"exit", "shutdown", "goodbye"}},
    {"StartGame", "When a game starts", {"startgame", "game", "coin"}},
    {"Select", "When the selection moves", {"select", "move", "click"}},
    {"Error", "When it cannot move", {"error", "bump", "buzz"}},
}};

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// Returns the path of the wave file in a folder that has one of the names; empty without one.
std::string findSound(const SoundKind& kind, const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = lowerCase(entry->path().filename().string());
        if (std::ranges::any_of(kind.usualNames,
                                [&name](const char* usual) { return name == std::string(usual) + ".wav"; })) {
            return entry->path().string();
        }
    }
    return "";
}

void toggleSound(SetupState& state, std::size_t index) {
    const bool isOn = !state.chosen.value("Sounds", soundKinds[index].key).empty();
    state.chosen.set("Sounds", soundKinds[index].key, isOn ? "" : state.sounds[index]);
    PlaySoundA(isOn ? nullptr : state.sounds[index].c_str(), nullptr, SND_ASYNC);
}

// A line whose value is changed by the control for choosing as well as by left and right.
PageLine switchLine(const std::string& label, const std::string& value, const std::string& detail,
                    const std::function<void()>& change) {
    PageLine line{label, {value}, detail, nullptr, nullptr, nullptr};
    if (change) {
        line.choose = [change] {
            change();
            return PageAction::stay;
        };
        line.step = [change](int) { change(); };
    }
    return line;
}

PageLine soundLine(SetupState& state, std::size_t index) {
    const std::string& file = state.sounds[index];
    const SoundKind& kind = soundKinds[index];
    if (file.empty()) {
        return switchLine(kind.title, "none found",
                          std::string("Looked for ") + kind.usualNames[0] + ".wav in folders named sounds.",
                          nullptr);
    }
    const bool isOn = !state.chosen.value("Sounds", kind.key).empty();
    return switchLine(kind.title, isOn ? "on" : "off", file, [&state, index] { toggleSound(state, index); });
}

void addAmbienceLines(SetupState& state, PageContent& content) {
    const bool isOn = !state.chosen.value("Settings", "AmbienceFile").empty();
    if (state.ambience.empty()) {
        content.lines.push_back(switchLine("Ambience", "none found", "Looked for ambience.mp3.", nullptr));
        return;
    }
    content.lines.push_back(switchLine("Ambience", isOn ? "on" : "off", state.ambience, [&state, isOn] {
        state.chosen.set("Settings", "AmbienceFile", isOn ? "" : state.ambience);
    }));
    if (isOn) {
        const bool goesOn = state.chosen.value("Settings", "AmbienceWhilePlaying") != "0";
        content.lines.push_back(
            switchLine("Ambience during games", goesOn ? "on" : "off", "", [&state, goesOn] {
                state.chosen.set("Settings", "AmbienceWhilePlaying", goesOn ? "0" : "1");
            }));
    }
}

} // namespace

void findSounds(SetupState& state) {
    for (std::size_t index = 0; index < soundKinds.size(); ++index) {
        const std::string& chosen = state.chosen.value("Sounds", soundKinds[index].key);
        state.sounds[index] = chosen;
        for (const std::string& root : state.roots) {
            if (state.sounds[index].empty() && lowerCase(fs::path(root).filename().string()) == "sounds") {
                state.sounds[index] = findSound(soundKinds[index], root);
            }
        }
        if (!state.hadIni) {
            state.chosen.set("Sounds", soundKinds[index].key, state.sounds[index]);
        }
    }
}

PageContent soundsPage(SetupState& state) {
    if (const std::string& chosen = state.chosen.value("Settings", "AmbienceFile"); !chosen.empty()) {
        state.ambience = chosen;
    }
    PageContent content;
    content.title = "Sounds";
    content.help =
        "Sounds of the front end, and music or noise of an arcade in the background. Those that were "
        "found can be switched on and off.";
    content.columns = {{"", 40}};
    content.keys = "Arrows: move    Enter: on, off    Esc: back";
    for (std::size_t index = 0; index < soundKinds.size(); ++index) {
        content.lines.push_back(soundLine(state, index));
    }
    addAmbienceLines(state, content);
    content.lines.push_back({continueLabel, {}, "", [] { return PageAction::forward; }, nullptr, nullptr});
    content.selected = content.lines.size() - 1;
    return content;
}
