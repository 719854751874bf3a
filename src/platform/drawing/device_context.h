// The inside of a device context, for the drawing and text operations:
// what is selected in it and its text state. Inside the platform only.
// The selected objects themselves belong to gdi_objects.h.
#pragma once

#include "platform/drawing.h"
#include "platform/drawing/surface.h"
#include "platform/text.h"

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

// The record behind a handle, or null. Valid until the context is deleted.
DeviceContext* findDeviceContext(HDC dc);

// The font selected in a context: the system font when none was, null when the machine has no font.
FontObject* selectedFont(const DeviceContext& context);
