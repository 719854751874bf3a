// SPDX-License-Identifier: GPL-3.0-or-later
// File descriptors with an owner, and complete reads and writes. Called by the files, profiles and processes
// of the platform, which decide what a failure means; failures are reported by return values only.
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

    // Passes ownership of the descriptor to the caller.
    int release() { return std::exchange(number_, -1); }

    // Returns false when the close reports that data written earlier was lost.
    bool close();

private:
    int number_ = -1;
};

// Opens an existing plain file for reading, without blocking. The result is closed when the file cannot be
// opened or is anything else, such as a folder, a pipe or a device.
FileDescriptor openPlainFile(const char* path);

// Reads at most `size` bytes. Returns 0 at the end and -1 on an error. Retries after an interruption.
std::ptrdiff_t readSome(int descriptor, char* buffer, std::size_t size);

// Appends the rest of the file to `text`. Returns false on an error or when `text` would exceed `limit`
// bytes.
bool readWhole(const FileDescriptor& file, std::string& text, std::size_t limit);

bool writeWhole(int descriptor, std::string_view text);
