// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/paths.h"

#include <climits>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace {

std::string findProgramPath() {
    std::array<char, PATH_MAX> buffer;
    const ssize_t length = readlink("/proc/self/exe", buffer.data(), buffer.size());
    std::string path(buffer.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
    // The kernel appends this mark to the path of a program whose file was replaced while it runs, as by an
    // upgrade.
    constexpr std::string_view replacedMark = " (deleted)";
    if (path.ends_with(replacedMark) && access(path.c_str(), F_OK) != 0) {
        path.resize(path.size() - replacedMark.size());
    }
    return path;
}

} // namespace

std::string nativePath(std::string_view path) {
    std::string native(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

const std::string& programPath() {
    static const std::string path = findProgramPath();
    return path;
}

const std::string& programFolder() {
    static const std::string folder = programPath().substr(0, programPath().find_last_of('/'));
    return folder;
}
