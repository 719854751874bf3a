// Finds out which games have their ROM zip in the ROM folder.
// Called once at the start, after the list has been read; only the
// existence of a zip counts, and the folder is not looked at again.
#pragma once

// Sets romPresent on every record: 1 when romsDir holds the zip of its name or, for a clone, of the game it
// clones.
void scanRoms();
