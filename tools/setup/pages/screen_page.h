// SPDX-License-Identifier: GPL-3.0-or-later
// The page of the monitor's rotation, the colours and the font size, with a preview. Called by pages.cpp.
#pragma once

#include "setup/pages/page.h"
#include "setup/pages/setup_state.h"

PageContent screenPage(SetupState& state);
