// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/settings.h"

Settings settings;

bool hasFavouriteControls() {
    return settings.keyFavourite != 0 || settings.joyFavourite != 0 || settings.keyFavouritesOnly != 0 ||
           settings.joyFavouritesOnly != 0;
}
