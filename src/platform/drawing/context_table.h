// The inside of a device context, for the drawing and text operations:
// what is selected in it and its text state. Inside the platform only.
// The selected objects themselves belong to object_table.h.
#pragma once

#include "platform/device_contexts.h"
#include "platform/drawing/surface.h"

struct FontObject; // fonts.h

struct DeviceContext {
    Surface* surface = nullptr; // never null: the selected bitmap's, or the window's
    HGDIOBJ bitmap = nullptr;   // null in a window's device context
    HGDIOBJ brush = nullptr;
    HGDIOBJ pen = nullptr;
    HGDIOBJ font = nullptr;
    COLORREF textColor = 0x000000;
    COLORREF backgroundColor = 0xFFFFFF;
    int backgroundMode = OPAQUE;
};

// Makes a context that draws into the selected bitmap, or into the surface when the bitmap is null, with the
// stock objects selected. Null when there are too many. The context must exist where one is removed.
HDC addContext(HGDIOBJ bitmap, Surface* surface);
void removeContext(HDC dc);

// The record behind a handle, or null. Valid until the context is deleted.
DeviceContext* findDeviceContext(HDC dc);

// The font selected in a context: the system font when none was, null when the machine has no font.
FontObject* selectedFont(const DeviceContext& context);

// A device context that draws into a surface of somebody else's, which must outlive it and may be resized
// under it. Ended by deleteSurfaceDC; DeleteDC does not end it.
HDC createSurfaceDC(Surface* surface);
bool deleteSurfaceDC(HDC dc);
