// SPDX-License-Identifier: GPL-3.0-or-later
// Replaces the C library's calls that open, change and rename files, and makes one of them fail. Only calls
// about files in the current folder count, so that those of libraries go on. Calls that the C library makes
// itself are not seen.
#pragma once

struct CallFailure {
    int number; // of the call that fails, from 1; 0 lets all succeed
    int error;  // its errno
};

// Starts to count from now on.
void failCall(const CallFailure& failure);

// The name of the call that has failed; null when there were fewer calls.
const char* failedCall();
