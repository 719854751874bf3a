// SPDX-License-Identifier: GPL-3.0-or-later
// The extra InstantResponse: a new press is served at once by an early tick of the loop that runs. Controls
// that are held keep their ten times a second.
#pragma once

// Called once after the settings are loaded.
void startInstantResponse();
