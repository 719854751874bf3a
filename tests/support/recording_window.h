// SPDX-License-Identifier: GPL-3.0-or-later
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
    static const std::map<UINT, std::string> names = {
        {WM_NULL, "NULL"},         {MM_JOY1MOVE, "JOYSTICK"},   {WM_NCCREATE, "NCCREATE"},
        {WM_CREATE, "CREATE"},     {WM_DESTROY, "DESTROY"},     {WM_SIZE, "SIZE"},
        {WM_SETFOCUS, "SETFOCUS"}, {WM_KILLFOCUS, "KILLFOCUS"}, {WM_PAINT, "PAINT"},
        {WM_CLOSE, "CLOSE"},       {WM_ERASEBKGND, "ERASE"},    {WM_KEYDOWN, "KEYDOWN"},
        {WM_KEYUP, "KEYUP"}};
    const auto found = names.find(message);
    const std::string name = found != names.end() ? found->second : std::to_string(message);
    return message != WM_SIZE
               ? name
               : name + " " + std::to_string(lParam & 0xFFFF) + "x" + std::to_string((lParam >> 16) & 0xFFFF);
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
