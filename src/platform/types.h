// SPDX-License-Identifier: GPL-3.0-or-later
// Basic types, handles and records shared by every service of the platform layer. Included by all its
// headers; declares no operations. Widths are fixed: a LONG is 32 bits on every machine, and only WPARAM,
// LPARAM, LRESULT, pointers and handles have the width of a pointer.
#pragma once

#include <cstddef>
#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using SHORT = std::int16_t;
using ATOM = WORD;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using LPVOID = void*;
using LPSTR = char*;
using LPCSTR = const char*;

constexpr BOOL FALSE = 0;
constexpr BOOL TRUE = 1;

// Handles are opaque; the null handle refers to no object. Every operation returns its documented failure
// value for a null, deleted or foreign handle and has no other effect.
using HANDLE = void*;
using HGDIOBJ = void*;
using HWND = struct WindowHandle*;
using HDC = struct DeviceContextHandle*;
using HBITMAP = struct BitmapHandle*;
using HBRUSH = struct BrushHandle*;
using HPEN = struct PenHandle*;
using HFONT = struct FontHandle*;
using HICON = struct IconHandle*;
using HCURSOR = struct CursorHandle*;
using HMENU = struct MenuHandle*;
using HINSTANCE = struct InstanceHandle*;
using HMODULE = HINSTANCE;

// A colour as 0x00BBGGRR: the low byte is red.
using COLORREF = DWORD;

// right and bottom are exclusive.
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

struct POINT {
    LONG x;
    LONG y;
};

struct SIZE {
    LONG cx;
    LONG cy;
};

union LARGE_INTEGER {
    std::int64_t QuadPart;
};
