// SPDX-License-Identifier: GPL-3.0-or-later
// The extra RepeatDelay: a control that moves by one step or page repeats only after a delay. It filters the
// polls of the list, the menu and the game information; other commands are not delayed.
#pragma once

// Called once after the settings are loaded.
void startRepeatDelay();
