// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"

#include "platform/base/end_request.h"
#include "platform/files/file_io.h"
#include "platform/files/paths.h"
#include "platform/files/replace_file.h"
#include "platform/files/system_object.h"

#include <climits>
#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

// A search with wildcards. One without returns its only result at once and has no object.
struct Search : SystemObject {
    std::unique_ptr<DIR, CloseFolder> folder;
    std::string pattern;
};

// All searches without wildcards share one handle, and only their number is recorded.
char plainSearch;
unsigned plainSearches = 0;

void describe(bool isFolder, std::string_view name, WIN32_FIND_DATAA* found) {
    found->dwFileAttributes = isFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
    const std::size_t length = std::min(name.size(), sizeof(found->cFileName) - 1);
    std::memcpy(found->cFileName, name.data(), length);
    found->cFileName[length] = '\0';
}

// fnmatch also interprets brackets, which are ordinary characters here.
std::string nativePattern(std::string_view pattern) {
    if (pattern == "*.*") {
        return "*";
    }
    std::string native;
    for (const char letter : pattern) {
        if (letter == '[') {
            native += '\\';
        }
        native += letter;
    }
    return native;
}

// Returns whether an entry is a folder; nothing when that is unknown. The type in the entry is used where
// present, since a query for each entry costs far more than the listing.
std::optional<bool> kindOf(DIR* folder, const dirent& entry) {
    if (entry.d_type == DT_REG || entry.d_type == DT_DIR) {
        return entry.d_type == DT_DIR;
    }
    struct stat status {};
    if (fstatat(dirfd(folder), entry.d_name, &status, 0) != 0) {
        return std::nullopt;
    }
    return S_ISDIR(status.st_mode);
}

bool findNext(const Search& search, WIN32_FIND_DATAA* found) {
    while (const dirent* entry = readdir(search.folder.get())) {
        const std::string_view name = entry->d_name;
        const bool matches = search.pattern == "*" || fnmatch(search.pattern.c_str(), entry->d_name, 0) == 0;
        if (name == "." || name == ".." || !matches) {
            continue;
        }
        if (const std::optional<bool> isFolder = kindOf(search.folder.get(), *entry)) {
            describe(*isFolder, name, found);
            return true;
        }
    }
    return false;
}

// A file that is written under a temporary name until its handle is closed.
struct OutputFile : OpenFile {
    explicit OutputFile(const std::string& path) : replacement(path) {
        if (replacement.isOpen()) {
            descriptor = replacement.openForChild();
        }
    }
    // Once an end is requested the child that writes the file is ended too, and a partial file would be taken
    // for a complete one.
    ~OutputFile() override {
        if (descriptor.isOpen() && !endRequested()) {
            replacement.commit();
        }
    }

    FileReplacement replacement;
};

HANDLE createOutput(const std::string& path) {
    auto file = std::make_unique<OutputFile>(path);
    return file->descriptor.isOpen() ? insertSystemObject(std::move(file)) : INVALID_HANDLE_VALUE;
}

HANDLE openDirectly(const std::string& path, int mode) {
    auto file = std::make_unique<OpenFile>();
    file->descriptor = FileDescriptor(open(path.c_str(), mode | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    const int number = file->descriptor.number();
    struct stat status {};
    if (!file->descriptor.isOpen() || fstat(number, &status) != 0 || S_ISDIR(status.st_mode)) {
        return INVALID_HANDLE_VALUE;
    }
    // Only the open must not block on a pipe without a peer; the child that receives the file expects
    // blocking reads and writes.
    fcntl(number, F_SETFL, fcntl(number, F_GETFL) & ~O_NONBLOCK);
    return insertSystemObject(std::move(file));
}

HANDLE searchFolder(const std::string& folder, std::string_view pattern, WIN32_FIND_DATAA* found) {
    auto search = std::make_unique<Search>();
    search->folder.reset(opendir(folder.empty() ? "." : folder.c_str()));
    search->pattern = nativePattern(pattern);
    if (!search->folder || !findNext(*search, found)) {
        return INVALID_HANDLE_VALUE;
    }
    return insertSystemObject(std::move(search));
}

} // namespace

HANDLE FindFirstFileA(LPCSTR path, WIN32_FIND_DATAA* found) {
    // The start of the front end calls this for every game, so a path without wildcards costs one system call
    // and no allocation.
    std::array<char, PATH_MAX> native;
    const std::size_t length = path ? strnlen(path, native.size()) : 0;
    if (length == 0 || length == native.size()) {
        return INVALID_HANDLE_VALUE;
    }
    std::replace_copy(path, path + length + 1, native.begin(), '\\', '/');
    const std::string_view whole(native.data(), length);
    const std::size_t nameBegin = whole.find_last_of('/') + 1;
    const std::string_view name = whole.substr(nameBegin);
    if (name.find_first_of("*?") != std::string_view::npos) {
        return searchFolder(std::string(whole.substr(0, nameBegin)), name, found);
    }
    struct stat status {};
    if (name.empty() || stat(native.data(), &status) != 0) {
        return INVALID_HANDLE_VALUE;
    }
    describe(S_ISDIR(status.st_mode), name, found);
    ++plainSearches;
    return &plainSearch;
}

BOOL FindNextFileA(HANDLE search, WIN32_FIND_DATAA* found) {
    const auto* open = dynamic_cast<Search*>(systemObjects().find(reinterpret_cast<std::uintptr_t>(search)));
    return open && findNext(*open, found) ? TRUE : FALSE;
}

BOOL FindClose(HANDLE search) {
    if (search == &plainSearch && plainSearches > 0) {
        --plainSearches;
        return TRUE;
    }
    const auto value = reinterpret_cast<std::uintptr_t>(search);
    return dynamic_cast<Search*>(systemObjects().find(value)) && systemObjects().remove(value) ? TRUE : FALSE;
}

BOOL getFileState(LPCSTR path, FileState* state) {
    struct stat status {};
    if (stat(nativePath(path ? path : "").c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return FALSE;
    }
    const auto nanoseconds = [](const timespec& time) {
        return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
    };
    *state = {status.st_size, nanoseconds(status.st_mtim), nanoseconds(status.st_ctim)};
    return TRUE;
}

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD, SECURITY_ATTRIBUTES*, DWORD disposition, DWORD, HANDLE) {
    const std::string name = nativePath(path ? path : "");
    if (access == GENERIC_WRITE && disposition == CREATE_ALWAYS) {
        struct stat status {};
        const bool isSpecial = stat(name.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
        return isSpecial ? openDirectly(name, O_WRONLY) : createOutput(name);
    }
    if (access == GENERIC_READ && disposition == OPEN_EXISTING) {
        return openDirectly(name, O_RDONLY);
    }
    return INVALID_HANDLE_VALUE;
}

BOOL CloseHandle(HANDLE handle) {
    return systemObjects().remove(reinterpret_cast<std::uintptr_t>(handle)) ? TRUE : FALSE;
}

FILE* openBinaryFile(LPCSTR path) {
    FileDescriptor file = openPlainFile(nativePath(path ? path : "").c_str());
    FILE* stream = file.isOpen() ? fdopen(file.number(), "rb") : nullptr;
    if (stream) {
        file.release();
    }
    return stream;
}

std::optional<std::string> readFileText(LPCSTR path, std::size_t limit) {
    const FileDescriptor file = openPlainFile(nativePath(path ? path : "").c_str());
    std::string text;
    return file.isOpen() && readWhole(file, text, limit) ? std::optional(std::move(text)) : std::nullopt;
}

BOOL replaceFileText(LPCSTR path, std::string_view text) {
    return replaceFile(nativePath(path ? path : ""), text) ? TRUE : FALSE;
}
