#include "platform/replace_file.h"

#include "platform/file_io.h"

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

// With the separator at its end; empty for the current one.
std::string folderOf(const std::string& path) {
    return path.substr(0, path.find_last_of('/') + 1);
}

// The path that the symbolic links lead to, which need not exist yet; empty for links that lead in a circle.
std::string behindLinks(std::string path) {
    constexpr int mostLinks = 40;
    std::array<char, PATH_MAX> target;
    for (int links = 0; links < mostLinks; ++links) {
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0) {
            return path;
        }
        const std::string_view name(target.data(), static_cast<std::size_t>(length));
        path = name.starts_with('/') ? std::string(name) : folderOf(path).append(name);
    }
    return {};
}

bool isNamed(const FileDescriptor& file, const std::string& path) {
    struct stat own {};
    struct stat named {};
    return fstat(file.number(), &own) == 0 && lstat(path.c_str(), &named) == 0 && S_ISREG(own.st_mode) &&
           own.st_dev == named.st_dev && own.st_ino == named.st_ino;
}

// False when another program holds the lock. A file system without locks counts as one where nobody does.
bool lock(const FileDescriptor& file) {
    return flock(file.number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

// Removes what a power cut has left, or whatever else has the name. A locked file stays: another program
// writes it. The lock is held during the removal, so that the file cannot become another program's between
// the test and the removal.
void removeLeftover(const std::string& path) {
    const FileDescriptor leftover(
        open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!leftover.isOpen() && errno == ENOENT) {
        return;
    }
    struct stat status {};
    const bool isFile =
        leftover.isOpen() && fstat(leftover.number(), &status) == 0 && S_ISREG(status.st_mode);
    if (!isFile || (lock(leftover) && isNamed(leftover, path))) {
        std::remove(path.c_str());
    }
}

// Always a new file, never one that was there: it could be a link to a file of somebody else. The lock keeps
// two programs that write the same file apart: whoever finds the name taken by a locked file writes nothing,
// and so does one whose new file another has taken for a leftover before it was locked.
FileDescriptor createTemporary(const std::string& path) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    FileDescriptor file(open(path.c_str(), flags, 0666));
    if (!file.isOpen() && errno == EEXIST) {
        removeLeftover(path);
        file = FileDescriptor(open(path.c_str(), flags, 0666));
    }
    return file.isOpen() && lock(file) && isNamed(file, path) ? std::move(file) : FileDescriptor();
}

// Not every file system has owners and modes; the text matters more.
void keepOwnerAndMode(const FileDescriptor& file, const struct stat& former) {
    const int owner = fchown(file.number(), former.st_uid, former.st_gid);
    const int mode = fchmod(file.number(), former.st_mode & 07777);
    static_cast<void>(owner);
    static_cast<void>(mode);
}

// Makes the rename last through a power cut. The file is whole either way.
void syncFolder(const std::string& folder) {
    const FileDescriptor file(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (file.isOpen()) {
        fsync(file.number());
    }
}

} // namespace

bool replaceFile(const std::string& givenPath, std::string_view text) {
    const std::string path = behindLinks(givenPath);
    struct stat former {};
    const bool exists = stat(path.c_str(), &former) == 0;
    if (path.empty() || (!exists && errno != ENOENT)) {
        return false;
    }
    if (exists && (!S_ISREG(former.st_mode) || faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)) {
        return false;
    }
    const std::string temporary = path + ".new~";
    const FileDescriptor file = createTemporary(temporary);
    if (!file.isOpen()) {
        return false;
    }
    if (exists) {
        keepOwnerAndMode(file, former);
    }
    const bool written = writeWhole(file.number(), text) && fsync(file.number()) == 0;
    if (!isNamed(file, temporary)) {
        return false;
    }
    if (!written || rename(temporary.c_str(), path.c_str()) != 0) {
        unlink(temporary.c_str());
        return false;
    }
    syncFolder(folderOf(path));
    return true;
}
