// The words of the ALSA library, which it would print on
// a machine without a sound card. That is no error here.
// Called by whoever is about to open a sound device.
#pragma once

void silenceAlsa();
