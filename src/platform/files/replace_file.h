// Replacing a file in one step, so that a power cut or a kill at any instant leaves the old text or the new,
// whole: it is written beside the file under the name NAME.new~, which takes the file's name at the end.
// Called by the profile writes and for the output of other programs. Keeps no copy.
#pragma once

#include "platform/files/file_io.h"

#include <string>
#include <string_view>

// A file on its way to its name. Owner and mode of the former file stay where the machine lets them, and a
// symbolic link stays one.
class FileReplacement {
public:
    // Makes the temporary file, empty. It is not open when that is not possible: the file itself may not be
    // written or is no plain file, or another program is replacing it.
    explicit FileReplacement(const std::string& path);
    // What has not been committed is removed.
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    bool isOpen() const { return file_.isOpen(); }
    int descriptor() const { return file_.number(); }

    // The temporary file for another program, which does not share its lock. Closed when the file has been
    // taken away.
    FileDescriptor openForChild() const;

    // Gives the file its name; true once it is on the disk. After a failure the former file is as it was.
    bool commit();

private:
    std::string path_;
    std::string temporaryPath_;
    FileDescriptor file_;
};

// Gives the file this text; true once it is on the disk. On any failure it is as it was.
bool replaceFile(const std::string& path, std::string_view text);
