// Files and folders: search, raw files for redirected streams, binary files. Called by the catalogue, the
// process runner and the PNG reader. In a path `\` and `/` both separate; otherwise a file name keeps its
// bytes and case. Text files are opened by text_file.h, ini files read by profile.h.
#pragma once

#include "platform/types.h"

#include <cstdio>

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1));

constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_SHARE_READ = 0x00000001;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x00000080;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x00000010;

struct SECURITY_ATTRIBUTES;

// Only the name and the directory bit are filled.
struct WIN32_FIND_DATAA {
    DWORD dwFileAttributes;
    char cFileName[260];
};

// Finds the first file or folder of a path whose last part may hold the wildcards * and ?. Gives a search
// handle, to be closed with FindClose, or INVALID_HANDLE_VALUE when there is none. A path without wildcards
// costs one look-up. FindNextFileA gives the next one of a path with wildcards, in no particular order, and
// FALSE when there is none.
HANDLE FindFirstFileA(LPCSTR path, WIN32_FIND_DATAA* found);
BOOL FindNextFileA(HANDLE search, WIN32_FIND_DATAA* found);
BOOL FindClose(HANDLE search);

// Opens a file: GENERIC_WRITE with CREATE_ALWAYS makes it anew and empty, GENERIC_READ with OPEN_EXISTING
// opens what is there. A plain file that is made anew has the name NAME.new~ until its handle is closed, so
// that a power cut or a kill never leaves part of it under its own name; when the program has been asked to
// end by then, it is removed instead. Any other pair, a directory, a missing or forbidden file gives
// INVALID_HANDLE_VALUE. The share mode, attributes and security record are not used: only a child's
// redirected streams are ever inherited. templateFile must be null.
HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD shareMode, SECURITY_ATTRIBUTES* security,
                   DWORD disposition, DWORD attributes, HANDLE templateFile);

// Closes a file, process or thread handle. FALSE when there is no such handle.
BOOL CloseHandle(HANDLE handle);

// Opens a plain file for reading its bytes, without ever waiting; for fclose and whatever reads a stream.
// Null when it cannot be opened or is a directory, a pipe or a device.
FILE* openBinaryFile(LPCSTR path);
