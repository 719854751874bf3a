// The messages that wait: input, a quit, and what is made when it is asked for (paints, the close of a
// program that has been asked to end). Called by the message operations, and where keys and the joystick
// report. Sends nothing.
#pragma once

#include "platform/messages.h"

#include <optional>

// A key message for the window with the focus; dropped when there is none.
void queueKey(int code, bool down, bool repeat);

// A message for the window with the focus, or for none, when the joystick's state differs from that of the
// last one; only one waits at a time.
void queueJoystick();

// A message that says nothing, for the window with the focus or for none; only one waits at a time.
void queueWakeUp();

// A WM_QUIT, delivered once.
void queueQuit(int exitCode);

void dropMessagesOf(HWND handle);

// The next message, taken out of the queue or left there.
std::optional<MSG> nextMessage(bool take);
