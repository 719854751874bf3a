// SPDX-License-Identifier: GPL-3.0-or-later
// The running program: its command line, handle, path and console title. Called by the entry and by code that
// looks for files next to the program.
#pragma once

#include "platform/types.h"

// The whole command line: the program's name in double quotes, then each argument verbatim, separated by
// single spaces. Valid until the program ends.
LPSTR GetCommandLineA();

// The instance handle of the program; name must be null.
HMODULE GetModuleHandleA(LPCSTR name);

// Copies the full path of the running program, with `\` as the separator, cut to size - 1 characters and
// always terminated (size must be above 0). Returns the number of characters copied, or size when the path
// was cut. `module` is ignored.
DWORD GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size);

// Sets the title of the console. FALSE when standard output is not a terminal.
BOOL SetConsoleTitleA(LPCSTR title);
