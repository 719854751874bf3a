// Private-profile (ini) files: sections in square brackets, lines of key, equals sign, value. Called by the
// settings and the game launch. Sections and keys are found without regard to case; the first one of a name
// counts. Blanks around names and values and one pair of quotes around a value are dropped; a line that
// starts with `;` is a comment; line ends may be CR LF or LF, and a UTF-8 byte order mark at the head is
// passed over. Values keep their bytes. What is no plain file, or beyond 8 MiB, counts as one that cannot be
// read.
#pragma once

#include "platform/types.h"

// Copies the value of a key, or the default when the file, the section or the key is absent, into a buffer of
// `size` bytes, cut to size - 1 characters and always terminated. Gives the characters copied. A null default
// counts as "". section and key must not be null. A size of 0 copies nothing.
DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer, DWORD size,
                               LPCSTR file);

// The value as a decimal whole number with an optional sign, up to the first character that is no digit; a
// value that starts with no number gives 0, one beyond 32 bits the nearest that fits. The default when the
// key or the file is absent or the value is empty.
UINT GetPrivateProfileIntA(LPCSTR section, LPCSTR key, int defaultValue, LPCSTR file);

// Sets a key, making the file, the section (at the end) or the key (at the end of its section) as needed.
// Every other line stays as it is, with its line end. The file is replaced in one step: at any instant it
// holds the old text or the new. A value that is there already leaves the file untouched. FALSE, with the
// file as it was, when it cannot be read though it exists, cannot be written, or the disk is full, and for a
// name that no line can hold. A line end inside the value becomes a blank. section, key and value must not be
// null.
BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR file);
