// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/media_window.h"

#include "app/window_state.h"
#include "platform/media.h"
#include "platform/messages.h"

HWND openMediaWindow(const char* path) {
    constexpr DWORD style = MCIWNDF_NOPLAYBAR | MCIWNDF_NOMENU | MCIWNDF_NOERRORDLG | MCIWNDF_NOOPEN;
    return MCIWndCreateA(mainWindow, nullptr, style, path);
}

int playRepeatedly(HWND window) {
    const auto command = reinterpret_cast<LPARAM>("play repeat");
    return SendMessageA(window, MCIWNDM_SENDSTRINGA, 0, command) == 0 ? 1 : 0;
}
