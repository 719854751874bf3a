// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of the front end's commands among the chosen values: their names, and assigning one without
// double use. Called by the page of the controls. Reads no keys.
#pragma once

#include "setup/chosen_settings.h"

#include <array>
#include <string>

struct ControlCommand {
    const char* key; // of the ini file; with P2 before it for player 2
    const char* title;
};

extern const std::array<ControlCommand, 8> controlCommands;

// What a command can be assigned to. There are no joystick controls of player 2.
enum class ControlSlot { key, joystick, player2Key };

constexpr std::array<ControlSlot, 3> controlSlots = {ControlSlot::key, ControlSlot::joystick,
                                                     ControlSlot::player2Key};

// 0: none.
int controlCode(const ChosenSettings& chosen, std::size_t command, ControlSlot slot);
void setControlCode(ChosenSettings& chosen, std::size_t command, ControlSlot slot, int code);

// Returns the name of a key or a joystick control, or its number when it has none.
std::string controlName(ControlSlot slot, int code);

// For example "Up (player 2)".
std::string commandName(std::size_t command, ControlSlot slot);

struct ControlUse {
    bool isUsed = false;
    std::size_t command = 0;
    ControlSlot slot = ControlSlot::key;
};

// Returns which other command of either player has the control, or one that acts together with it: Shift is
// both Shift keys.
ControlUse findControlUse(const ChosenSettings& chosen, std::size_t command, ControlSlot slot, int code);

// Switches off the fixed commands whose controls are now those of a command of the players. Returns what was
// switched off, for the user; empty when nothing was.
std::string switchOffCollisions(ChosenSettings& chosen);
