// SPDX-License-Identifier: GPL-3.0-or-later
#include "scenario/recorded_media.h"

#include "platform/clock.h"
#include "platform/media.h"
#include "platform/messages.h"
#include "platform/sound.h"
#include "platform/virtual_clock.h"
#include "platform/window.h"

namespace {

void note(const std::string& what) {
    mediaRequests.push_back({what, virtualClockMilliseconds()});
}

LRESULT recordMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case MCI_PAUSE:
        note("pause");
        return 0;
    case MCI_RESUME:
        note("resume");
        return 0;
    case MCIWNDM_SENDSTRINGA:
        note(reinterpret_cast<LPCSTR>(lParam));
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

BOOL PlaySoundA(LPCSTR path, HMODULE, DWORD flags) {
    if (!path) {
        note("end");
        return TRUE;
    }
    constexpr DWORD always = SND_FILENAME | SND_NODEFAULT;
    const bool waited = flags == always;
    note(std::string(path) + (waited                          ? " waited for"
                              : flags == (always | SND_ASYNC) ? ""
                                                              : " with wrong flags"));
    if (waited) {
        Sleep(recordedSoundLength);
    }
    return TRUE;
}

void soundGiveUp() {
    note("give up");
}

void mediaPrepare() {
    note("prepare");
}

bool mediaReady() {
    return true;
}

HWND MCIWndCreateA(HWND parent, HINSTANCE instance, DWORD style, LPCSTR file) {
    note(std::string("open ") + file + (style == 0xC00A ? "" : " in a wrong style"));
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = recordMessage;
    windowClass.lpszClassName = "RecordedMedia";
    RegisterClassA(&windowClass);
    return CreateWindowExA(0, "RecordedMedia", nullptr, WS_CHILD, 0, 0, 0, 0, parent, nullptr, instance,
                           nullptr);
}
