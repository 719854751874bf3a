// SPDX-License-Identifier: GPL-3.0-or-later
// Files and folders: searches, files for redirected streams of a child process, binary files, and replacing
// the content of a file. Called by the catalogue, the process runner, the PNG reader and the favourites. Both
// `\` and `/` separate the parts of a path; otherwise file names are case-sensitive byte strings. Text files
// are opened through text_file.h and ini files are read through profile.h.
#pragma once

#include "platform/types.h"

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1));

constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_SHARE_READ = 0x00000001;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x00000080;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x00000010;

struct SECURITY_ATTRIBUTES;

// Only the name and the directory bit are set.
struct WIN32_FIND_DATAA {
    DWORD dwFileAttributes;
    char cFileName[260];
};

// Finds the first file or folder that matches a path whose last part may contain the wildcards * and ?.
// Returns a search handle, to be closed with FindClose, or INVALID_HANDLE_VALUE when nothing matches. A path
// without wildcards costs a single file system query. FindNextFileA fills in the next match of a path with
// wildcards, in no particular order, and returns FALSE when there are no more.
HANDLE FindFirstFileA(LPCSTR path, WIN32_FIND_DATAA* found);
BOOL FindNextFileA(HANDLE search, WIN32_FIND_DATAA* found);
BOOL FindClose(HANDLE search);

// What changes whenever the content of a file does. The times are nanoseconds since 1970: of the last change
// of the content, and of the last change of anything, which no copy or package keeps.
struct FileState {
    std::int64_t size;
    std::int64_t contentTime;
    std::int64_t anyTime;
};

// Returns FALSE when the path names no plain file.
BOOL getFileState(LPCSTR path, FileState* state);

// Opens a file. GENERIC_WRITE with CREATE_ALWAYS creates it or empties it; GENERIC_READ with OPEN_EXISTING
// opens an existing file. A plain file opened for writing is named NAME.new~ until its handle is closed, so
// that a power failure or a kill never leaves a partial file under the final name; if the program has been
// asked to end by then, the temporary file is removed instead. Returns INVALID_HANDLE_VALUE for any other
// combination, for a directory and for a file that is missing or may not be opened. The share mode,
// attributes and security record are ignored: a child inherits only its redirected streams. templateFile must
// be null.
HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD shareMode, SECURITY_ATTRIBUTES* security,
                   DWORD disposition, DWORD attributes, HANDLE templateFile);

// Closes a file, process or thread handle. Returns FALSE for any other value.
BOOL CloseHandle(HANDLE handle);

// Opens a plain file for reading its bytes, without blocking. The caller closes the stream with fclose.
// Returns null when the file cannot be opened or is a directory, a pipe or a device.
FILE* openBinaryFile(LPCSTR path);

// Returns the bytes of a plain file of at most `limit` bytes; nothing for any other.
std::optional<std::string> readFileText(LPCSTR path, std::size_t limit);

// Replaces the content of a plain file, or creates it, atomically: at any moment it holds either the old or
// the new text. Returns TRUE once the text is on the disk. Returns FALSE, with the file unchanged, when it
// may not be written, when another program is replacing it, and when the disk is full.
BOOL replaceFileText(LPCSTR path, std::string_view text);
