#include "app/error_box.h"

#include "platform/window.h"

void showError(HWND owner, const char* text) {
    MessageBoxA(owner, text, "Error", MB_OK);
}
