// SPDX-License-Identifier: GPL-3.0-or-later
// The parsed text of one private-profile file: the positions of its sections, the values of its keys, and the
// text with one value changed. Called by the profile operations only, whose header describes the format.
// Reads and writes no files.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class ProfileText {
public:
    explicit ProfileText(std::string text);
    ProfileText(const ProfileText&) = delete;
    ProfileText& operator=(const ProfileText&) = delete;

    // Returns the value of a key up to the first NUL, or nothing when the section or the key is missing.
    std::optional<std::string_view> value(std::string_view section, std::string_view key) const;

    // Returns the whole text with the key set; all other bytes are unchanged. The section and key names must
    // be writable and the value must be a single line.
    std::string withValue(std::string_view section, std::string_view key, std::string_view value) const;

private:
    struct Section {
        std::string_view name;
        std::size_t begin; // of the first line after the header
        std::size_t end;   // of the last line, including its line end
    };

    const Section* findSection(std::string_view name) const;
    std::optional<std::string_view> rawValue(const Section& section, std::string_view key) const;
    std::size_t endOfContent(const Section& section) const;
    std::string_view lineEndBefore(std::size_t at) const;
    std::string withLines(std::size_t at, std::string_view first, std::string_view second) const;

    std::string text_;
    std::size_t begin_ = 0; // after a byte order mark
    std::vector<Section> sections_;
};

// Returns a section or key name as it is compared: without surrounding blanks. A writable name is one that a
// line of the file can hold.
std::string_view trimmedName(std::string_view name);
bool isWritableSection(std::string_view name);
bool isWritableKey(std::string_view name);
