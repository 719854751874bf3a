// SPDX-License-Identifier: GPL-3.0-or-later
// Entry point of the test programs. Selects the dummy drivers of SDL, so no test needs a screen or a sound
// card.
#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
