// The running program: its command line, handle, path
// and console title. Called by the entry and by
// everything that looks for files beside the program.
#pragma once

#include "platform/types.h"

// The whole command line: the program's name in double quotes, then each argument as it was given, with one
// blank before each. Valid for the whole run.
LPSTR GetCommandLineA();

// The instance handle of the program; name must be null.
HMODULE GetModuleHandleA(LPCSTR name);

// Copies the full path of the running program, with `\` before each name, cut to size - 1 characters and
// always terminated (size above 0). Gives the characters copied, or size when it was cut. module is not used.
DWORD GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size);

// Sets the title of the console when standard output is one. FALSE without a console.
BOOL SetConsoleTitleA(LPCSTR title);
