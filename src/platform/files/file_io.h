// Descriptors that close themselves, and whole reads and writes. Called
// by the files, profiles and processes of the platform, which know what
// a failure means; nothing here reports one but by its result.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() { close(); }

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }

    // The caller closes the descriptor from now on.
    int release() { return std::exchange(number_, -1); }

    // False when the machine reports now that something written before was lost.
    bool close();

private:
    int number_ = -1;
};

// Opens an existing plain file for reading, without ever waiting. Closed for anything else: a folder, a pipe
// and a device too.
FileDescriptor openPlainFile(const char* path);

// Reads at most `size` bytes: 0 at the end, -1 on an error. Goes on after an interruption.
std::ptrdiff_t readSome(int descriptor, char* buffer, std::size_t size);

// Appends all that is left of the file to `text`. False on an error or when `text` would pass `limit` bytes.
bool readWhole(const FileDescriptor& file, std::string& text, std::size_t limit);

bool writeWhole(int descriptor, std::string_view text);
