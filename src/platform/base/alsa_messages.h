// SPDX-License-Identifier: GPL-3.0-or-later
// Suppresses the messages that the ALSA library prints on a machine without a sound card, which is not an
// error here. Called before a sound device is opened.
#pragma once

void silenceAlsa();
