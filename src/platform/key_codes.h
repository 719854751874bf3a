// SPDX-License-Identifier: GPL-3.0-or-later
// Virtual-key codes of the keys that have a name. Letters and digits use the ASCII codes of their capital
// letters and digits. Included by keys.h and by the platform's key tables and records; declares no
// operations.
#pragma once

constexpr int VK_BACK = 8;
constexpr int VK_TAB = 9;
constexpr int VK_RETURN = 13;
constexpr int VK_SHIFT = 16;
constexpr int VK_CONTROL = 17;
constexpr int VK_MENU = 18;
constexpr int VK_PAUSE = 19;
constexpr int VK_CAPITAL = 20;
constexpr int VK_ESCAPE = 27;
constexpr int VK_SPACE = 32;
constexpr int VK_PRIOR = 33;
constexpr int VK_NEXT = 34;
constexpr int VK_END = 35;
constexpr int VK_HOME = 36;
constexpr int VK_LEFT = 37;
constexpr int VK_UP = 38;
constexpr int VK_RIGHT = 39;
constexpr int VK_DOWN = 40;
constexpr int VK_SNAPSHOT = 44;
constexpr int VK_INSERT = 45;
constexpr int VK_DELETE = 46;
constexpr int VK_LWIN = 91;
constexpr int VK_RWIN = 92;
constexpr int VK_APPS = 93;
constexpr int VK_NUMPAD0 = 96;
constexpr int VK_NUMPAD1 = 97;
constexpr int VK_MULTIPLY = 106;
constexpr int VK_ADD = 107;
constexpr int VK_SUBTRACT = 109;
constexpr int VK_DECIMAL = 110;
constexpr int VK_DIVIDE = 111;
constexpr int VK_F1 = 112;
constexpr int VK_F13 = 124;
constexpr int VK_NUMLOCK = 144;
constexpr int VK_SCROLL = 145;
constexpr int VK_LSHIFT = 160;
constexpr int VK_RSHIFT = 161;
constexpr int VK_LCONTROL = 162;
constexpr int VK_RCONTROL = 163;
constexpr int VK_LMENU = 164;
constexpr int VK_RMENU = 165;
constexpr int VK_OEM_1 = 186;
constexpr int VK_OEM_PLUS = 187;
constexpr int VK_OEM_COMMA = 188;
constexpr int VK_OEM_MINUS = 189;
constexpr int VK_OEM_PERIOD = 190;
constexpr int VK_OEM_2 = 191;
constexpr int VK_OEM_3 = 192;
constexpr int VK_OEM_4 = 219;
constexpr int VK_OEM_5 = 220;
constexpr int VK_OEM_6 = 221;
constexpr int VK_OEM_7 = 222;
constexpr int VK_OEM_102 = 226;
