// demo-cabinet FOLDER: lays out the demonstration cabinet there.

#include "cabinet.h"

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: demo-cabinet FOLDER\n", stderr);
        return 2;
    }
    std::string problem;
    if (!layOutCabinet(argv[1], problem)) {
        std::fprintf(stderr, "demo-cabinet: %s\n", problem.c_str());
        return 1;
    }
    return 0;
}
