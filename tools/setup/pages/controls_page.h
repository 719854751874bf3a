// SPDX-License-Identifier: GPL-3.0-or-later
// The page on which the keys and joystick controls of the front end are chosen by pressing them. Called by
// pages.cpp.
#pragma once

#include "setup/pages/page.h"
#include "setup/pages/setup_state.h"

PageContent controlsPage(SetupState& state);
