// SPDX-License-Identifier: GPL-3.0-or-later
// Records the requests of the front end to sounds and media windows, with their times, instead of playing
// them. Linked into the scenario tests in place of the platform's implementation. A synchronous sound takes
// virtual time.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct MediaRequest {
    std::string what;
    std::int64_t at = 0; // milliseconds of virtual time
};

inline std::vector<MediaRequest> mediaRequests;

constexpr int recordedSoundLength = 700; // milliseconds
