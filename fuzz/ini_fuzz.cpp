// SPDX-License-Identifier: GPL-3.0-or-later
// The text of ini files: a value that is set is read back, and no other value changes. The last lines of the
// input are a section, a key and the value to set; those before them are the file.
#include "platform/files/profile_text.h"
#include "support/fuzz_input.h"

#include <array>

namespace {

using Name = std::pair<std::string_view, std::string_view>; // section and key

// Names that the seeds contain.
constexpr std::array<Name, 4> otherNames = {{{"Settings", "a"}, {"Settings", "b"}, {"Roms", "a"}, {"", "b"}}};

bool isSame(std::string_view first, std::string_view second) {
    return std::ranges::equal(first, second, [](char left, char right) {
        const auto lower = [](char letter) { return letter >= 'A' && letter <= 'Z' ? letter + 32 : letter; };
        return lower(left) == lower(right);
    });
}

std::string textOf(const std::optional<std::string_view>& value) {
    return value ? "=" + std::string(*value) : "";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::string value = input.word(400);
    const std::string keyText = input.word(100);
    const std::string sectionText = input.word(100);
    const std::string_view key = trimmedName(keyText);
    const std::string_view section = trimmedName(sectionText);
    const ProfileText before{std::string(input.rest())};
    before.value(section, key);
    const bool isOneLine = value.find_first_of(std::string_view("\0\r", 2)) == std::string::npos;
    if (!isOneLine || !isWritableSection(section) || !isWritableKey(key)) {
        return 0;
    }
    const std::string text = before.withValue(section, key, value);
    const ProfileText after(text);
    require(after.value(section, key) == value);
    require(after.withValue(section, key, value) == text);
    for (const Name& other : otherNames) {
        if (!isSame(other.first, section) || !isSame(other.second, key)) {
            require(textOf(before.value(other.first, other.second)) ==
                    textOf(after.value(other.first, other.second)));
        }
    }
    return 0;
}
