// The ROM zips of one folder, compared the way its file system compares names. Called by the ROM scan, which
// reads the folder. Nothing here opens or lists anything itself.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

struct ZipListing {
    std::unordered_set<std::string> names; // in small letters when the case is ignored
    bool ignoresCase = false;
};

// Asks the file system of the folder for a file that may or may not be there; 1 or 0.
using FileQuestion = std::int32_t (*)(const std::string& fileName);

// Keeps the zips among all the names of a folder. Whether the file system ignores the case shows in a name
// that exists although no listed one is written so: the question is asked once, at most.
ZipListing makeZipListing(std::vector<std::string> fileNames, FileQuestion exists);

// Whether NAME.zip is in the listing.
bool hasZip(const ZipListing& listing, std::string name);
