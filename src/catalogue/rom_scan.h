// SPDX-License-Identifier: GPL-3.0-or-later
// Determines which games have a ROM zip in the ROM folder. Called once at startup, after the list has been
// read. Checks only that the zip exists, not what it contains.
#pragma once

// Lists the ROM folder for the next scanRoms, which otherwise does so itself. Does not use the catalogue,
// which may be read by another thread meanwhile.
void prepareRomScan();

// Makes the next scanRoms list the folder itself after all.
void discardRomScan();

// Sets romPresent of every record: 1 when the folder romsDir contains the zip of the game or of the game it
// is a clone of, else 0.
void scanRoms();
