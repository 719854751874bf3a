// SPDX-License-Identifier: GPL-3.0-or-later
// Draws a small picture of the front end with the current settings. Used by the page of the screen only.
#pragma once

#include "platform/types.h"

// Draws titles with the bar on one of them, the status bar and an arrow that points up as read, into a
// rectangle of the surface.
void drawScreenPreview(HDC dc, const RECT& area);
