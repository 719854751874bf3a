// SPDX-License-Identifier: GPL-3.0-or-later
// demo-cabinet FOLDER: creates the demonstration cabinet in that folder.

#include "art/art_pack.h"
#include "cabinet.h"
#include "movies.h"
#include "sounds.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: demo-cabinet FOLDER\n", stderr);
        return 2;
    }
    std::string problem;
    const std::string folder = argv[1];
    std::error_code error;
    std::filesystem::create_directories(folder + "/sounds", error);
    std::filesystem::create_directories(folder + "/attracts", error);
    if (!layOutCabinet(folder, problem) || !layOutSounds(folder + "/sounds", problem) ||
        !layOutMovies(folder + "/attracts", problem) || !writeArtPack(folder, problem)) {
        std::fprintf(stderr, "demo-cabinet: %s\n", problem.c_str());
        return 1;
    }
    return 0;
}
