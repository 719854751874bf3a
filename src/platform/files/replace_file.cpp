// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/replace_file.h"

#include "platform/files/file_io.h"

#include <climits>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace {

// Returns the folder with the separator at its end; empty for the current folder.
std::string folderOf(const std::string& path) {
    return path.substr(0, path.find_last_of('/') + 1);
}

// Returns the path that symbolic links lead to, which need not exist; empty for links that form a loop.
std::string resolveLinks(std::string path) {
    constexpr int maxLinks = 40;
    std::array<char, PATH_MAX> target;
    for (int links = 0; links < maxLinks; ++links) {
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0) {
            return path;
        }
        const std::string_view name(target.data(), static_cast<std::size_t>(length));
        path = name.starts_with('/') ? std::string(name) : folderOf(path).append(name);
    }
    return {};
}

// Returns whether the path still names this plain file.
bool isFileAt(const FileDescriptor& file, const std::string& path) {
    struct stat own {};
    struct stat named {};
    return fstat(file.number(), &own) == 0 && lstat(path.c_str(), &named) == 0 && S_ISREG(own.st_mode) &&
           own.st_dev == named.st_dev && own.st_ino == named.st_ino;
}

// Returns false when another program holds the lock. On a file system without locks it always succeeds.
bool lock(const FileDescriptor& file) {
    return flock(file.number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

// Removes a file that a power failure has left, or anything else of that name. A locked file is kept, because
// another program is writing it. The lock is held during the removal, so that no other program can start to
// use the file between the check and the removal.
void removeLeftover(const std::string& path) {
    const FileDescriptor leftover(
        open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!leftover.isOpen() && errno == ENOENT) {
        return;
    }
    struct stat status {};
    const bool isFile =
        leftover.isOpen() && fstat(leftover.number(), &status) == 0 && S_ISREG(status.st_mode);
    if (!isFile || (lock(leftover) && isFileAt(leftover, path))) {
        std::remove(path.c_str());
    }
}

// Always creates a new file: an existing one could be a link to an unrelated file. The lock separates
// programs that write the same file at once: a program that finds a locked file of this name writes nothing,
// and neither does one whose new file was removed as a leftover by another before it was locked.
FileDescriptor createTemporary(const std::string& path) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    FileDescriptor file(open(path.c_str(), flags, 0666));
    if (!file.isOpen() && errno == EEXIST) {
        removeLeftover(path);
        file = FileDescriptor(open(path.c_str(), flags, 0666));
    }
    return file.isOpen() && lock(file) && isFileAt(file, path) ? std::move(file) : FileDescriptor();
}

// Failures are ignored: not every file system has owners and modes, and the text matters more.
void keepOwnerAndMode(const FileDescriptor& file, const struct stat& former) {
    const int owner = fchown(file.number(), former.st_uid, former.st_gid);
    const int mode = fchmod(file.number(), former.st_mode & 07777);
    static_cast<void>(owner);
    static_cast<void>(mode);
}

// Makes the rename durable across a power failure. Without it the file is complete too, but may be the former
// one.
void syncFolder(const std::string& folder) {
    const FileDescriptor file(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (file.isOpen()) {
        fsync(file.number());
    }
}

} // namespace

FileReplacement::FileReplacement(const std::string& path)
    : path_(resolveLinks(path)), temporaryPath_(path_ + ".new~") {
    struct stat former {};
    const bool exists = stat(path_.c_str(), &former) == 0;
    if (path_.empty() || (!exists && errno != ENOENT)) {
        return;
    }
    if (exists && (!S_ISREG(former.st_mode) || faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS) != 0)) {
        return;
    }
    file_ = createTemporary(temporaryPath_);
    if (file_.isOpen() && exists) {
        keepOwnerAndMode(file_, former);
    }
}

FileReplacement::~FileReplacement() {
    if (file_.isOpen() && isFileAt(file_, temporaryPath_)) {
        unlink(temporaryPath_.c_str());
    }
}

FileDescriptor FileReplacement::openForChild() const {
    FileDescriptor file(open(temporaryPath_.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen() || !isFileAt(file_, temporaryPath_) || !isFileAt(file, temporaryPath_)) {
        return {};
    }
    fcntl(file.number(), F_SETFL, fcntl(file.number(), F_GETFL) & ~O_NONBLOCK);
    return file;
}

bool FileReplacement::commit() {
    if (fsync(file_.number()) != 0 || !isFileAt(file_, temporaryPath_) ||
        rename(temporaryPath_.c_str(), path_.c_str()) != 0) {
        return false;
    }
    file_.close();
    syncFolder(folderOf(path_));
    return true;
}

bool replaceFile(const std::string& path, std::string_view text) {
    FileReplacement replacement(path);
    return replacement.isOpen() && writeWhole(replacement.descriptor(), text) && replacement.commit();
}
