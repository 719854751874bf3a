// SPDX-License-Identifier: GPL-3.0-or-later
// SaveOnChange: writes the settings during the run, so that little is lost when the machine is switched off.
// Called by WinMain and the StartGame command; writes through saveSettings. The save at the end of the
// program does not depend on it. With SaveOnChange=0 no function does anything.
#pragma once

// Takes the present settings and selection as saved. From now on they are written when the last change of a
// saved value or of the selected game is SaveOnChange seconds old: between two ticks of the main loop, the
// menu or the game information, which the writing blocks. A game that attract play has picked is neither a
// change nor written. Called once, before the main loop.
void startSaveOnChange();

// Writes the settings at once if anything has changed since the last time.
void saveBeforeGame();
