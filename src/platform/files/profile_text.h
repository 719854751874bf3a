// The text of one private-profile file: where its sections lie, what a key holds, and the text with one value
// changed. Called by the profile operations only. No file is touched here; the rules of the format stand at
// those operations.
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

    // The value of a key, to the first NUL; nothing when the section or the key is absent.
    std::optional<std::string_view> value(std::string_view section, std::string_view key) const;

    // The whole text with the key set; every other byte is as it was. The names must be writable and the
    // value one line.
    std::string withValue(std::string_view section, std::string_view key, std::string_view value) const;

private:
    struct Section {
        std::string_view name;
        std::size_t begin; // of the first line behind the header
        std::size_t end;   // of the last line, its line end included
    };

    const Section* findSection(std::string_view name) const;
    std::optional<std::string_view> rawValue(const Section& section, std::string_view key) const;
    std::size_t endOfContent(const Section& section) const;
    std::string_view lineEndBefore(std::size_t at) const;
    std::string withLines(std::size_t at, std::string_view first, std::string_view second) const;

    std::string text_;
    std::size_t begin_ = 0; // behind a byte order mark
    std::vector<Section> sections_;
};

// The names as they are looked for, without the blanks around them, and whether a line can hold them.
std::string_view trimmedName(std::string_view name);
bool isWritableSection(std::string_view name);
bool isWritableKey(std::string_view name);
