// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/control_choice.h"

#include "input/control_names.h"
#include "platform/key_codes.h"

#include <cstdlib>

namespace {

bool isJoystick(ControlSlot slot) {
    return slot == ControlSlot::joystick;
}

const char* sectionOf(ControlSlot slot) {
    return isJoystick(slot) ? "JoystickMappings" : "Keymappings";
}

std::string keyOf(std::size_t command, ControlSlot slot) {
    return (slot == ControlSlot::player2Key ? "P2" : "") + std::string(controlCommands[command].key);
}

// The code of both keys for one of a pair of Shift, Ctrl or Alt keys; any other code itself.
int commonCode(int code) {
    return code >= VK_LSHIFT && code <= VK_RMENU ? VK_SHIFT + (code - VK_LSHIFT) / 2 : code;
}

bool actTogether(ControlSlot slot, int first, int second) {
    return first == second ||
           (!isJoystick(slot) && (commonCode(first) == second || first == commonCode(second)));
}

// The description of a fixed command in the table of settings is "Key: what it does."
std::string fixedCommandName(const SettingRow& row) {
    const std::string text = row.description;
    const std::size_t start = text.find(": ");
    return text.substr(start + 2, text.size() - start - 3);
}

} // namespace

const std::array<ControlCommand, 8> controlCommands = {{
    {"SelectUp", "Up"},
    {"SelectDown", "Down"},
    {"SelectPageUp", "Page up"},
    {"SelectPageDown", "Page down"},
    {"StartGame", "Start the game"},
    {"GameInfo", "Information"},
    {"ShowMenu", "Options menu"},
    {"Exit", "Exit"},
}};

int controlCode(const ChosenSettings& chosen, std::size_t command, ControlSlot slot) {
    return std::atoi(chosen.value(sectionOf(slot), keyOf(command, slot)).c_str());
}

void setControlCode(ChosenSettings& chosen, std::size_t command, ControlSlot slot, int code) {
    chosen.set(sectionOf(slot), keyOf(command, slot), std::to_string(code));
}

std::string controlName(ControlSlot slot, int code) {
    const std::string name = isJoystick(slot) ? joystickName(code) : keyName(code);
    return code == 0 ? "-" : name.empty() ? "Code " + std::to_string(code) : name;
}

std::string commandName(std::size_t command, ControlSlot slot) {
    const char* player = slot == ControlSlot::player2Key ? " (player 2)" : " (player 1)";
    return controlCommands[command].title + std::string(player);
}

ControlUse findControlUse(const ChosenSettings& chosen, std::size_t command, ControlSlot slot, int code) {
    for (const ControlSlot otherSlot : controlSlots) {
        if (code == 0 || isJoystick(otherSlot) != isJoystick(slot)) {
            continue;
        }
        for (std::size_t other = 0; other < controlCommands.size(); ++other) {
            const bool isItself = other == command && otherSlot == slot;
            const int used = controlCode(chosen, other, otherSlot);
            if (!isItself && used != 0 && actTogether(slot, used, code)) {
                return {true, other, otherSlot};
            }
        }
    }
    return {};
}

std::string switchOffCollisions(ChosenSettings& chosen) {
    std::string text;
    for (const SettingRow& row : settingTable) {
        const bool isKey = row.kind == SettingKind::keyCode;
        if (!isExtra(row) || (!isKey && row.kind != SettingKind::joystickCode)) {
            continue;
        }
        const ControlSlot slot = isKey ? ControlSlot::key : ControlSlot::joystick;
        const int code = std::atoi(chosen.valueOf(row).c_str());
        const ControlUse use = findControlUse(chosen, controlCommands.size(), slot, code);
        if (use.isUsed) {
            chosen.set(row.section, row.key, "0");
            text += (text.empty() ? "" : " ") + controlName(slot, code) +
                    " no longer does this as well: " + fixedCommandName(row) + ".";
        }
    }
    return text;
}
