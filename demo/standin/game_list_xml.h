// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the demonstration games in the XML format of a current emulator. Called for `-listxml`. The list has
// more than the front end needs (files, chips, driver status), as a real one has, which its reader must skip.
#pragma once

#include <cstdio>

// False on a write error.
bool writeGameListXml(std::FILE* out);
