// SPDX-License-Identifier: GPL-3.0-or-later
// The message window: a small box with one line of text, centred on the screen and rotated with it, shown
// during blocking operations. Called by WinMain, the catalogue loader and the commands, which decide how long
// it stays. Has no message loop, timer or input.
#pragma once

// Shows the text, replacing the current one. The box is on the screen when the function returns. The text is
// not copied and must stay valid until the next call of either function. Reports with a message box when the
// window cannot be created.
void showMessage(const char* text);

// Removes the box. Does nothing when no message is shown.
void hideMessage();
