// Writes the art folders of the demonstration
// cabinet. Called once by demo-cabinet. Like any real
// pack it has gaps, and one file in it is damaged.
#pragma once

#include <string>

// Makes the folders marquees, cabinets, snap, titles and flyers in `folder`, and every picture that is not
// there yet. False, with a line in `problem`, when something cannot be written.
bool writeArtPack(const std::string& folder, std::string& problem);
