// SPDX-License-Identifier: GPL-3.0-or-later
// What the scene of a running game depends on besides the game. Filled by the callers of drawScene.
#pragma once

struct SceneMoment {
    double seconds; // since the game began
    double playerX; // -1 left to 1 right
    double playerY; // -1 up to 1 down
};
