// SPDX-License-Identifier: GPL-3.0-or-later
// One temporary folder for the whole process, in memory where the system has such a place. Used by the
// targets whose readers open files by name. It is the current directory from the first call on.
#pragma once

#include "support/temporary_folder.h"

#include <fcntl.h>
#include <unistd.h>

inline const TemporaryFolder& scratchFolder() {
    static const TemporaryFolder folder = [] {
        if (access("/dev/shm", W_OK) == 0) {
            setenv("TMPDIR", "/dev/shm", 0);
        }
        return TemporaryFolder();
    }();
    return folder;
}

// Replaces the content of a file in the folder. Three system calls: the targets do little else.
inline void writeScratchFile(const char* name, std::string_view bytes) {
    const int file =
        openat(AT_FDCWD, scratchFolder().pathOf(name).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (file < 0 || write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
        std::perror(name);
        std::abort();
    }
    close(file);
}
