// SPDX-License-Identifier: GPL-3.0-or-later
// The memory of shared libraries that are loaded at run time.
#pragma once

// Returns the number of libraries of the process, the program included. Further ones are counted after them.
int libraryCount();

// Removes the code and constants of all libraries but the first `count` from the memory of the process. The
// kernel maps them again where they are used: from its cache of files, without reading the disk while they
// are in it. Loading a library touches much that is never used afterwards.
void dropLibraryPages(int count);
