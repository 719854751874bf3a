// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the pages of the set-up in the colours, the font and the rotation of the settings. Called by
// page_window; the preview of the screen page uses the helpers. Reads no controls.
#pragma once

#include "setup/pages/page.h"

// Draws the page over a whole surface, whose size is given, with one of its lines selected.
void drawPage(HDC dc, const RECT& client, const PageContent& content, std::size_t selected);

// Returns the text, or its start and end with dots between them, so that it fits into the width in the
// selected font.
std::string shortenedText(HDC dc, const std::string& text, int width);
