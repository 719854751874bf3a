// The message window: a small box with one line of text, centred on the screen and turned with it, shown
// around blocking work. Called by the start-up, the regeneration of the list and the commands. How long it
// stays is the caller's business; it has no loop, timer or input of its own.
#pragma once

// Shows the text, in a new box or in place of the text that is up. The box is on the screen when this
// returns. The text stays the caller's and must live until the next call of either function. A message box
// tells when no window can be made.
void showMessage(const char* text);

// Takes the box away; nothing happens when there is none.
void hideMessage();
