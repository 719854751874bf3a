// SPDX-License-Identifier: GPL-3.0-or-later
// Polls controls that the ini file maps to keys and joystick codes: tables of controls of both players, and
// single controls that belong to neither. Rotates the screen towards the player who used the controls of a
// table. Called by the tick, the menu and the scroller, each with its own table. Does not execute the
// commands.
#pragma once

#include "config/settings.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// The settings that hold the codes of one control. The joystick belongs to player 1.
struct MappedControl {
    std::int32_t Settings::*key;
    std::int32_t Settings::*joystick;
    std::int32_t Settings::*player2Key;
};

// The codes of a control without a player. A code of 0 is not polled.
struct SharedControl {
    std::int32_t Settings::*key;
    std::int32_t Settings::*joystick;
};

constexpr std::size_t maxMappedControls = 8;

// The result of one poll, indexed like the table.
struct PolledControls {
    std::array<bool, maxMappedControls> player1{};
    std::array<bool, maxMappedControls> player2{};

    bool isPressed(std::size_t control) const { return player1[control] || player2[control]; }
};

// Polls each control of a table of at most maxMappedControls once: first all of player 1, reading the
// joystick only where the key is not pressed, then all of player 2.
PolledControls pollControls(std::span<const MappedControl> table);

// Polls the control once; reads the joystick only when the key is not pressed.
bool isPressed(const SharedControl& control);

// With invertPlayer2Screen, sets the current rotation for the player who pressed anything, player 1 when both
// did. Returns whether the rotation changed. Draws nothing.
bool turnToPlayer(const PolledControls& controls);
