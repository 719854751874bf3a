// Single values of an ini file in the forms that the settings use. Called
// by the settings only. A value is cut to 254 characters; nothing reports
// a failure, since a missing file or key simply gives the default.
#pragma once

#include "platform/types.h"

#include <array>
#include <cstdint>

// A value with its terminator.
using IniValue = std::array<char, 255>;

// The value or the default, as it stands.
IniValue readIniValue(const char* section, const char* key, const char* defaultText, const char* file);

// The value or the default as a new text from malloc.
char* readIniString(const char* section, const char* key, const char* defaultText, const char* file);

// The value as a new text from malloc; null when it is empty or absent.
char* readIniStringOrNull(const char* section, const char* key, const char* file);

// The value as a hexadecimal number, with or without "0x"; 0 when it is none.
COLORREF readIniHex(const char* section, const char* key, const char* defaultText, const char* file);

// 0 when the value is exactly "0", else 1.
std::int32_t readIniBool(const char* section, const char* key, std::int32_t defaultFlag, const char* file);

// The value as a decimal number; 0 when it is none, the nearest number when it passes 32 bits.
std::int32_t readIniInt(const char* section, const char* key, const char* defaultText, const char* file);

// Writes a decimal number.
void writeIniInt(const char* section, const char* key, std::int32_t number, const char* file);
