// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the set-up, which fills the screen, and the loop of a page. Called by the pages. Creates and
// destroys the main window declared in app/window_state.h.
#pragma once

#include "setup/pages/page.h"

// Opens the window. Returns false without a display.
bool openPageWindow();
void closePageWindow();

// Draws a page, without waiting for a control.
void showPage(const PageContent& content);

// Dispatches the pending messages and pauses for about 20 ms. Returns false once the window is gone or the
// program has been asked to end; the set-up then ends without writing.
bool servePageWindow();

// Shows a page until an action of a line or the control for back ends it. Returns that action, or leave when
// the program has been asked to end.
PageAction runPage(const PageBuilder& build);

// As above, with the selected line of the caller, who keeps it for the next time.
PageAction runPage(const PageBuilder& build, std::size_t& selected);

// Asks a question with two answers, of which the first is the safe one. Returns 0 or 1 for the answer, 0 for
// back, and -1 when the program has been asked to end.
int askOnPage(const std::string& title, const std::string& question, const std::string& safeAnswer,
              const std::string& otherAnswer);
