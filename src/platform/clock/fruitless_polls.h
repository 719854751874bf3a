// SPDX-License-Identifier: GPL-3.0-or-later
// Detects a loop that does nothing but poll for messages, so that it can be paced like a loop that sleeps.
// Called inside the platform only: the message queue reports each poll that finds no message, and the
// services that such a loop might call report that it did other work.
#pragma once

// Reports a poll that found no message. After a series of such polls without any other work, it pauses for as
// long as Sleep(1) does.
void pauseAfterFruitlessPolls();

// Reports that a message was found, a control was read or a window was queried: the loop does work, and the
// series starts again. It also exempts a loop that catches up on overdue ticks, since each tick reads the
// controls.
void noteWorkBetweenPolls();
