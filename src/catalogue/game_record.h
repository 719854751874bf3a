// One game of the catalogue with its display and control
// data. Filled by the list parser, read by everything
// that shows, sorts, filters or starts a game.
#pragma once

#include <cstdint>

// The word "vertical" of a list file's orientation, any other word, and none at all.
enum GameOrientation : std::uint16_t {
    orientationNotStated = 0,
    orientationVertical = 1,
    orientationHorizontal = 2,
};

struct VideoInfo {
    char* screen; // owned; "raster", "vector" or another word; may be null
    std::uint16_t orientation;
    std::uint16_t x; // pixels as the player sees them; 0 when not stated
    std::uint16_t y;
};

// Bits of InputInfo::control and of the setting controllerTypes.
enum GameControl : std::uint16_t {
    controlDial = 1,
    controlDoubleJoy8Way = 2,
    controlJoy4Way = 4, // also 2-way, and every control without a bit of its own
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

// A new record is all zero. It owns its strings, its sub-records and infoLines; parent is borrowed.
struct GameRecord {
    char* name;        // short name: stem of files, key of gameIndex, word on the emulator's command line
    char* description; // full title
    std::int32_t year; // 0 when not stated; the sort turns that into 9999
    char* manufacturer;
    char* cloneOf;           // null for a parent
    char* romOf;             // null when the game uses no other set
    VideoInfo* video;        // never null after loading unless isResource
    InputInfo* input;        // never null after loading unless isResource
    std::int32_t isResource; // 1 for a device or BIOS: in the catalogue, never shown
    std::int32_t romPresent; // 1 when the zip was found
    char** infoLines;
    std::int32_t infoLineCount;
    GameRecord* parent; // null when cloneOf is null or names no record
};
