// SPDX-License-Identifier: GPL-3.0-or-later
// The message queue: input, a quit, and the messages made on demand (paints, and WM_CLOSE while the program
// is asked to end). Called by the message operations and by the key and joystick events. Sends nothing.
#pragma once

#include "platform/messages.h"

#include <optional>

// Queues a key message for the window with the focus; ignored when there is none.
void queueKey(int code, bool down, bool repeat);

// Queues MM_JOY1MOVE for the window with the focus, or for none, if the joystick's state differs from that of
// the last such message. It replaces one that is still queued.
void queueJoystick();

// Queues a WM_NULL, for the window with the focus or for none. It replaces one that is still queued.
void queueWakeUp();

// Queues a WM_QUIT, which is delivered once.
void queueQuit(int exitCode);

void dropMessagesOf(HWND handle);

// The next message; `take` removes it from the queue.
std::optional<MSG> nextMessage(bool take);
