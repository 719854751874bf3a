// SPDX-License-Identifier: GPL-3.0-or-later
// The last page: what has been chosen, and writing it. Called by pages.cpp.
#pragma once

#include "setup/pages/page.h"
#include "setup/pages/setup_state.h"

PageContent summaryPage(SetupState& state);
