// SPDX-License-Identifier: GPL-3.0-or-later
// The ROM zips of one folder, with names compared as the folder's file system compares them. Called by the
// ROM scan, which lists the folder; nothing here accesses the file system.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// A hash table in two blocks that fit into the processor's cache: a set of 45,000 strings would take 20 ms to
// search for as many games.
struct ZipListing {
    std::string text; // the names, each with a zero at the end; lower case if ignoresCase is set
    // Where names begin in `text`, 0 for none. Its size is a power of two, or 0 without zips.
    std::vector<std::uint32_t> places;
    bool ignoresCase = false;
};

// Returns 1 when the file system finds the name in the folder, else 0.
using FileExistsFunction = std::int32_t (*)(const std::string& fileName);

// Collects the zips among all file names of a folder. The file system ignores case when it finds a listed
// name with its case swapped although no file is listed under that spelling; `exists` is called at most once
// for this.
ZipListing makeZipListing(std::vector<std::string> fileNames, FileExistsFunction exists);

// Whether the listing contains NAME.zip.
bool hasZip(const ZipListing& listing, std::string name);
