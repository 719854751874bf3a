// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the chosen values over into the process-wide settings, for what reads those: drawing, the ROM scan
// and the filter. Called by the pages after each change. Checks no values.
#pragma once

#include "setup/chosen_settings.h"

// Replaces all settings. The joystick stays in use whatever was chosen, since it also controls the set-up.
void applySettings(const ChosenSettings& chosen);

// Returns how many games of the catalogue the front end lists with these values.
int countListedGames(const ChosenSettings& chosen);
