// SPDX-License-Identifier: GPL-3.0-or-later
// The page of the folders for ROMs, pictures, movies and information files. Called by pages.cpp.
#pragma once

#include "setup/pages/page.h"
#include "setup/pages/setup_state.h"

PageContent foldersPage(SetupState& state);
