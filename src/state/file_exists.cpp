#include "state/file_exists.h"

#include "platform/files.h"

std::int32_t fileExists(const char* path) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(path, &found);
    if (search == INVALID_HANDLE_VALUE) {
        return 0;
    }
    FindClose(search);
    return 1;
}
