// SPDX-License-Identifier: GPL-3.0-or-later
// The set-up page by page on a display. Called by main.cpp.
#pragma once

#include "setup/command_line.h"

#include <optional>

// Runs the pages. Returns the exit code of the program: 0 when the ini file has been written, 1 when the user
// or a signal has ended the set-up before; nothing without a display.
std::optional<int> runSetupPages(const SetupOptions& options);
