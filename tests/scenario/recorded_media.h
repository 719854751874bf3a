// What the front end asks of sounds and media windows, written
// down with its moment instead of played. Linked in place of the
// platform's own in the scenarios. A synchronous sound takes time.
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
