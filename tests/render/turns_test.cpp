// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/turns.h"

#include "config/settings.h"
#include "support/frame_test.h"

namespace {

TEST(Turns, MapsRectanglesInBothDirections) {
    const RECT area{10, 20, 110, 70};
    const struct {
        std::int32_t rotation;
        SIZE size;
        RECT turned; // of {1, 2, 31, 6}
    } rows[] = {{0, {100, 50}, {11, 22, 41, 26}},
                {90, {50, 100}, {104, 21, 108, 51}},
                {180, {100, 50}, {79, 64, 109, 68}},
                {-90, {50, 100}, {12, 39, 16, 69}}};
    for (const auto& row : rows) {
        settings.orientation = row.rotation;
        EXPECT_EQ(sizeAsRead(area).cx, row.size.cx) << row.rotation;
        EXPECT_EQ(sizeAsRead(area).cy, row.size.cy) << row.rotation;
        const RECT read{1, 2, 31, 6};
        EXPECT_EQ(turnedRect(area, read), row.turned) << row.rotation;
        EXPECT_EQ(rectAsRead(area, row.turned), read) << row.rotation;
    }
}

TEST(Turns, PlacesPicturesWithinTheirBounds) {
    const RECT area{10, 20, 210, 120};
    const struct {
        POINT centre;
        SIZE size; // in frame coordinates, at rotation 90
        RECT placed;
    } rows[] = {
        {{50, 100}, {21, 11}, {99, 65, 120, 76}},
        {{50, 0}, {20, 10}, {160, 65, 180, 75}},    // moved down to the upper bound
        {{500, 500}, {20, 10}, {50, 95, 70, 105}},  // moved to the lower right bounds
        {{50, 100}, {150, 10}, {30, 65, 180, 75}},  // higher than the bounds
        {{50, 100}, {20, 90}, {100, 25, 120, 115}}, // wider than the bounds
    };
    settings.orientation = 90;
    for (const auto& row : rows) {
        EXPECT_EQ(placePicture({area, row.centre, {5, 30, 85, 160}}, row.size), row.placed) << row.centre.x;
    }
}

} // namespace
