// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the art folders of the demonstration cabinet. Called once by demo-cabinet. As in real art packs,
// pictures are missing for some games, and those of one game are damaged.
#pragma once

#include <string>

// Creates the folders marquees, cabinets, snap, titles and flyers in `folder`, and the missing pictures. On a
// write error returns false with a message in `problem`.
bool writeArtPack(const std::string& folder, std::string& problem);
