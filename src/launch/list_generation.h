// SPDX-License-Identifier: GPL-3.0-or-later
// What the generation of the game list runs, writes and shows. Used by core/catalogue_loader.cpp, which makes
// a missing list, and by extras/refresh_list.cpp, which replaces a list.
#pragma once

// The files are in the current directory, independent of the working directory of the external programs.
inline constexpr char listFile[] = "listinfo.dat";
inline constexpr char listXmlFile[] = "listinfo.xml";
inline constexpr char listStampFile[] = "listinfo.stamp"; // of extras/refresh_list.cpp

inline constexpr char listingOption[] = " -listxml"; // follows the emulator's command line
inline constexpr char listConverter[] = "xml2info.exe";

inline constexpr char listingMessage[] = "Regenerating game information (1/2)...";
inline constexpr char conversionMessage[] = "Regenerating game information (2/2)...";
