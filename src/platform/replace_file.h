// Replacing a file in one step, so that a power cut at any instant
// leaves the old text or the new, whole. Called by the profile
// writes. Does not look at what the text says, and keeps no copy.
#pragma once

#include <string>
#include <string_view>

// Gives the file this text; true once it is on the disk. Owner and mode stay where the machine lets them, and
// a symbolic link stays one. On any failure, also when the file itself could not be written, it is as it was.
bool replaceFile(const std::string& path, std::string_view text);
