// SPDX-License-Identifier: GPL-3.0-or-later
// Typed reads of single values of an ini file. Called by settings_file.cpp only. Values are truncated to 254
// characters. A missing file or key yields the default; no failure is reported.
#pragma once

#include "platform/types.h"

#include <array>
#include <cstdint>

// A value with its terminating zero.
using IniValue = std::array<char, 255>;

// Returns the value or the default, unparsed.
IniValue readIniValue(const char* section, const char* key, const char* defaultText, const char* file);

// Returns the value or the default, allocated with malloc.
char* readIniString(const char* section, const char* key, const char* defaultText, const char* file);

// Returns the value, allocated with malloc; null when it is empty or missing.
char* readIniStringOrNull(const char* section, const char* key, const char* file);

// Returns the value parsed as a hexadecimal number, with or without "0x"; 0 when it is not a number.
COLORREF readIniHex(const char* section, const char* key, const char* defaultText, const char* file);

// Returns 0 when the value is exactly "0", else 1.
std::int32_t readIniBool(const char* section, const char* key, std::int32_t defaultFlag, const char* file);

// Returns the value parsed as a decimal number, clamped to 32 bits; 0 when it is not a number.
std::int32_t readIniInt(const char* section, const char* key, const char* defaultText, const char* file);
