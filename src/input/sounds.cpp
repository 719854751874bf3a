#include "input/sounds.h"

#include "config/settings.h"
#include "platform/media.h"
#include "platform/sound.h"
#include "platform/window.h"
#include "state/file_exists.h"
#include "state/shared_state.h"

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
    constexpr DWORD style = MCIWNDF_NOPLAYBAR | MCIWNDF_NOMENU | MCIWNDF_NOERRORDLG | MCIWNDF_NOOPEN;
    ambienceWindow = MCIWndCreateA(mainWindow, nullptr, style, settings.ambienceFile);
    const auto command = reinterpret_cast<LPARAM>("play repeat");
    return SendMessageA(ambienceWindow, MCIWNDM_SENDSTRINGA, 0, command) == 0 ? 1 : 0;
}
