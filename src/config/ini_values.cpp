// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ini_values.h"

#include "platform/profile.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

// Parses the number at the start of a text, clamped to 32 bits; 0 without a number.
std::int32_t parseNumber(const IniValue& value, int base) {
    using Limits = std::numeric_limits<std::int32_t>;
    const long long number = std::strtoll(value.data(), nullptr, base);
    return static_cast<std::int32_t>(std::clamp<long long>(number, Limits::min(), Limits::max()));
}

} // namespace

IniValue readIniValue(const char* section, const char* key, const char* defaultText, const char* file) {
    IniValue value{};
    GetPrivateProfileStringA(section, key, defaultText, value.data(), static_cast<DWORD>(value.size()), file);
    return value;
}

char* readIniString(const char* section, const char* key, const char* defaultText, const char* file) {
    return strdup(readIniValue(section, key, defaultText, file).data());
}

char* readIniStringOrNull(const char* section, const char* key, const char* file) {
    char* text = readIniString(section, key, "", file);
    if (text && text[0] == '\0') {
        std::free(text);
        return nullptr;
    }
    return text;
}

COLORREF readIniHex(const char* section, const char* key, const char* defaultText, const char* file) {
    return static_cast<COLORREF>(parseNumber(readIniValue(section, key, defaultText, file), 16));
}

std::int32_t readIniBool(const char* section, const char* key, std::int32_t defaultFlag, const char* file) {
    const IniValue value = readIniValue(section, key, defaultFlag != 0 ? "1" : "0", file);
    return std::strcmp(value.data(), "0") == 0 ? 0 : 1;
}

std::int32_t readIniInt(const char* section, const char* key, const char* defaultText, const char* file) {
    return parseNumber(readIniValue(section, key, defaultText, file), 10);
}
