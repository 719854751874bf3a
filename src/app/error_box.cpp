// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/error_box.h"

#include "platform/message_box.h"

void showError(HWND owner, const char* text) {
    MessageBoxA(owner, text, "Error", MB_OK);
}
