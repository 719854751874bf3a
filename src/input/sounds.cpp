// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/sounds.h"

#include "app/game_files.h"
#include "app/media_window.h"
#include "config/settings.h"
#include "platform/media.h"
#include "platform/messages.h"
#include "platform/sound.h"
#include "platform/window.h"

HWND ambienceWindow = nullptr;

void playSoundFile(const char* path, std::uint32_t flags) {
    if (path) {
        PlaySoundA(path, nullptr, flags | SND_FILENAME | SND_NODEFAULT);
    }
}

int startAmbience() {
    ambienceWindow = nullptr;
    if (!fileExists(settings.ambienceFile)) {
        return 0;
    }
    ambienceWindow = openMediaWindow(settings.ambienceFile);
    return playRepeatedly(ambienceWindow);
}
