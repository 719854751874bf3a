// Loads the catalogue from the list file beside the front end and has the emulator and the converter make
// that file when it is missing; then has the game information attached. Called once at the start. An existing
// list is trusted whatever its age; to get a new one, delete it.
#pragma once

#include <cstdint>

// 1 when the list was read, even without a record in it; 0, after a message, when there is none and none
// could be made.
std::int32_t loadGameList();
