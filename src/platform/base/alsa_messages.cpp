// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/alsa_messages.h"

#include <alsa/asoundlib.h>

namespace {

void dropMessage(const char*, int, const char*, int, const char*, ...) {}

} // namespace

void silenceAlsa() {
    snd_lib_error_set_handler(dropMessage);
}
