// SPDX-License-Identifier: GPL-3.0-or-later
// Reading whole files. Used by all parts of the set-up; they are written with replaceFileText.
#pragma once

#include <optional>
#include <string>

// Returns the bytes of a plain file of at most 64 MiB; nothing for any other.
std::optional<std::string> readWholeFile(const std::string& path);
