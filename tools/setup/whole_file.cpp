// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/whole_file.h"

#include "platform/files.h"

std::optional<std::string> readWholeFile(const std::string& path) {
    constexpr std::size_t sizeLimit = 64 << 20;
    return readFileText(path.c_str(), sizeLimit);
}
