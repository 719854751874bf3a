// Writes the demonstration games as the XML list of a current emulator. Called for `-listxml`. The list
// carries more than the front end needs (files, chips, a driver's state), because a real one does and its
// reader has to pass over it.
#pragma once

#include <cstdio>

// False when the stream could not take all of it.
bool writeGameListXml(std::FILE* out);
