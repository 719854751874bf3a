// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/profile.h"

#include "platform/files/file_io.h"
#include "platform/files/paths.h"
#include "platform/files/profile_text.h"
#include "platform/files/replace_file.h"

#include <sys/stat.h>
#include <time.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

namespace {

struct Signature {
    dev_t device;
    ino_t number;
    off_t size;
    std::int64_t modified; // nanoseconds
    std::int64_t changed;  // nanoseconds

    bool operator==(const Signature&) const = default;
};

// Options for each of 50,000 games take far less than this; anything larger is some other kind of file.
constexpr std::size_t largestProfile = std::size_t{8} << 20;

// The file that was read last: the start of the front end reads 85 keys of one file in a row.
struct {
    std::string path;
    Signature signature{};
    bool settled = false;
    std::unique_ptr<ProfileText> text;
} lastRead;

// A file that could not be read when its values were asked for. The program has defaults in their place,
// which must not replace them if the file can be read later.
std::string unreadProfile;

enum class ReadResult { done, missing, unreadable };

std::int64_t nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

Signature signatureOf(const struct stat& status) {
    return {status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

// A file that was changed just now can change again with the same time stamp, so its text is not reused for
// the next read. A time stamp in the future comes from a machine whose clock was reset; no change made now
// will repeat it.
bool isSettled(const Signature& signature) {
    constexpr std::int64_t coarsestStamp = 2'000'000'000; // that of FAT, in nanoseconds
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return std::abs(nanoseconds(now) - signature.modified) > coarsestStamp &&
           std::abs(nanoseconds(now) - signature.changed) > coarsestStamp;
}

// Reads the file into lastRead, unless lastRead already holds its current text.
ReadResult readProfile(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        return errno == ENOENT ? ReadResult::missing : ReadResult::unreadable;
    }
    if (lastRead.settled && lastRead.path == path && lastRead.signature == signatureOf(status)) {
        return ReadResult::done;
    }
    const FileDescriptor file = openPlainFile(path.c_str());
    std::string text;
    if (!file.isOpen() || fstat(file.number(), &status) != 0 || !readWhole(file, text, largestProfile)) {
        return ReadResult::unreadable;
    }
    lastRead.path = path;
    lastRead.signature = signatureOf(status);
    lastRead.settled = isSettled(lastRead.signature);
    lastRead.text = std::make_unique<ProfileText>(std::move(text));
    return ReadResult::done;
}

// From a file that has become unreadable it returns the last known value.
std::optional<std::string_view> readValue(LPCSTR section, LPCSTR key, LPCSTR file) {
    const std::string path = nativePath(file ? file : "");
    const ReadResult result = file ? readProfile(path) : ReadResult::missing;
    const bool isKnown = lastRead.text && lastRead.path == path;
    if (result == ReadResult::unreadable && !isKnown) {
        unreadProfile = path;
    }
    if (result == ReadResult::missing || !isKnown) {
        return std::nullopt;
    }
    return lastRead.text->value(trimmedName(section), trimmedName(key));
}

std::string singleLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char letter) { return letter == '\r' || letter == '\n'; }, ' ');
    return text;
}

} // namespace

DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer, DWORD size,
                               LPCSTR file) {
    if (size == 0) {
        return 0;
    }
    const std::string_view value = readValue(section, key, file).value_or(defaultText ? defaultText : "");
    const std::size_t copied = std::min<std::size_t>(value.size(), size - 1);
    std::memcpy(buffer, value.data(), copied);
    std::replace(buffer, buffer + copied, '\r', ' '); // as it is written
    buffer[copied] = '\0';
    return static_cast<DWORD>(copied);
}

UINT GetPrivateProfileIntA(LPCSTR section, LPCSTR key, int defaultValue, LPCSTR file) {
    const std::string value(readValue(section, key, file).value_or(""));
    if (value.empty()) {
        return static_cast<UINT>(defaultValue);
    }
    using Limits = std::numeric_limits<std::int32_t>;
    const long long number = std::strtoll(value.c_str(), nullptr, 10);
    return static_cast<UINT>(std::clamp<long long>(number, Limits::min(), Limits::max()));
}

BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR file) {
    return writeProfileValues(std::array{ProfileValue{section, key, value}}, file);
}

BOOL writeProfileValues(std::span<const ProfileValue> values, LPCSTR file) {
    const std::string path = nativePath(file ? file : "");
    const ReadResult result = file ? readProfile(path) : ReadResult::unreadable;
    if (result == ReadResult::unreadable || path == unreadProfile) {
        return FALSE;
    }
    std::unique_ptr<ProfileText> changed;
    std::string text;
    if (result == ReadResult::missing) {
        changed = std::make_unique<ProfileText>("");
    }
    for (const ProfileValue& entry : values) {
        const std::string_view section = trimmedName(entry.section);
        const std::string_view key = trimmedName(entry.key);
        if (!isWritableSection(section) || !isWritableKey(key)) {
            return FALSE;
        }
        const std::string value = singleLine(entry.value);
        const ProfileText& current = changed ? *changed : *lastRead.text;
        if (current.value(section, key) != value) {
            text = current.withValue(section, key, value);
            changed = std::make_unique<ProfileText>(text);
        }
    }
    return !changed || replaceFile(path, text) ? TRUE : FALSE;
}
