// SPDX-License-Identifier: GPL-3.0-or-later
// Private-profile (ini) files: sections in square brackets, containing lines of key, equals sign and value.
// Called by the settings and the game launch. Section and key names are case-insensitive; the first of
// several with the same name is used. Blanks around names and values, and one pair of quotes around a value,
// are dropped. A line that starts with `;` is a comment. Line ends may be CR LF or LF, and a UTF-8 byte order
// mark at the start is skipped. Values are not converted between encodings. A file that is not a plain file
// or is larger than 8 MiB is treated as unreadable. When the first read of a file fails, it is not written
// any more; when a later one fails, the last known values are returned.
#pragma once

#include "platform/types.h"

#include <span>

// Copies the value of a key, or the default when the file, section or key is missing, into a buffer of `size`
// bytes. The copy is truncated to size - 1 characters and always terminated; a size of 0 copies nothing.
// Returns the number of characters copied, without the terminator. A null default counts as "". section and
// key must not be null.
DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer, DWORD size,
                               LPCSTR file);

// Returns the value as a decimal integer with an optional sign, parsed up to the first non-digit: 0 when it
// does not start with a number, the nearest limit when it exceeds 32 bits. Returns the default when the file,
// section or key is missing or the value is empty.
UINT GetPrivateProfileIntA(LPCSTR section, LPCSTR key, int defaultValue, LPCSTR file);

// Sets a key and creates the file, the section (at the end) or the key (at the end of its section) as needed.
// Every other line is preserved with its line end. The file is replaced atomically: at any moment it holds
// either the old or the new text. Setting the value that is already there leaves the file untouched. A line
// end inside the value is written as a blank. Returns FALSE, with the file unchanged, when it exists but
// cannot be read, when it cannot be written, when the disk is full, and for a section or key name that cannot
// be stored in a line. section, key and value must not be null.
BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR file);

struct ProfileValue {
    LPCSTR section;
    LPCSTR key;
    LPCSTR value;
};

// Sets several keys in their order as WritePrivateProfileStringA does, with a single replacement of the file:
// the values are either all in the file or none is. Returns FALSE, with the file unchanged, when any of them
// cannot be set.
BOOL writeProfileValues(std::span<const ProfileValue> values, LPCSTR file);
