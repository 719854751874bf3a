// SPDX-License-Identifier: GPL-3.0-or-later
// The table of device contexts: the state of each one, looked up by handle. Used by the drawing and text
// operations and by windows, inside the platform only. The selected objects are owned by object_table.h.
#pragma once

#include "platform/device_contexts.h"
#include "platform/drawing/surface.h"

struct FontObject; // fonts/fonts.h

struct DeviceContext {
    Surface* surface = nullptr; // not owned, never null: the selected bitmap's or the window's
    HGDIOBJ bitmap = nullptr;   // null in a window's device context
    HGDIOBJ brush = nullptr;
    HGDIOBJ pen = nullptr;
    HGDIOBJ font = nullptr;
    COLORREF textColor = 0x000000;
    COLORREF backgroundColor = 0xFFFFFF;
    int backgroundMode = OPAQUE;
};

// Creates a device context that draws into `surface`, with the stock brush, pen and font selected.
// `surface` belongs to `bitmap`, which becomes selected; `bitmap` is null for a surface that is not a bitmap.
// Returns null if 10,000 device contexts exist. removeContext requires a valid handle.
HDC addContext(HGDIOBJ bitmap, Surface* surface);
void removeContext(HDC dc);

// Returns the device context of a handle, or null for a bad handle. Valid until it is deleted.
DeviceContext* findDeviceContext(HDC dc);

// Returns the font selected in a device context, initially the system font. Null if no font is installed.
FontObject* selectedFont(const DeviceContext& context);

// Creates a device context that draws into a surface owned by the caller. The surface must outlive the device
// context and may be resized meanwhile. Delete it with deleteSurfaceDC; DeleteDC refuses it.
HDC createSurfaceDC(Surface* surface);
bool deleteSurfaceDC(HDC dc);
