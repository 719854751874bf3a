// The working directory of the outside
// programs. Called by the game launch and
// the regeneration of the game list.
#pragma once

#include <string>

// The emulator's folder when the setting names it with a drive or by an absolute path, else the folder of the
// front end, also when there is no such program; without a separator at its end.
std::string emulatorFolder();
