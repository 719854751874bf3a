// Entry of every test program: a display without a screen, so that no test needs one.
#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
