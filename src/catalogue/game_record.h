// SPDX-License-Identifier: GPL-3.0-or-later
// One game of the catalogue with its display and control data. The list parser creates records; the views and
// the code that sorts, filters and starts games read them.
#pragma once

#include <cstdint>

// The orientation in a list file: "vertical", any other word (horizontal), or none.
enum GameOrientation : std::uint16_t {
    orientationNotStated = 0,
    orientationVertical = 1,
    orientationHorizontal = 2,
};

struct VideoInfo {
    char* screen; // owned; "raster", "vector" or another word; null when not stated
    std::uint16_t orientation;
    std::uint16_t x; // pixels as the player sees them; 0 when not stated
    std::uint16_t y;
};

// Bits of InputInfo::control and of the setting controllerTypes.
enum GameControl : std::uint16_t {
    controlDial = 1,
    controlDoubleJoy8Way = 2,
    controlJoy4Way = 4, // also 2-way, and every control that has no bit
    controlJoy8Way = 8,
    controlPaddle = 16,
    controlStick = 32,
    controlTrackball = 64,
};

struct InputInfo {
    std::int16_t players;
    std::int16_t buttons;
    std::int16_t coins;
    std::uint16_t control; // exactly one bit
};

// A new record is all zero. Owns its strings, video, input and infoLines; parent is borrowed.
struct GameRecord {
    char* name;        // short name: file name stem, key of gameIndex, argument of the emulator
    char* description; // full title
    std::int32_t year; // 0 when not stated; sorting changes 0 to 9999
    char* manufacturer;
    char* cloneOf;           // null for a parent
    char* romOf;             // null when the game uses no other set
    VideoInfo* video;        // never null after loading unless isResource
    InputInfo* input;        // never null after loading unless isResource
    std::int32_t isResource; // 1 for a device or BIOS: in the catalogue, never shown
    std::int32_t romPresent; // 1 when scanRoms found the zip
    char** infoLines;
    std::int32_t infoLineCount;
    std::int32_t isFavourite; // 1 when the player has marked it; written by extras/favourites.cpp
    GameRecord* parent;       // null when cloneOf is null or names no record
};
