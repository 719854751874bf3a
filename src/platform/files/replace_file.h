// SPDX-License-Identifier: GPL-3.0-or-later
// Atomic replacement of a file: a power failure or a kill at any moment leaves either the old or the new
// text, complete. The new text is written next to the file as NAME.new~, which is renamed to NAME at the end.
// Called by the profile writes and for the output of child processes. Keeps no backup.
#pragma once

#include "platform/files/file_io.h"

#include <string>
#include <string_view>

// A file that is being replaced or created. Owner and mode of the former file are kept where the system
// permits, and a symbolic link remains a link to the replaced file.
class FileReplacement {
public:
    // Creates the temporary file, empty. isOpen() is false afterwards when the file itself may not be written
    // or is not a plain file, when another program is replacing it, or when the temporary file cannot be
    // created.
    explicit FileReplacement(const std::string& path);
    // Removes the temporary file unless it was committed.
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    bool isOpen() const { return file_.isOpen(); }
    int descriptor() const { return file_.number(); }

    // Opens the temporary file for another program, without sharing its lock. The result is closed when the
    // file has been removed or replaced meanwhile.
    FileDescriptor openForChild() const;

    // Renames the temporary file to the final name. Returns true once the text is on the disk; after a
    // failure the former file is unchanged.
    bool commit();

private:
    std::string path_;
    std::string temporaryPath_;
    FileDescriptor file_;
};

// Replaces the content of a file with `text`. Returns true once the text is on the disk; on failure the file
// is unchanged.
bool replaceFile(const std::string& path, std::string_view text);
