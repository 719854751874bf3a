// The controls that the ini file maps, asked for as a group, and the turn of the screen to the player who
// touched them. Called by the tick, the menu and the scroller, each with its own table. What a control does
// is its caller's business.
#pragma once

#include "config/settings.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// What gives one command: the fields that hold the codes. The joystick counts as player 1.
struct MappedControl {
    std::int32_t Settings::*key;
    std::int32_t Settings::*joystick;
    std::int32_t Settings::*player2Key;
};

constexpr std::size_t mostMappedControls = 8;

// What the players ask for, by the index of the control in its table.
struct PolledControls {
    std::array<bool, mostMappedControls> player1{};
    std::array<bool, mostMappedControls> player2{};

    bool asksFor(std::size_t control) const { return player1[control] || player2[control]; }
};

// Asks for each control of a table of at most mostMappedControls once: player 1's in order, the joystick only
// where the key is not pressed, then player 2's.
PolledControls pollControls(std::span<const MappedControl> table);

// With invertPlayer2Screen turns the rotation in force to the player who asks for anything, player 1 when
// both do. True when that changed it; nothing is drawn.
bool turnToPlayer(const PolledControls& controls);
