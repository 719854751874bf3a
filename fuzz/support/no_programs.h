// SPDX-License-Identifier: GPL-3.0-or-later
// Linked in place of the platform's child processes, so that a random setting starts no program. Every
// program seems to take 300 milliseconds of virtual time and to do nothing.
#pragma once

// Whether programs seem to start or to be missing.
extern bool programsStart;
