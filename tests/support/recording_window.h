// A window class whose procedure records the messages it receives. Used by the tests of windows and messages.
// Draws nothing.
#pragma once

#include "platform/drawing_objects.h"
#include "platform/joystick.h"
#include "platform/messages.h"
#include "platform/window.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

inline std::vector<std::string> sentMessages;
inline std::map<UINT, std::function<void(HWND, WPARAM, LPARAM)>> messageHooks;

inline std::string messageName(UINT message, LPARAM lParam) {
    const auto size = [&] {
        return " " + std::to_string(lParam & 0xFFFF) + "x" + std::to_string((lParam >> 16) & 0xFFFF);
    };
    switch (message) {
    case WM_NULL:
        return "NULL";
    case MM_JOY1MOVE:
        return "JOYSTICK";
    case WM_NCCREATE:
        return "NCCREATE";
    case WM_CREATE:
        return "CREATE";
    case WM_DESTROY:
        return "DESTROY";
    case WM_SIZE:
        return "SIZE" + size();
    case WM_SETFOCUS:
        return "SETFOCUS";
    case WM_KILLFOCUS:
        return "KILLFOCUS";
    case WM_PAINT:
        return "PAINT";
    case WM_CLOSE:
        return "CLOSE";
    case WM_ERASEBKGND:
        return "ERASE";
    case WM_KEYDOWN:
        return "KEYDOWN";
    case WM_KEYUP:
        return "KEYUP";
    default:
        return std::to_string(message);
    }
}

inline std::map<HWND, std::string> windowNames;

inline LRESULT recordingProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto name = windowNames.find(window);
    sentMessages.push_back((name != windowNames.end() ? name->second + ":" : "") +
                           messageName(message, lParam));
    if (const auto hook = messageHooks.find(message); hook != messageHooks.end()) {
        hook->second(window, wParam, lParam);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

inline void registerRecordingClass(const char* name = "Recording", UINT style = 0) {
    WNDCLASSA windowClass{};
    windowClass.style = style;
    windowClass.lpfnWndProc = recordingProc;
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
}

inline HWND makeRecordingWindow(int x, int y, int width, int height, HWND owner = nullptr,
                                DWORD style = WS_POPUP) {
    return CreateWindowExA(0, "Recording", "", style, x, y, width, height, owner, nullptr, nullptr, nullptr);
}

inline std::vector<std::string> takeMessages() {
    std::vector<std::string> taken;
    taken.swap(sentMessages);
    return taken;
}
